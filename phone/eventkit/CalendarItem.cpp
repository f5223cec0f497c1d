#include "phone/eventkit/CalendarItem.h"

#include "phone/eventkit/Alarm.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/eventkit/Components.h"
#include "phone/eventkit/StoreEntry.h"
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
    item.created = _created;
    item.modified = _modified;
    item.order = _order;
}

bool CalendarItem::hasChangedAlarms() const {
    return std::any_of(_alarms.begin(), _alarms.end(),
                       [](const EKAlarm& alarm) { return StoredObject::of(alarm)->isChanged(); });
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
}

EKCalendar CalendarItem::calendar() {
    logMessage(*this, "calendar");
    return _calendar;
}

void CalendarItem::setCalendar(const EKCalendar& calendar) {
    logMessage(*this, "setCalendar:", calendar);
    _calendar = calendar;
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::title() {
    logMessage(*this, "title");
    return _title ? _title : ""_ns;
}

void CalendarItem::setTitle(const NSString& title) {
    logMessage(*this, "setTitle:", title);
    _title = copied(title);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::location() {
    logMessage(*this, "location");
    return _location;
}

void CalendarItem::setLocation(const NSString& location) {
    logMessage(*this, "setLocation:", location);
    _location = copied(location);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::notes() {
    logMessage(*this, "notes");
    return _notes;
}

void CalendarItem::setNotes(const NSString& notes) {
    logMessage(*this, "setNotes:", notes);
    _notes = copied(notes);
    StoredObject::of(*this)->setChanged();
}

NSString CalendarItem::calendarItemIdentifier() {
    logMessage(*this, "calendarItemIdentifier");
    return string(_id);
}

NSDate CalendarItem::creationDate() {
    logMessage(*this, "creationDate");
    return date(_created);
}

NSDate CalendarItem::lastModifiedDate() {
    logMessage(*this, "lastModifiedDate");
    return date(_modified);
}

NSArray CalendarItem::alarms() {
    logMessage(*this, "alarms");
    return _alarms.empty() ? NSArray() : arrayOf(_alarms);
}

void CalendarItem::setAlarms(const NSArray& alarms) {
    logMessage(*this, "setAlarms:", alarms);
    for (const NSObject& alarm : alarms) {
        checkAlarm(alarm);
    }
    _alarms = vectorOf<EKAlarm>(alarms);
    StoredObject::of(*this)->setChanged();
}

void CalendarItem::addAlarm(const EKAlarm& alarm) {
    logMessage(*this, "addAlarm:", alarm);
    checkAlarm(alarm);
    _alarms.push_back(alarm);
    StoredObject::of(*this)->setChanged();
}

void CalendarItem::removeAlarm(const EKAlarm& alarm) {
    logMessage(*this, "removeAlarm:", alarm);
    if (std::erase(_alarms, alarm) > 0) {
        StoredObject::of(*this)->setChanged();
    }
}

bool CalendarItem::hasAlarms() {
    logMessage(*this, "hasAlarms");
    return !_alarms.empty();
}

} // namespace phone::eventkit
