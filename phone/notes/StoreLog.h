/// Entries for messages to the stores and their objects, in the log.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/NSString.h"

#include <nlohmann/json.hpp>

namespace phone {

/// An argument as the log shows it: texts as they are, truth values and numbers in figures, dates in ISO
/// 8601 (UTC), any other object by its class's name; null for nil.
nlohmann::json readable(std::same_as<bool> auto value) { return value ? "true" : "false"; }
nlohmann::json readable(const NSString& string);
nlohmann::json readable(const NSNumber& number);
nlohmann::json readable(const NSDate& date);
nlohmann::json readable(const objc::Object& object);

/// Adds {"class", "message", "arguments"} to the log.
void addStoreEntry(const char* className, const char* message, nlohmann::json arguments);

} // namespace phone
