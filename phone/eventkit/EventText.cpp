#include "phone/eventkit/EventText.h"

#include "phone/eventkit/ItemText.h"
#include "phone/eventkit/RecurrenceText.h"

namespace phone {

namespace {

/// The format's end is the first moment that is no longer part of the event: for whole days, the day after.
/// An event without any length has none there.
std::optional<CalendarDate> writtenEnd(const EventItem& event) {
    if (event.start && event.end && event.isAllDay()) {
        return dayAfter(*event.end, 1);
    }
    return event.end == event.start ? std::nullopt : event.end;
}

std::optional<CalendarDate> endIn(icalcomponent* vevent, const CalendarDate& start) {
    const auto end = ical::dateIn(vevent, ICAL_DTEND_PROPERTY);
    if (end) {
        // Others write the same day twice for a single one.
        return start.isDay && end->isDay && *end != start ? dayAfter(*end, -1) : *end;
    }
    icalproperty* property = icalcomponent_get_first_property(vevent, ICAL_DURATION_PROPERTY);
    if (property == nullptr) {
        return start;
    }
    const int seconds = icaldurationtype_as_int(icalproperty_get_duration(property));
    if (start.isDay) {
        static constexpr int day = 86400; // seconds
        return seconds > day ? dayAfter(start, seconds / day - 1) : start;
    }
    CalendarDate later = dateAt(momentOf(start, "UTC") + seconds, start.zone.empty() ? "UTC" : start.zone);
    if (start.zone.empty()) {
        later.zone = "";
    }
    return later;
}

} // namespace

std::string textOf(const EventItem& event) {
    const ical::Component calendar = ical::calendar();
    icalcomponent* vevent = icalcomponent_new(ICAL_VEVENT_COMPONENT);
    ical::setItem(vevent, event);
    if (event.start) {
        ical::setDate(calendar.get(), vevent, ICAL_DTSTART_PROPERTY, *event.start);
    }
    if (const auto end = writtenEnd(event)) {
        ical::setDate(calendar.get(), vevent, ICAL_DTEND_PROPERTY, *end);
    }
    if (event.recurrence) {
        ical::setRecurrence(calendar.get(), vevent, *event.recurrence, event.isAllDay());
    }
    ical::addAlarms(vevent, event);
    icalcomponent_add_component(calendar.get(), vevent); // behind the zones
    return ical::text(calendar);
}

std::optional<EventItem> eventFrom(const std::string& text) {
    const ical::Component calendar = ical::parse(text);
    icalcomponent* vevent = ical::itemIn(calendar, ICAL_VEVENT_COMPONENT);
    if (vevent == nullptr) {
        return std::nullopt;
    }
    EventItem event;
    ical::readItem(vevent, event);
    event.start = ical::dateIn(vevent, ICAL_DTSTART_PROPERTY);
    if (event.start) {
        event.end = endIn(vevent, *event.start);
    }
    event.recurrence = ical::recurrenceIn(vevent);
    return event;
}

} // namespace phone
