#include "phone/eventkit/Obstacles.h"

#include "phone/device/LastYear.h"
#include "phone/eventkit/Calendar.h"
#include "phone/eventkit/Components.h"
#include "phone/eventkit/Event.h"
#include "phone/eventkit/Reminder.h"

#include <algorithm>
#include <array>

namespace phone::eventkit {

namespace {

constexpr objc::Int highestPriority = 9;
constexpr double day = 86400; // seconds

std::optional<SaveFailure> calendarObstacle(const EKCalendar& given, EntityType type) {
    const Calendar* calendar = Calendar::of(given);
    if (calendar == nullptr) {
        return SaveFailure::with(EKErrorCode::NoCalendar, "No calendar has been set.");
    }
    if (calendar->type() != type) {
        return type == EntityType::Event
                   ? SaveFailure::with(EKErrorCode::CalendarDoesNotAllowEvents, "That calendar does not allow events.")
                   : SaveFailure::with(EKErrorCode::CalendarDoesNotAllowReminders,
                                       "That calendar does not allow reminders.");
    }
    if (calendar->isReadOnly()) {
        return SaveFailure::with(EKErrorCode::CalendarReadOnly, "That calendar may not be modified.");
    }
    return std::nullopt;
}

/// The days of so many months that follow each other, where they are fewest.
long fewestDays(long months) {
    static constexpr std::array<long, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    constexpr long year = 365;
    const auto count = static_cast<std::size_t>(months % 12);
    long fewest = year;
    for (std::size_t first = 0; first < lengths.size(); ++first) {
        long days = 0;
        for (std::size_t i = 0; i < count; ++i) {
            days += lengths[(first + i) % lengths.size()];
        }
        fewest = std::min(fewest, days);
    }
    return months / 12 * year + fewest;
}

/// The shortest time between an occurrence and the next one.
double shortestPeriod(const Recurrence& recurrence) {
    const auto interval = static_cast<double>(recurrence.interval);
    switch (recurrence.frequency) {
    case Frequency::Daily:
        return interval * day;
    case Frequency::Weekly:
        return interval * 7 * day;
    case Frequency::Monthly:
        return static_cast<double>(fewestDays(recurrence.interval)) * day;
    case Frequency::Yearly:
        return interval * 365 * day;
    }
}

/// By the calendar: from noon to noon is a day in the nights in which summer time begins and ends too.
double duration(const EventItem& event) {
    CalendarDate start = *event.start;
    CalendarDate end = *event.end;
    if (start.zone == end.zone) {
        start.zone = end.zone = "UTC";
    }
    return momentOf(end, "UTC") - momentOf(start, "UTC") + (event.isAllDay() ? day : 0);
}

/// Beside a whole day a time counts as its day.
bool isInverted(CalendarDate start, CalendarDate end) {
    start.isDay = end.isDay = start.isDay || end.isDay;
    return momentOf(end, here()) < momentOf(start, here());
}

/// Fields that roll over may lead beyond the last year as well.
bool isTooFar(const std::optional<CalendarDate>& date) {
    return date && (date->year > lastYear || dateAt(momentOf(*date, "UTC"), "UTC").year > lastYear);
}

SaveFailure inverted() {
    return SaveFailure::with(EKErrorCode::DatesInverted, "The start date must be before the end date.");
}

SaveFailure tooFar() {
    return SaveFailure::with(EKErrorCode::StartDateTooFarInFuture, "The start date is too far in the future.");
}

} // namespace

std::optional<SaveFailure> obstacle(const EKReminder& reminder) {
    if (auto failure = calendarObstacle(CalendarItem::of(reminder)->currentCalendar(), EntityType::Reminder)) {
        return failure;
    }
    const ReminderItem item = Reminder::of(reminder)->item();
    if (item.recurrence && !item.due) {
        return SaveFailure::with(EKErrorCode::RecurringReminderRequiresDueDate,
                                 "A repeating reminder needs a due date.");
    }
    if (item.due && !item.start) {
        return SaveFailure::with(EKErrorCode::NoStartDate, "No start date has been set.");
    }
    if (isTooFar(item.start) || isTooFar(item.due)) {
        return tooFar();
    }
    if (item.start && item.due && isInverted(*item.start, *item.due)) {
        return inverted();
    }
    if (item.priority < 0 || item.priority > highestPriority) {
        return SaveFailure::with(EKErrorCode::PriorityIsInvalid, "The priority is invalid.");
    }
    return std::nullopt;
}

std::optional<SaveFailure> obstacle(const EKEvent& event) {
    if (auto failure = calendarObstacle(CalendarItem::of(event)->currentCalendar(), EntityType::Event)) {
        return failure;
    }
    const EventItem item = Event::of(event)->item();
    if (!item.start) {
        return SaveFailure::with(EKErrorCode::NoStartDate, "No start date has been set.");
    }
    if (!item.end) {
        return SaveFailure::with(EKErrorCode::NoEndDate, "No end date has been set.");
    }
    if (isTooFar(item.start) || isTooFar(item.end)) {
        return tooFar();
    }
    if (isInverted(*item.start, *item.end)) {
        return inverted();
    }
    if (item.recurrence) {
        const double period = shortestPeriod(*item.recurrence);
        if (duration(item) > period) {
            return SaveFailure::with(EKErrorCode::DurationGreaterThanRecurrence,
                                     "The event is longer than the time to its next occurrence.");
        }
        if (std::any_of(item.alarms.begin(), item.alarms.end(),
                        [&](const CalendarAlarm& alarm) { return !alarm.moment && -alarm.offset > period; })) {
            return SaveFailure::with(EKErrorCode::AlarmGreaterThanRecurrence,
                                     "An alarm is further away than the next occurrence.");
        }
    }
    return std::nullopt;
}

} // namespace phone::eventkit
