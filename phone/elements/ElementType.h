/// The types that elements of the screen can have, by the names that testers know.
#pragma once

#include <string>
#include <string_view>

namespace phone::webdriver {

inline constexpr std::string_view typePrefix = "XCUIElementType";

/// Whether there is such a type, on this screen or not; `name` without the prefix.
bool isElementType(std::string_view name);

/// The whole name of a type that was given with or without the prefix; "" when there is no such type.
std::string wholeTypeName(std::string_view given);

} // namespace phone::webdriver
