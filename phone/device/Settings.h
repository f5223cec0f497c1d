/// What one start of the phone application is given.
#pragma once

#include "phone/device/Profile.h"
#include "phone/device/Region.h"

#include <optional>
#include <string>

namespace phone {

struct Settings {
    DeviceProfile device;
    SystemProfile system = *systemNamed(usualSystem);
    ApplicationProfile application;
    std::string root;            // the root folder; a path of the host
    std::string language = "en"; // a language tag
    std::string region;          // of a person who lives elsewhere than the language's people do; else ""
    std::optional<Hours> hours;  // of a person who has chosen; else as is usual in the region
    std::string zone = "UTC";    // a name of the time zone database
    double now = 0;              // the wall clock: seconds since 1970, UTC
    bool clockRuns = false;      // whether the wall clock moves by itself (a person's phone)
};

/// The settings of the phone application in this process. Set once, before the first class is used.
const Settings& settings();
void useSettings(Settings settings);

} // namespace phone
