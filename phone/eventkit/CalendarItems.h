/// What calendars and reminder lists hold, as it lies on the disk. Knows nothing of Foundation, so that
/// the phone application and the driver share it.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace phone {

/// What a calendar holds, numbered as the platform does.
enum class EntityType { Event = 0, Reminder = 1 };

/// What the person has decided, or is to be asked.
enum class Access { Ask, Allow, Deny };

/// A reminder list or an event calendar as it is to be made.
struct CalendarStore {
    std::string title;
    bool isDefault = false;
    bool isReadOnly = false;
};

/// A reminder list or an event calendar as it lies on the disk.
struct CalendarRow {
    std::string id; // the name of its folder
    std::string title;
    bool isDefault = false;
    bool isReadOnly = false;
};

/// A date by its fields, with or without a time of day.
struct CalendarDate {
    int year = 1970;
    int month = 1; // from 1
    int day = 1;   // from 1
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool isDay = false; // the whole day: the time says nothing
    std::string zone;   // a name of the time zone database; "" for a time that is local everywhere

    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

/// The moment, in seconds since 1970, UTC; `localZone` is where a local time counts. Fields out of range
/// roll over.
double momentOf(const CalendarDate& date, const std::string& localZone);

/// One alarm: at a moment, or some time from the item's start.
struct CalendarAlarm {
    std::optional<double> moment; // seconds since 1970, UTC
    double offset = 0;            // seconds from the start, where there is no moment

    friend bool operator==(const CalendarAlarm&, const CalendarAlarm&) = default;
};

/// One reminder.
struct ReminderItem {
    std::string id; // unique; the name of its file without the ending
    std::string title;
    std::optional<std::string> location;
    std::optional<std::string> notes;
    long priority = 0;
    std::optional<CalendarDate> start;
    std::optional<CalendarDate> due;
    std::vector<CalendarAlarm> alarms;
    std::optional<double> completed; // dates are seconds since 1970, UTC
    std::optional<double> created;
    std::optional<double> modified;
    long order = 0; // counts what was made on this phone; 0 for what others made
};

/// A reminder and the list that it is in.
struct ReminderRow {
    std::string list; // the title
    ReminderItem item;
};

} // namespace phone
