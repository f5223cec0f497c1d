/// Patterns of dates under a person's choice of 12 or 24 hours.
#pragma once

#include "phone/device/Region.h"

#include <string>

namespace phone {

/// The pattern with its hours counted in the other way, where it does: to twelve hours with the half of the day behind
/// the time, to twenty-four without it. What stands in quotes stays.
std::string withHours(const std::string& pattern, Hours hours);

/// The pattern's fields and signs, less what stands in quotes.
std::string withoutQuotes(const std::string& pattern);

/// A template that leaves the hours to the region (`j`), with them chosen.
std::string templateWithHours(std::string fields, Hours hours);

} // namespace phone
