#include "phone/eventkit/ReminderText.h"

#include "phone/eventkit/ICalendar.h"

namespace phone {

namespace {

constexpr const char* orderProperty = "X-PHONE-ORDER";
constexpr int allOfIt = 100; // per cent

} // namespace

std::string textOf(const ReminderItem& reminder) {
    const ical::Component calendar = ical::calendar();
    icalcomponent* todo = icalcomponent_new(ICAL_VTODO_COMPONENT);
    ical::setText(todo, ICAL_UID_PROPERTY, reminder.id);
    // The format wants a stamp; what was never saved has none of its own.
    ical::setMoment(todo, ICAL_DTSTAMP_PROPERTY, reminder.modified.value_or(0));
    if (reminder.created) {
        ical::setMoment(todo, ICAL_CREATED_PROPERTY, *reminder.created);
    }
    if (reminder.modified) {
        ical::setMoment(todo, ICAL_LASTMODIFIED_PROPERTY, *reminder.modified);
    }
    ical::setText(todo, ICAL_SUMMARY_PROPERTY, reminder.title);
    if (reminder.notes) {
        ical::setText(todo, ICAL_DESCRIPTION_PROPERTY, *reminder.notes);
    }
    if (reminder.location) {
        ical::setText(todo, ICAL_LOCATION_PROPERTY, *reminder.location);
    }
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
    if (reminder.order != 0) {
        ical::setOwn(todo, orderProperty, reminder.order);
    }
    for (const CalendarAlarm& alarm : reminder.alarms) {
        ical::addAlarm(todo, alarm, reminder.title);
    }
    icalcomponent_add_component(calendar.get(), todo); // behind the zones
    return ical::text(calendar);
}

std::optional<ReminderItem> reminderFrom(const std::string& text) {
    const ical::Component calendar = ical::parse(text);
    if (calendar == nullptr) {
        return std::nullopt;
    }
    const bool isBare = icalcomponent_isa(calendar.get()) == ICAL_VTODO_COMPONENT;
    icalcomponent* todo =
        isBare ? calendar.get() : icalcomponent_get_first_component(calendar.get(), ICAL_VTODO_COMPONENT);
    if (todo == nullptr) {
        return std::nullopt;
    }
    ReminderItem reminder;
    reminder.id = ical::textOf(todo, ICAL_UID_PROPERTY).value_or("");
    reminder.title = ical::textOf(todo, ICAL_SUMMARY_PROPERTY).value_or("");
    reminder.notes = ical::textOf(todo, ICAL_DESCRIPTION_PROPERTY);
    reminder.location = ical::textOf(todo, ICAL_LOCATION_PROPERTY);
    if (icalproperty* priority = icalcomponent_get_first_property(todo, ICAL_PRIORITY_PROPERTY)) {
        reminder.priority = icalproperty_get_priority(priority);
    }
    reminder.start = ical::dateIn(todo, ICAL_DTSTART_PROPERTY);
    reminder.due = ical::dateIn(todo, ICAL_DUE_PROPERTY);
    reminder.completed = ical::momentIn(todo, ICAL_COMPLETED_PROPERTY);
    reminder.created = ical::momentIn(todo, ICAL_CREATED_PROPERTY);
    reminder.modified = ical::momentIn(todo, ICAL_LASTMODIFIED_PROPERTY);
    reminder.alarms = ical::alarmsIn(todo);
    reminder.order = ical::ownIn(todo, orderProperty);
    return reminder;
}

} // namespace phone
