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
    std::optional<std::size_t> mostAlarms = {}; // what an item in it keeps; nullopt for any number
};

/// A reminder list or an event calendar as it lies on the disk.
struct CalendarRow {
    std::string id; // the name of its folder
    std::string title;
    bool isDefault = false;
    bool isReadOnly = false;
    std::optional<std::size_t> mostAlarms = {}; // what an item in it keeps; nullopt for any number
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

/// The moment in the zone's local time; in UTC where that would not lead back to the moment, such as in
/// the hour that the end of summer time repeats. The fraction of a second is dropped.
CalendarDate dateAt(double moment, const std::string& zone);

/// The day in the zone; the fields of a whole day.
CalendarDate dayAt(double moment, const std::string& zone);

/// The day that many days later, or earlier.
CalendarDate dayAfter(const CalendarDate& date, int days);

/// One alarm: at a moment, or some time from the item's start.
struct CalendarAlarm {
    std::optional<double> moment; // seconds since 1970, UTC
    double offset = 0;            // seconds from the start, where there is no moment

    friend bool operator==(const CalendarAlarm&, const CalendarAlarm&) = default;
};

/// How often something comes again, numbered as the platform does.
enum class Frequency { Daily = 0, Weekly = 1, Monthly = 2, Yearly = 3 };

/// How an item repeats.
struct Recurrence {
    Frequency frequency = Frequency::Daily;
    long interval = 1;                 // every so many days, weeks, months or years
    std::optional<CalendarDate> until; // no occurrence is later
    long count = 0;                    // so many occurrences; 0 where that is no bound

    friend bool operator==(const Recurrence&, const Recurrence&) = default;
};

/// What reminders and events have in common.
struct StoredItem {
    std::string id; // unique; the name of its file without the ending
    std::string title;
    std::optional<std::string> location;
    std::optional<std::string> notes;
    std::vector<CalendarAlarm> alarms;
    std::optional<Recurrence> recurrence;
    std::optional<double> created; // dates are seconds since 1970, UTC
    std::optional<double> modified;
    long order = 0; // counts what was made on this phone; 0 for what others made
};

/// One reminder.
struct ReminderItem : StoredItem {
    long priority = 0;
    std::optional<CalendarDate> start;
    std::optional<CalendarDate> due;
    std::optional<double> completed;
};

/// A reminder and the list that it is in.
struct ReminderRow {
    std::string list; // the title
    ReminderItem item;
};

/// One event. Where the start is a whole day the end is the last day.
struct EventItem : StoredItem {
    std::optional<CalendarDate> start; // none only in what another program has written
    std::optional<CalendarDate> end;

    bool isAllDay() const { return start && start->isDay; }
};

/// An event and the calendar that it is in.
struct EventRow {
    std::string calendar; // the title
    EventItem item;
};

} // namespace phone
