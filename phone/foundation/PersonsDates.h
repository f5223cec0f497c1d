/// How a person's region and choices have dates written; what the phone's own views ask.
#pragma once

#include "platform/foundation/NSDateFormatter.h"

#include <string>

namespace phone {

/// The person's way to write these fields of a date: "MMMd" becomes "d. MMM", "jmm" becomes "h:mm a".
std::string personsPattern(const char* fields);

/// Whether the person's clock shows twelve hours.
bool hasTwelveHours();

/// Writes dates in the person's words and digits.
NSDateFormatter personsFormatter(const std::string& pattern);

} // namespace phone
