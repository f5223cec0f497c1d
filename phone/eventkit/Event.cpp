#include "phone/eventkit/Event.h"

#include "phone/eventkit/Components.h"
#include "phone/eventkit/EventStore.h"
#include "phone/eventkit/RecurrenceRule.h"
#include "phone/eventkit/StoreEntry.h"
#include "phone/foundation/Arrays.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSTimeZone.h"

#include <algorithm>

namespace phone::eventkit {

namespace {

std::string here() { return text(NSTimeZone::defaultTimeZone().name()); }

void checkRule(const objc::Object& rule) {
    if (!objc::isKind<EKRecurrenceRule>(rule)) {
        raise("NSInvalidArgumentException", "Only instances of EKRecurrenceRule can be an event's recurrence rules");
    }
}

} // namespace

void Event::define(objc::ClassTable<Event>& c) {
    c.classMethod<"eventWithEventStore:", &Event::withEventStore>();

    c.def<"eventIdentifier", &Event::eventIdentifier>()
        .def<"startDate", &Event::startDate>()
        .def<"setStartDate:", &Event::setStartDate>()
        .def<"endDate", &Event::endDate>()
        .def<"setEndDate:", &Event::setEndDate>()
        .def<"isAllDay", &Event::isAllDay>()
        .def<"setAllDay:", &Event::setAllDay>();

    c.def<"recurrenceRules", &Event::recurrenceRules>()
        .def<"setRecurrenceRules:", &Event::setRecurrenceRules>()
        .def<"addRecurrenceRule:", &Event::addRecurrenceRule>();
}

EKEvent Event::withEventStore(const EKEventStore& store) {
    logClassMessage(objc_name, "eventWithEventStore:", store);
    const auto event = objc::make<EKEvent>();
    if (const EventStore* owner = EventStore::of(store)) {
        StoredObject::of(event)->setStore(owner->number());
    }
    return event;
}

EventItem Event::item() const {
    EventItem item;
    CalendarItem::of(*this)->fill(item);
    item.start = written(_start, false);
    item.end = written(_end, true);
    if (!_rules.empty()) { // the platform takes several and keeps one
        item.recurrence = RecurrenceRule::of(_rules.front())->row(here());
    }
    return item;
}

bool Event::isUnchanged() const {
    const StoredObject* object = StoredObject::of(*this);
    const auto isChanged = [](const EKRecurrenceRule& rule) { return StoredObject::of(rule)->isChanged(); };
    return !object->isUnsaved() && !object->isChanged() && !CalendarItem::of(*this)->hasChangedAlarms() &&
           std::none_of(_rules.begin(), _rules.end(), isChanged);
}

void Event::setSaved(const EventItem& item) {
    if (item.isAllDay()) {
        _start = {nullptr, item.start};
        _end = {nullptr, item.end};
    }
    for (const EKRecurrenceRule& rule : _rules) {
        StoredObject::of(rule)->setSaved();
    }
}

std::optional<double> Event::Time::moment(bool isEnd) const {
    if (!day) {
        return unixTime(date);
    }
    // The last second before the next day, which may be 23 or 25 hours away.
    return isEnd ? momentOf(dayAfter(*day, 1), here()) - 1 : momentOf(*day, here());
}

std::optional<CalendarDate> Event::written(const Time& time, bool isEnd) const {
    const auto moment = time.moment(isEnd);
    if (!moment) {
        return std::nullopt;
    }
    if (!_isAllDay) {
        return dateAt(*moment, here());
    }
    return time.day ? *time.day : dayAt(*moment, here());
}

NSString Event::eventIdentifier() {
    logMessage(*this, "eventIdentifier");
    const CalendarItem* common = CalendarItem::of(*this);
    return common->savedIn().empty() ? NSString() : string(common->savedIn() + ":" + common->id());
}

NSDate Event::startDate() {
    logMessage(*this, "startDate");
    return date(_start.moment(false));
}

void Event::setStartDate(const NSDate& date) {
    logMessage(*this, "setStartDate:", date);
    _start = {date, std::nullopt};
    StoredObject::of(*this)->setChanged();
}

NSDate Event::endDate() {
    logMessage(*this, "endDate");
    return date(_end.moment(true));
}

void Event::setEndDate(const NSDate& date) {
    logMessage(*this, "setEndDate:", date);
    _end = {date, std::nullopt};
    StoredObject::of(*this)->setChanged();
}

bool Event::isAllDay() {
    logMessage(*this, "isAllDay");
    return _isAllDay;
}

void Event::setAllDay(bool allDay) {
    logMessage(*this, "setAllDay:", allDay);
    _isAllDay = allDay;
    StoredObject::of(*this)->setChanged();
}

NSArray Event::recurrenceRules() {
    logMessage(*this, "recurrenceRules");
    return _rules.empty() ? NSArray() : arrayOf(_rules);
}

void Event::setRecurrenceRules(const NSArray& rules) {
    logMessage(*this, "setRecurrenceRules:", rules);
    for (const NSObject& rule : rules) {
        checkRule(rule);
    }
    _rules = vectorOf<EKRecurrenceRule>(rules);
    StoredObject::of(*this)->setChanged();
}

void Event::addRecurrenceRule(const EKRecurrenceRule& rule) {
    logMessage(*this, "addRecurrenceRule:", rule);
    checkRule(rule);
    _rules.push_back(rule);
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
