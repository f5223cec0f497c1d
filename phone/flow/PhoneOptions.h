/// What kind of phone a flow wants: options of the command line and of a flow's header.
#pragma once

#include "phone/flow/Flow.h"

#include <optional>
#include <string>

namespace phone {

/// The options of one start of the phone application, nothing left out.
struct LaunchSettings {
    std::string device;
    std::string application;
    std::string language;
    std::string zone;
};

/// A line for the person when the value cannot be used for the key (device, app, language, now, zone).
std::optional<std::string> whatIsWrongWith(const std::string& key, const std::string& value);

/// What `first` says, then `second`, then the defaults.
LaunchSettings launchSettings(const PhoneOptions& first, const PhoneOptions& second);

} // namespace phone
