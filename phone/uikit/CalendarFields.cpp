#include "phone/uikit/CalendarFields.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace phone {

namespace {

using namespace std::chrono;

constexpr NSTimeInterval referenceDate = 978307200; // 2001 in seconds since 1970

std::tm local(NSTimeInterval moment) {
    const auto seconds = static_cast<std::time_t>(std::floor(moment + referenceDate));
    std::tm time{};
    localtime_r(&seconds, &time);
    return time;
}

year_month_day date(const CalendarFields& fields) {
    return year(fields.year) / month(static_cast<unsigned>(fields.month)) / day(static_cast<unsigned>(fields.day));
}

std::time_t unixTime(const CalendarFields& fields, int summerTime) {
    std::tm time{};
    time.tm_year = fields.year - 1900;
    time.tm_mon = fields.month - 1;
    time.tm_mday = fields.day;
    time.tm_hour = fields.hour;
    time.tm_min = fields.minute;
    time.tm_isdst = summerTime;
    return std::mktime(&time);
}

} // namespace

CalendarFields calendarFields(NSTimeInterval moment) {
    const std::tm time = local(moment);
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min};
}

NSTimeInterval momentOf(const CalendarFields& fields) {
    // Summer time first: it is the earlier one of an hour that comes twice.
    for (const int summerTime : {1, 0, -1}) {
        const NSTimeInterval moment = static_cast<NSTimeInterval>(unixTime(fields, summerTime)) - referenceDate;
        if (calendarFields(moment) == fields) {
            return moment;
        }
    }
    return static_cast<NSTimeInterval>(unixTime(fields, 0)) - referenceDate;
}

std::string iso8601(NSTimeInterval moment) {
    const std::tm time = local(moment);
    const long minutes = std::labs(time.tm_gmtoff) / 60;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02ld:%02ld", time.tm_year + 1900,
                  time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec, time.tm_gmtoff < 0 ? '-' : '+',
                  minutes / 60, minutes % 60);
    return text.data();
}

int daysInMonth(int inYear, int inMonth) {
    const year_month_day_last last = year(inYear) / month(static_cast<unsigned>(inMonth)) / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

long dayNumber(const CalendarFields& fields) { return sys_days(date(fields)).time_since_epoch().count(); }

CalendarFields onDay(long number, CalendarFields fields) {
    const year_month_day there{sys_days(days(number))};
    fields.year = static_cast<int>(there.year());
    fields.month = static_cast<int>(static_cast<unsigned>(there.month()));
    fields.day = static_cast<int>(static_cast<unsigned>(there.day()));
    return fields;
}

} // namespace phone
