#include "phone/uikit/DateWheels.h"

#include "phone/device/LastYear.h"
#include "phone/foundation/HourPattern.h"
#include "phone/foundation/PersonsDates.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/SystemWords.h"
#include "platform/foundation/NSTimeZone.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace phone {

namespace {

using Alignment = WheelRows::Alignment;

constexpr int hoursInHalfDay = 12;
constexpr int firstYear = 1583; // the first whole one of the Gregorian calendar

/// Writes one part of a date in the person's words and digits. It knows no zone: no clock skips an hour of it.
class Writer {
public:
    explicit Writer(const std::string& pattern) : _formatter(personsFormatter(pattern)) {
        _formatter.send<"setTimeZone:">(NSTimeZone::named("UTC"_ns));
    }

    std::string operator()(const CalendarFields& fields) const {
        const long minutes = (dayNumber(fields) * 24 + fields.hour) * 60 + fields.minute;
        const NSTimeInterval moment =
            static_cast<NSTimeInterval>(minutes) * 60 - daysBeforeReferenceDate * secondsInDay;
        return text(_formatter.string(NSDate::withSinceReferenceDate(moment)));
    }

private:
    static constexpr NSTimeInterval daysBeforeReferenceDate = 11323; // since 1970
    static constexpr NSTimeInterval secondsInDay = 24 * 60 * 60;
    NSDateFormatter _formatter;
};

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// The field's part of a pattern with what belongs to it: "d." of "d. MMMM y", "y年" of "y年M月d日".
std::string part(const std::string& pattern, char field) {
    std::size_t at = pattern.find(field);
    std::string found;
    for (; at < pattern.size() && pattern[at] == field; ++at) {
        found += field;
    }
    const auto ends = [&] {
        for (const char* space : {" ", "\u00a0", "\u202f"}) {
            if (pattern.compare(at, std::strlen(space), space) == 0) {
                return true;
            }
        }
        return pattern[at] == ',' || isLetter(pattern[at]);
    };
    for (; at < pattern.size() && !ends(); ++at) {
        found += pattern[at];
    }
    return found;
}

DateWheel dayWheel(CGFloat width) {
    std::string pattern = personsPattern("EEEMMMd");
    std::erase(pattern, ',');
    const auto title = [write = Writer(pattern)](long row) {
        if (row == dayNumber(calendarFields(NSDate::now().sinceReferenceDate()))) {
            return text(todayWord());
        }
        return write(onDay(row, {}));
    };
    const long first = dayNumber({firstYear, 1, 1});
    const long last = dayNumber({lastYear, 12, 31});
    return {DateUnit::Day, "day", width, {first, last - first + 1, false, Alignment::Right, title}};
}

DateWheel hourWheel(bool twelve, CGFloat width) {
    const auto title = [write = Writer(twelve ? "h" : "HH")](long row) {
        return write({.hour = static_cast<int>(row)});
    };
    return {DateUnit::Hour, "hour", width, {0, 24, true, Alignment::Right, title}};
}

DateWheel minuteWheel(CGFloat width) {
    const auto title = [write = Writer("mm")](long row) { return write({.minute = static_cast<int>(row)}); };
    return {DateUnit::Minute, "minute", width, {0, 60, true, Alignment::Center, title}};
}

DateWheel periodWheel(CGFloat width) {
    const auto title = [write = Writer("a")](long row) {
        return write({.hour = static_cast<int>(row) * hoursInHalfDay});
    };
    return {DateUnit::Period, "period", width, {0, 2, false, Alignment::Left, title}};
}

DateWheel dayOfMonthWheel(const std::string& pattern) {
    const auto title = [write = Writer(part(pattern, 'd'))](long row) {
        return write({1970, 1, static_cast<int>(row)}); // January has all of them
    };
    return {DateUnit::DayOfMonth, "dayOfMonth", 54, {1, 31, true, Alignment::Right, title}};
}

DateWheel monthWheel(CGFloat width) {
    const auto title = [write = Writer("LLLL")](long row) { return write({1970, static_cast<int>(row), 1}); };
    return {DateUnit::Month, "month", width, {1, 12, true, Alignment::Left, title}};
}

DateWheel yearWheel(const std::string& pattern, CGFloat width) {
    const auto title = [write = Writer(part(pattern, 'y'))](long row) { return write({static_cast<int>(row), 1, 1}); };
    return {DateUnit::Year, "year", width, {firstYear, lastYear - firstYear + 1, false, Alignment::Left, title}};
}

/// Day, month and year in the region's order.
std::vector<DateWheel> wheelsOfDate() {
    const std::string pattern = withoutQuotes(personsPattern("yMMMMd"));
    const CGFloat year = part(pattern, 'y') == "y" ? 82 : 104; // a year with its unit needs more room
    const CGFloat month = 224 - year;
    std::vector<std::pair<std::size_t, DateWheel>> found = {{pattern.find('d'), dayOfMonthWheel(pattern)},
                                                            {pattern.find_first_of("ML"), monthWheel(month)},
                                                            {pattern.find('y'), yearWheel(pattern, year)}};
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<DateWheel> wheels;
    for (auto& [place, wheel] : found) {
        wheels.push_back(std::move(wheel));
    }
    return wheels;
}

} // namespace

std::vector<DateWheel> dateWheels(UIDatePickerMode mode) {
    if (mode == UIDatePickerMode::Date) {
        return wheelsOfDate();
    }
    const bool twelve = hasTwelveHours();
    std::vector<DateWheel> wheels;
    if (mode == UIDatePickerMode::DateAndTime) {
        wheels.push_back(dayWheel(twelve ? 142 : 190));
    }
    wheels.push_back(hourWheel(twelve, 44));
    wheels.push_back(minuteWheel(52));
    if (twelve) {
        wheels.push_back(periodWheel(52));
    }
    return wheels;
}

long wheelRow(DateUnit unit, const CalendarFields& fields) {
    switch (unit) {
    case DateUnit::Day:
        return dayNumber(fields);
    case DateUnit::Hour:
        return fields.hour;
    case DateUnit::Minute:
        return fields.minute;
    case DateUnit::Period:
        return fields.hour / hoursInHalfDay;
    case DateUnit::DayOfMonth:
        return fields.day;
    case DateUnit::Month:
        return fields.month;
    case DateUnit::Year:
        return fields.year;
    }
    return 0;
}

CalendarFields turnedTo(DateUnit unit, long row, CalendarFields fields) {
    const int value = static_cast<int>(row);
    switch (unit) {
    case DateUnit::Day:
        return onDay(row, fields);
    case DateUnit::Hour:
        fields.hour = value;
        break;
    case DateUnit::Minute:
        fields.minute = value;
        break;
    case DateUnit::Period:
        fields.hour = fields.hour % hoursInHalfDay + hoursInHalfDay * value;
        break;
    case DateUnit::DayOfMonth:
        fields.day = value;
        break;
    case DateUnit::Month:
        fields.month = value;
        break;
    case DateUnit::Year:
        fields.year = value;
        break;
    }
    fields.day = std::min(fields.day, daysInMonth(fields.year, fields.month));
    return fields;
}

} // namespace phone
