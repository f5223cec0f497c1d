/// Turning picker wheels.
#pragma once

#include "phone/webdriver/Session.h"

namespace phone::webdriver {

/// By so many rows; forward where positive.
void turnWheel(Session& session, const std::string& reference, long rows);

/// Until the wheel shows this value, forward first and then back. Throws Refusal, invalid argument, when it does not
/// come to it.
void turnWheelTo(Session& session, const std::string& reference, const std::string& value);

/// Turns the wheels of the date picker on the screen to a local time such as 2026-05-16T09:00.
void pickDate(Session& session, const std::string& localTime);

} // namespace phone::webdriver
