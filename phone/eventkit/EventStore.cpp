#include "phone/eventkit/EventStore.h"

#include "phone/device/RootFolder.h"
#include "phone/eventkit/Calendar.h"
#include "phone/eventkit/Event.h"
#include "phone/eventkit/LiveStores.h"
#include "phone/eventkit/Obstacles.h"
#include "phone/eventkit/Reminder.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "phone/foundation/WallClock.h"

#include <atomic>

namespace phone::eventkit {

namespace {

CalendarFolder folder(EntityType type) { return {RootFolder::path(), type}; }

bool isAllowed(EntityType type) { return folder(type).access() == Access::Allow; }

StoreNumber nextNumber() {
    static constinit std::atomic<StoreNumber> last = 0;
    return ++last;
}

EntityType checked(EKEntityType type) {
    if (type != EKEntityType::Event && type != EKEntityType::Reminder) {
        raise("NSInvalidArgumentException", "Invalid entity type");
    }
    return type == EKEntityType::Event ? EntityType::Event : EntityType::Reminder;
}

} // namespace

void EventStore::define(objc::ClassTable<EventStore>& c) {
    c.init<"init", &EventStore::init>().overrides<"respondsToSelector:", &EventStore::answers>();

    c.classMethod<"authorizationStatusForEntityType:", &EventStore::authorizationStatus>()
        .def<"requestAccessToEntityType:completion:", &EventStore::requestAccess>();

    c.def<"calendarsForEntityType:", &EventStore::calendars>()
        .def<"calendarWithIdentifier:", &EventStore::calendar>()
        .def<"defaultCalendarForNewReminders", &EventStore::defaultCalendarForNewReminders>()
        .def<"defaultCalendarForNewEvents", &EventStore::defaultCalendarForNewEvents>();

    c.def<"saveReminder:commit:error:", &EventStore::saveReminder>()
        .def<"saveEvent:span:commit:error:", &EventStore::saveEvent>()
        .def<"commit:", &EventStore::commit>()
        .def<"reset", &EventStore::reset>();
}

void EventStore::init() {
    super<"init">();
    const Turn turn(*this, "init");
    _number = nextNumber();
    LiveStores::add(raw());
}

EventStore::~EventStore() { LiveStores::remove(raw()); }

bool EventStore::answers(SEL selector) {
    const Turn turn(*this, "respondsToSelector:", selector);
    return super<"respondsToSelector:", bool>(selector);
}

EKAuthorizationStatus EventStore::authorizationStatus(EKEntityType type) {
    const Turn turn(objc_name, "authorizationStatusForEntityType:", type);
    switch (folder(checked(type)).access()) {
    case Access::Ask:
        return EKAuthorizationStatus::NotDetermined;
    case Access::Allow:
        return EKAuthorizationStatus::Authorized;
    case Access::Deny:
        return EKAuthorizationStatus::Denied;
    }
}

void EventStore::requestAccess(EKEntityType type, const AccessRequests::Completion& completion) {
    // No turn: an early answer is waited for here.
    addEntry(object_getClassName(raw()), "requestAccessToEntityType:completion:", nlohmann::json::array({shown(type)}));
    AccessRequests::shared().add(checked(type), completion);
}

NSArray EventStore::calendars(EKEntityType type) {
    const Turn turn(*this, "calendarsForEntityType:", type);
    const EntityType wanted = checked(type);
    const auto all = objc::make<NSMutableArray>();
    if (isAllowed(wanted)) {
        for (const CalendarRow& row : folder(wanted).calendars()) {
            all.add(object(wanted, row));
        }
    }
    return all;
}

EKCalendar EventStore::calendar(const NSString& identifier) {
    const Turn turn(*this, "calendarWithIdentifier:", identifier);
    for (const EntityType type : {EntityType::Event, EntityType::Reminder}) {
        if (!isAllowed(type)) {
            continue;
        }
        for (const CalendarRow& row : folder(type).calendars()) {
            if (row.id == text(identifier)) {
                return object(type, row);
            }
        }
    }
    return nullptr;
}

EKCalendar EventStore::defaultCalendarForNewReminders() {
    const Turn turn(*this, "defaultCalendarForNewReminders");
    return defaultCalendar(EntityType::Reminder);
}

EKCalendar EventStore::defaultCalendarForNewEvents() {
    const Turn turn(*this, "defaultCalendarForNewEvents");
    return defaultCalendar(EntityType::Event);
}

bool EventStore::saveReminder(const EKReminder& reminder, bool commits, id* error) {
    const Turn turn(*this, "saveReminder:commit:error:", reminder, commits);
    const Reminder* peer = Reminder::of(reminder);
    if (peer == nullptr) {
        raise("NSInvalidArgumentException", "There is no reminder to save");
    }
    const EKCalendar calendar = CalendarItem::of(reminder)->currentCalendar();
    checkOwn(reminder, "reminder");
    checkOwn(calendar, "calendar");
    if (!isAllowed(EntityType::Reminder)) {
        return report(SaveFailure::withoutAccess("reminders"), error);
    }
    if (const auto failure = obstacle(reminder)) {
        return report(failure, error);
    }
    CalendarItem::of(reminder)->cutAlarms();
    return save({reminder, peer->item(), Calendar::of(calendar)->id()}, commits, error);
}

bool EventStore::saveEvent(const EKEvent& event, EKSpan span, bool commits, id* error) {
    const Turn turn(*this, "saveEvent:span:commit:error:", event, span, commits);
    const Event* peer = Event::of(event);
    if (peer == nullptr) {
        raise("NSInvalidArgumentException", "There is no event to save");
    }
    const EKCalendar calendar = CalendarItem::of(event)->currentCalendar();
    checkOwn(event, "event");
    checkOwn(calendar, "calendar");
    if (!isAllowed(EntityType::Event)) {
        return report(SaveFailure::withoutAccess("events"), error);
    }
    if (span != EKSpan::ThisEvent && span != EKSpan::FutureEvents) {
        return report(SaveFailure::with(EKErrorCode::InvalidSpan, "The span is invalid."), error);
    }
    if (peer->isUnchanged()) {
        report(std::nullopt, error);
        return false; // nothing to do is no error, and yet nothing was saved
    }
    if (const auto failure = obstacle(event)) {
        return report(failure, error);
    }
    CalendarItem::of(event)->cutAlarms();
    return save({event, peer->item(), Calendar::of(calendar)->id()}, commits, error);
}

bool EventStore::save(Pending pending, bool commits, id* error) {
    // What is already being saved in this batch is saved as it is now.
    std::erase_if(_pending, [&](const Pending& earlier) { return earlier.object == pending.object; });
    _pending.push_back(std::move(pending));
    return report(commits ? write() : std::nullopt, error);
}

bool EventStore::commit(id* error) {
    const Turn turn(*this, "commit:");
    return report(write(), error);
}

void EventStore::reset() {
    const Turn turn(*this, "reset");
    _pending.clear();
    _calendars.clear();
    _number = nextNumber(); // what was got before belongs to it no longer
}

EKCalendar EventStore::object(EntityType type, const CalendarRow& row) {
    EKCalendar& known = _calendars[row.id];
    if (known) {
        Calendar::of(known)->update(row);
    } else {
        known = Calendar::make(_number, type, row);
    }
    return known;
}

EKCalendar EventStore::defaultCalendar(EntityType type) {
    if (isAllowed(type)) {
        for (const CalendarRow& row : folder(type).calendars()) {
            if (row.isDefault) {
                return object(type, row);
            }
        }
    }
    return nullptr;
}

void EventStore::checkOwn(const objc::Object& object, const char* what) const {
    const StoredObject* peer = StoredObject::of(object);
    if (peer != nullptr && peer->store() != _number) {
        raise("NSInvalidArgumentException", std::string("The ") + what + " belongs to a different event store");
    }
}

std::optional<SaveFailure> EventStore::write() {
    const std::size_t before = _pending.size();
    const auto failure = writePending();
    if (_pending.size() < before) {
        LiveStores::announceChange();
    }
    return failure;
}

std::optional<SaveFailure> EventStore::writePending() {
    while (!_pending.empty()) {
        Pending& next = _pending.front();
        try {
            if (auto* event = std::get_if<EventItem>(&next.item)) {
                write(next.object, *event, EntityType::Event, next.calendar);
                Event::of(next.object)->setSaved(*event);
            } else {
                write(next.object, std::get<ReminderItem>(next.item), EntityType::Reminder, next.calendar);
            }
        } catch (const CalendarFolderError& error) {
            return SaveFailure::with(EKErrorCode::InternalFailure, error.what());
        }
        _pending.erase(_pending.begin());
    }
    return std::nullopt;
}

template <class Item>
void EventStore::write(const EKCalendarItem& object, Item& item, EntityType type, const std::string& calendar) {
    CalendarItem* common = CalendarItem::of(object);
    item.modified = WallClock::now();
    item.created = item.created.value_or(*item.modified);
    const CalendarFolder place = folder(type);
    place.write(calendar, item);
    if (!common->savedIn().empty() && common->savedIn() != calendar) {
        place.remove(common->savedIn(), item.id);
    }
    common->setSaved(item, calendar);
}

} // namespace phone::eventkit
