#include "phone/eventkit/Event.h"

#include "phone/eventkit/Components.h"
#include "phone/eventkit/EventStore.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Text.h"

namespace phone::eventkit {

void Event::define(objc::ClassTable<Event>& c) {
    c.classMethod<"eventWithEventStore:", &Event::withEventStore>();

    c.def<"eventIdentifier", &Event::eventIdentifier>()
        .def<"startDate", &Event::startDate>()
        .def<"setStartDate:", &Event::setStartDate>()
        .def<"endDate", &Event::endDate>()
        .def<"setEndDate:", &Event::setEndDate>()
        .def<"isAllDay", &Event::isAllDay>()
        .def<"setAllDay:", &Event::setAllDay>();
}

EKEvent Event::withEventStore(const EKEventStore& store) {
    const Turn turn(objc_name, "eventWithEventStore:", store);
    const auto event = objc::make<EKEvent>();
    if (const EventStore* owner = EventStore::of(store)) {
        StoredObject::of(event)->setStore(owner->number());
    }
    return event;
}

EventItem Event::item() const {
    EventItem item;
    CalendarItem::of(*this)->fill(item);
    item.start = written(_start);
    item.end = written(_end);
    return item;
}

bool Event::isUnchanged() const {
    const StoredObject* object = StoredObject::of(*this);
    return !object->isUnsaved() && !object->isChanged() && !CalendarItem::of(*this)->hasChangedParts();
}

void Event::setSaved(const EventItem& item) {
    if (item.isAllDay()) {
        _start = date(momentOf(*item.start, here()));
        // The last second before the next day, which may be 23 or 25 hours away.
        _end = date(momentOf(dayAfter(*item.end, 1), here()) - 1);
    }
}

std::optional<CalendarDate> Event::written(const NSDate& date) const {
    const auto moment = unixTime(date);
    if (!moment) {
        return std::nullopt;
    }
    return _isAllDay ? dayAt(*moment, here()) : dateAt(*moment, here());
}

NSString Event::eventIdentifier() {
    const Turn turn(*this, "eventIdentifier");
    const CalendarItem* common = CalendarItem::of(*this);
    return common->savedIn().empty() ? NSString() : string(common->savedIn() + ":" + common->id());
}

NSDate Event::startDate() {
    const Turn turn(*this, "startDate");
    return _start;
}

void Event::setStartDate(const NSDate& date) {
    const Turn turn(*this, "setStartDate:", date);
    _start = date;
    StoredObject::of(*this)->setChanged();
}

NSDate Event::endDate() {
    const Turn turn(*this, "endDate");
    return _end;
}

void Event::setEndDate(const NSDate& date) {
    const Turn turn(*this, "setEndDate:", date);
    _end = date;
    StoredObject::of(*this)->setChanged();
}

bool Event::isAllDay() {
    const Turn turn(*this, "isAllDay");
    return _isAllDay;
}

void Event::setAllDay(bool allDay) {
    const Turn turn(*this, "setAllDay:", allDay);
    _isAllDay = allDay;
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
