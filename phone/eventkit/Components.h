/// Between the platform's dates and the calendar store's.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSDateComponents.h"

#include <optional>
#include <string>

namespace phone::eventkit {

/// Without hour, minute and second the date is a whole day. Other fields that were not set read as the
/// first: year 1, month 1, day 1, midnight.
CalendarDate calendarDate(const NSDateComponents& components);

/// The name of the zone in which the person is.
std::string here();

/// nullopt for nil.
std::optional<double> unixTime(const NSDate& date);
/// nil for nullopt.
NSDate date(const std::optional<double>& unixTime);

} // namespace phone::eventkit
