/// What a client asks of a new session.
#pragma once

#include "phone/flow/PhoneOptions.h"

#include <nlohmann/json.hpp>

namespace phone::webdriver {

struct Capabilities {
    LaunchSettings phone;       // what is to run
    bool launchesOther = false; // whether that differs from what runs
    bool startsAfresh = false;  // whether the application starts anew even if it runs
    nlohmann::json settings = nlohmann::json::object();
};

/// Reads the body of a request for a session. The capabilities may stand with `appium:` before them or without; those
/// that are not known are passed over, as clients send many. `now` is what runs or last ran. Throws Refusal: session
/// not created for a body without capabilities or a platform that this is not, invalid argument for a bad value.
Capabilities readCapabilities(const nlohmann::json& body, const LaunchSettings& now);

} // namespace phone::webdriver
