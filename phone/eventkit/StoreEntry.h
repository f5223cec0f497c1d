/// Entries for messages to the calendar store and its objects, in the log.
#pragma once

#include "platform/foundation/NSObject.h"

#include <nlohmann/json.hpp>

#include <concepts>
#include <string>

namespace phone::eventkit {

/// An argument as the log shows it: truth values and numbers in figures, arrays with what is in them, the
/// fields of a date as 2026-05-16T09:00:00, the rest as the Notes store shows it.
nlohmann::json shown(const objc::Object& object);
nlohmann::json shown(SEL selector);
nlohmann::json shown(bool value);
nlohmann::json shown(std::floating_point auto value) { return nlohmann::json(value).dump(); }
template <class T>
    requires std::is_enum_v<T> || std::same_as<T, objc::Int> || std::same_as<T, objc::UInt>
nlohmann::json shown(T value) {
    return std::to_string(static_cast<objc::Int>(value));
}

/// Adds {"class", "message", "arguments"} to the log.
void addEntry(const char* className, const char* message, nlohmann::json arguments);

} // namespace phone::eventkit
