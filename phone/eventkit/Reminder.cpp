#include "phone/eventkit/Reminder.h"

#include "phone/eventkit/Components.h"
#include "phone/eventkit/EventStore.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Raise.h"

namespace phone::eventkit {

namespace {

/// The item's own copy. Raises NSInvalidArgumentException for a calendar that is not Gregorian; without a
/// calendar the fields are taken as they stand.
NSDateComponents checkedCopy(const NSDateComponents& components) {
    const NSCalendar calendar = components.calendar();
    if (calendar && !calendar.calendarIdentifier().isEqualToString(objc::borrow<NSString>(NSGregorianCalendar))) {
        raise("NSInvalidArgumentException", "Date components of a reminder must be nil or in the Gregorian calendar");
    }
    return components.send<"copy", NSDateComponents>();
}

std::optional<CalendarDate> optionalDate(const NSDateComponents& components) {
    return components ? std::optional(calendarDate(components)) : std::nullopt;
}

} // namespace

void Reminder::define(objc::ClassTable<Reminder>& c) {
    c.classMethod<"reminderWithEventStore:", &Reminder::withEventStore>();

    c.def<"priority", &Reminder::priority>()
        .def<"setPriority:", &Reminder::setPriority>()
        .def<"startDateComponents", &Reminder::startDateComponents>()
        .def<"setStartDateComponents:", &Reminder::setStartDateComponents>()
        .def<"dueDateComponents", &Reminder::dueDateComponents>()
        .def<"setDueDateComponents:", &Reminder::setDueDateComponents>()
        .def<"isCompleted", &Reminder::isCompleted>()
        .def<"setCompleted:", &Reminder::setCompleted>()
        .def<"completionDate", &Reminder::completionDate>()
        .def<"setCompletionDate:", &Reminder::setCompletionDate>();
}

EKReminder Reminder::withEventStore(const EKEventStore& store) {
    const Turn turn(objc_name, "reminderWithEventStore:", store);
    const auto reminder = objc::make<EKReminder>();
    if (const EventStore* owner = EventStore::of(store)) {
        StoredObject::of(reminder)->setStore(owner->number());
    }
    return reminder;
}

ReminderItem Reminder::item() const {
    ReminderItem item;
    CalendarItem::of(*this)->fill(item);
    item.priority = _priority;
    item.start = optionalDate(_start);
    item.due = optionalDate(_due);
    item.completed = unixTime(_completion);
    return item;
}

objc::Int Reminder::priority() {
    const Turn turn(*this, "priority");
    return _priority;
}

void Reminder::setPriority(objc::Int priority) {
    const Turn turn(*this, "setPriority:", priority);
    _priority = priority;
    StoredObject::of(*this)->setChanged();
}

NSDateComponents Reminder::startDateComponents() {
    const Turn turn(*this, "startDateComponents");
    return _start;
}

void Reminder::setStartDateComponents(const NSDateComponents& start) {
    const Turn turn(*this, "setStartDateComponents:", start);
    _start = checkedCopy(start);
    StoredObject::of(*this)->setChanged();
}

NSDateComponents Reminder::dueDateComponents() {
    const Turn turn(*this, "dueDateComponents");
    return _due;
}

void Reminder::setDueDateComponents(const NSDateComponents& due) {
    const Turn turn(*this, "setDueDateComponents:", due);
    _due = checkedCopy(due);
    StoredObject::of(*this)->setChanged();
}

bool Reminder::isCompleted() {
    const Turn turn(*this, "isCompleted");
    return static_cast<bool>(_completion);
}

void Reminder::setCompleted(bool completed) {
    const Turn turn(*this, "setCompleted:", completed);
    _completion = completed ? NSDate::now() : NSDate();
    StoredObject::of(*this)->setChanged();
}

NSDate Reminder::completionDate() {
    const Turn turn(*this, "completionDate");
    return _completion;
}

void Reminder::setCompletionDate(const NSDate& date) {
    const Turn turn(*this, "setCompletionDate:", date);
    _completion = date;
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
