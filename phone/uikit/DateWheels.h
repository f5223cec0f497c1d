/// The wheels that make up a date picker: which ones a mode has, in the order and the words of the phone's region.
#pragma once

#include "phone/uikit/CalendarFields.h"
#include "phone/uikit/PickerWheel.h"
#include "platform/uikit/UIDatePicker.h"

#include <vector>

namespace phone {

/// What a wheel turns. Day goes through whole dates, DayOfMonth through the days of a month.
enum class DateUnit { Day, Hour, Minute, Period, DayOfMonth, Month, Year };

/// One wheel: where it stands among the others, and its rows.
struct DateWheel {
    DateUnit unit = DateUnit::Day;
    const char* name = ""; // as scripts find it: "day", "hour", "minute", "period", "dayOfMonth", "month", "year"
    CGFloat width = 0;     // points
    WheelRows rows;
};

/// From left to right.
std::vector<DateWheel> dateWheels(UIDatePickerMode mode);

/// The row that shows the unit of these fields.
long wheelRow(DateUnit unit, const CalendarFields& fields);
/// The fields after the unit's wheel was turned to the row. A day that the month does not have becomes its last.
CalendarFields turnedTo(DateUnit unit, long row, CalendarFields fields);

} // namespace phone
