#include "phone/server/SettingsPane.h"

#include "phone/flow/Preferences.h"

#include <algorithm>
#include <filesystem>
#include <pugixml.hpp>

namespace phone {

namespace fs = std::filesystem;

namespace {

constexpr const char* panePath = "/Library/PreferenceLoader/Preferences/Quorvan/Quorvan.plist";
constexpr const char* translationsPath = "/Library/Quorvan/Translations.bundle";

/// What stands under the key in a property list's dictionary; null where nothing does.
pugi::xml_node valueOf(pugi::xml_node dictionary, const std::string& name) {
    for (pugi::xml_node key = dictionary.child("key"); key; key = key.next_sibling("key")) {
        if (name == key.child_value()) {
            return key.next_sibling();
        }
    }
    return {};
}

std::optional<bool> truth(pugi::xml_node value) {
    const std::string_view name = value.name();
    if (name == "integer") {
        return value.text().as_int() != 0;
    }
    return name == "true" ? std::optional(true) : name == "false" ? std::optional(false) : std::nullopt;
}

} // namespace

std::vector<SettingsSwitch> settingsSwitches(const std::string& root) {
    pugi::xml_document pane;
    pugi::xml_document preferences;
    pane.load_file((root + panePath).c_str());
    preferences.load_file((root + preferencesPath).c_str());
    const pugi::xml_node chosen = preferences.child("plist").child("dict");
    std::vector<SettingsSwitch> all;
    std::string footer;
    for (const pugi::xml_node item : valueOf(pane.child("plist").child("dict"), "items").children("dict")) {
        const std::string_view cell = valueOf(item, "cell").child_value();
        if (cell == "PSGroupCell") {
            footer = valueOf(item, "footerText").child_value();
        } else if (cell == "PSSwitchCell") {
            const std::string key = valueOf(item, "key").child_value();
            all.push_back({key, valueOf(item, "label").child_value(), footer, truth(valueOf(chosen, key)),
                           truth(valueOf(item, "default")).value_or(false)});
        }
    }
    return all;
}

std::vector<std::string> libraryLanguages(const std::string& root) {
    std::vector<std::string> all;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(root + translationsPath, ignored)) {
        if (entry.path().extension() == ".lproj") {
            all.push_back(entry.path().stem().string());
        }
    }
    std::sort(all.begin(), all.end(),
              [](const auto& a, const auto& b) { return std::pair(a != "en", a) < std::pair(b != "en", b); });
    return all;
}

} // namespace phone
