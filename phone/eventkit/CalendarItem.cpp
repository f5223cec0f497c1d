#include "phone/eventkit/CalendarItem.h"

#include "phone/eventkit/Alarm.h"
#include "phone/eventkit/Calendar.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/eventkit/Components.h"
#include "phone/eventkit/RecurrenceRule.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Arrays.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"

#include <algorithm>

namespace phone::eventkit {

namespace {

std::optional<std::string> optionalText(const NSString& string) {
    return string ? std::optional(text(string)) : std::nullopt;
}

/// A text of the item's own: what the caller holds may change later.
NSString copied(const NSString& string) { return string.send<"copy", NSString>(); }

void checkAlarm(const objc::Object& alarm) {
    if (!objc::isKind<EKAlarm>(alarm)) {
        raise("NSInvalidArgumentException", "Only instances of EKAlarm can be an item's alarms");
    }
}

void checkRule(const objc::Object& rule) {
    if (!objc::isKind<EKRecurrenceRule>(rule)) {
        raise("NSInvalidArgumentException", "Only instances of EKRecurrenceRule can be an item's recurrence rules");
    }
}

} // namespace

void CalendarItem::define(objc::ClassTable<CalendarItem>& c) {
    c.def<"calendar", &CalendarItem::calendar>()
        .def<"setCalendar:", &CalendarItem::setCalendar>()
        .def<"title", &CalendarItem::title>()
        .def<"setTitle:", &CalendarItem::setTitle>()
        .def<"location", &CalendarItem::location>()
        .def<"setLocation:", &CalendarItem::setLocation>()
        .def<"notes", &CalendarItem::notes>()
        .def<"setNotes:", &CalendarItem::setNotes>()
        .def<"calendarItemIdentifier", &CalendarItem::calendarItemIdentifier>()
        .def<"creationDate", &CalendarItem::creationDate>()
        .def<"lastModifiedDate", &CalendarItem::lastModifiedDate>();

    c.def<"alarms", &CalendarItem::alarms>()
        .def<"setAlarms:", &CalendarItem::setAlarms>()
        .def<"addAlarm:", &CalendarItem::addAlarm>()
        .def<"removeAlarm:", &CalendarItem::removeAlarm>()
        .def<"hasAlarms", &CalendarItem::hasAlarms>();

    c.def<"recurrenceRules", &CalendarItem::recurrenceRules>()
        .def<"setRecurrenceRules:", &CalendarItem::setRecurrenceRules>()
        .def<"addRecurrenceRule:", &CalendarItem::addRecurrenceRule>();
}

CalendarItem::CalendarItem() : _id(newIdentifier()) {}

void CalendarItem::fill(StoredItem& item) const {
    item.id = _id;
    item.title = text(_title);
    item.location = optionalText(_location);
    item.notes = optionalText(_notes);
    for (const EKAlarm& alarm : _alarms) {
        item.alarms.push_back(Alarm::of(alarm)->row());
    }
    if (!_rules.empty()) { // the platform takes several and keeps one
        item.recurrence = RecurrenceRule::of(_rules.front())->row(here());
    }
    item.created = _created;
    item.modified = _modified;
    item.order = _order;
}

bool CalendarItem::hasChangedParts() const {
    const auto isChanged = [](const EKObject& part) { return StoredObject::of(part)->isChanged(); };
    return std::any_of(_alarms.begin(), _alarms.end(), isChanged) ||
           std::any_of(_rules.begin(), _rules.end(), isChanged);
}

void CalendarItem::cutAlarms() {
    if (const auto most = Calendar::of(_calendar)->mostAlarms(); most && _alarms.size() > *most) {
        _alarms.resize(*most);
    }
}

void CalendarItem::setSaved(const StoredItem& item, const std::string& calendar) {
    _created = item.created;
    _modified = item.modified;
    _order = item.order;
    _savedIn = calendar;
    StoredObject::of(*this)->setSaved();
    for (const EKAlarm& alarm : _alarms) {
        StoredObject::of(alarm)->setSaved();
    }
    for (const EKRecurrenceRule& rule : _rules) {
        StoredObject::of(rule)->setSaved();
    }
}

EKCalendar CalendarItem::calendar() {
    const Turn turn(*this, "calendar");
    return _calendar;
}

void CalendarItem::setCalendar(const EKCalendar& calendar) {
    const Turn turn(*this, "setCalendar:", calendar);
    _calendar = calendar;
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::title() {
    const Turn turn(*this, "title");
    return _title ? _title : ""_ns;
}

void CalendarItem::setTitle(const NSString& title) {
    const Turn turn(*this, "setTitle:", title);
    _title = copied(title);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::location() {
    const Turn turn(*this, "location");
    return _location;
}

void CalendarItem::setLocation(const NSString& location) {
    const Turn turn(*this, "setLocation:", location);
    _location = copied(location);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::notes() {
    const Turn turn(*this, "notes");
    return _notes;
}

void CalendarItem::setNotes(const NSString& notes) {
    const Turn turn(*this, "setNotes:", notes);
    _notes = copied(notes);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::calendarItemIdentifier() {
    const Turn turn(*this, "calendarItemIdentifier");
    return string(_id);
}

NSDate CalendarItem::creationDate() {
    const Turn turn(*this, "creationDate");
    return date(_created);
}

NSDate CalendarItem::lastModifiedDate() {
    const Turn turn(*this, "lastModifiedDate");
    return date(_modified);
}

NSArray CalendarItem::alarms() {
    const Turn turn(*this, "alarms");
    return _alarms.empty() ? NSArray() : arrayOf(_alarms);
}

void CalendarItem::setAlarms(const NSArray& alarms) {
    const Turn turn(*this, "setAlarms:", alarms);
    for (const NSObject& alarm : alarms) {
        checkAlarm(alarm);
    }
    _alarms = vectorOf<EKAlarm>(alarms);
    StoredObject::of(*this)->setChanged();
}

void CalendarItem::addAlarm(const EKAlarm& alarm) {
    const Turn turn(*this, "addAlarm:", alarm);
    checkAlarm(alarm);
    _alarms.push_back(alarm);
    StoredObject::of(*this)->setChanged();
}

void CalendarItem::removeAlarm(const EKAlarm& alarm) {
    const Turn turn(*this, "removeAlarm:", alarm);
    if (std::erase(_alarms, alarm) > 0) {
        StoredObject::of(*this)->setChanged();
    }
}

bool CalendarItem::hasAlarms() {
    const Turn turn(*this, "hasAlarms");
    return !_alarms.empty();
}

NSArray CalendarItem::recurrenceRules() {
    const Turn turn(*this, "recurrenceRules");
    return _rules.empty() ? NSArray() : arrayOf(_rules);
}

void CalendarItem::setRecurrenceRules(const NSArray& rules) {
    const Turn turn(*this, "setRecurrenceRules:", rules);
    for (const NSObject& rule : rules) {
        checkRule(rule);
    }
    _rules = vectorOf<EKRecurrenceRule>(rules);
    StoredObject::of(*this)->setChanged();
}

void CalendarItem::addRecurrenceRule(const EKRecurrenceRule& rule) {
    const Turn turn(*this, "addRecurrenceRule:", rule);
    checkRule(rule);
    _rules.push_back(rule);
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
