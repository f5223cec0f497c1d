#include "phone/eventkit/ReminderText.h"

#include "phone/eventkit/ItemText.h"
#include "phone/eventkit/RecurrenceText.h"

namespace phone {

namespace {

constexpr int allOfIt = 100; // per cent

} // namespace

std::string textOf(const ReminderItem& reminder) {
    const ical::Component calendar = ical::calendar();
    icalcomponent* todo = icalcomponent_new(ICAL_VTODO_COMPONENT);
    ical::setItem(todo, reminder);
    if (reminder.priority != 0) {
        icalcomponent_add_property(todo, icalproperty_new_priority(static_cast<int>(reminder.priority)));
    }
    if (reminder.start) {
        ical::setDate(calendar.get(), todo, ICAL_DTSTART_PROPERTY, *reminder.start);
    }
    if (reminder.due) {
        ical::setDate(calendar.get(), todo, ICAL_DUE_PROPERTY, *reminder.due);
    }
    if (reminder.completed) {
        ical::setMoment(todo, ICAL_COMPLETED_PROPERTY, *reminder.completed);
        icalcomponent_add_property(todo, icalproperty_new_status(ICAL_STATUS_COMPLETED));
        icalcomponent_add_property(todo, icalproperty_new_percentcomplete(allOfIt));
    }
    if (reminder.recurrence) {
        ical::setRecurrence(calendar.get(), todo, *reminder.recurrence, reminder.due && reminder.due->isDay);
    }
    ical::addAlarms(todo, reminder);
    icalcomponent_add_component(calendar.get(), todo); // behind the zones
    return ical::text(calendar);
}

std::optional<ReminderItem> reminderFrom(const std::string& text) {
    const ical::Component calendar = ical::parse(text);
    icalcomponent* todo = ical::itemIn(calendar, ICAL_VTODO_COMPONENT);
    if (todo == nullptr) {
        return std::nullopt;
    }
    ReminderItem reminder;
    ical::readItem(todo, reminder);
    if (icalproperty* priority = icalcomponent_get_first_property(todo, ICAL_PRIORITY_PROPERTY)) {
        reminder.priority = icalproperty_get_priority(priority);
    }
    reminder.start = ical::dateIn(todo, ICAL_DTSTART_PROPERTY);
    reminder.due = ical::dateIn(todo, ICAL_DUE_PROPERTY);
    reminder.completed = ical::momentIn(todo, ICAL_COMPLETED_PROPERTY);
    reminder.recurrence = ical::recurrenceIn(todo);
    return reminder;
}

} // namespace phone
