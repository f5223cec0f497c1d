/// The switches that the library shows in the device's settings.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace phone {

struct SettingsSwitch {
    std::string key;            // in the preferences file
    std::string label;          // in English
    std::string footer;         // what it does
    std::optional<bool> chosen; // nullopt when it was never touched
    bool otherwise = false;     // how it stands until then

    bool isOn() const { return chosen.value_or(otherwise); }
};

/// In the order of the pane that lies in this root folder; none where there is no pane that can be read.
std::vector<SettingsSwitch> settingsSwitches(const std::string& root);

/// The languages that the library in this root folder speaks, as tags; English comes first.
std::vector<std::string> libraryLanguages(const std::string& root);

} // namespace phone
