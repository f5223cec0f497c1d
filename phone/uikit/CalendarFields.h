/// A moment as the calendar and the clock of this process's time zone show it, and back.
#pragma once

#include "platform/foundation/NSDate.h"

#include <string>

namespace phone {

/// Year, month (from 1), day (from 1), hour (0 to 23) and minute of the Gregorian calendar.
struct CalendarFields {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;

    friend bool operator==(const CalendarFields&, const CalendarFields&) = default;
};

// Moments are in seconds since the start of 2001, UTC.
CalendarFields calendarFields(NSTimeInterval moment);
/// The moment at which the minute begins: of an hour that comes twice in the first one; a time that the
/// clocks skip is taken as far after the gap as it lies inside.
NSTimeInterval momentOf(const CalendarFields& fields);
/// "2026-03-05T14:37:12+01:00"; parts of a second are dropped.
std::string iso8601(NSTimeInterval moment);

int daysInMonth(int year, int month);
/// Days since the start of 1970, by the fields' date alone.
long dayNumber(const CalendarFields& fields);
/// The fields with the date of that day.
CalendarFields onDay(long number, CalendarFields fields);

} // namespace phone
