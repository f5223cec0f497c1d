/// What kind of phone is wanted: what a flow's header, the command line, the page and clients may say of it.
#pragma once

#include "phone/device/Profile.h"
#include "phone/flow/Flow.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace phone {

/// One thing that may be said of the phone.
struct PhoneOption {
    std::string_view name; // in a header, on the page and, after two dashes, on the command line
    std::optional<std::string> PhoneOptions::* value;
    /// A line for the person when the value cannot be used.
    std::optional<std::string> (*whatIsWrongWith)(const std::string& value);
};

/// All of them, in the order in which they are written.
extern const std::array<PhoneOption, 8> phoneOptions;

/// A line for the person when the value cannot be used for the option of that name.
std::optional<std::string> whatIsWrongWith(std::string_view option, const std::string& value);

/// The options of one start of the phone application; as they are where nothing is said.
struct LaunchSettings {
    std::string device = "iphone5";
    std::string application = "newer";
    std::string language = "en";
    std::string region = {}; // "" for the one where most people of the language live
    std::string hours = {};  // "" for those of the region
    std::string system = std::string(usualSystem);
    std::string zone = "UTC";

    friend bool operator==(const LaunchSettings&, const LaunchSettings&) = default;
};

/// What `first` says, then `second`; where neither does the application is the device's own.
LaunchSettings launchSettings(const PhoneOptions& first, const PhoneOptions& second);

/// The options that lead to these settings.
PhoneOptions optionsFor(const LaunchSettings& settings);

/// What is left open in `options` is as the phone is now; but another device has an application of its own.
PhoneOptions completed(PhoneOptions options, const LaunchSettings& now);

} // namespace phone
