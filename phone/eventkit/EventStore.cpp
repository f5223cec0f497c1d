#include "phone/eventkit/EventStore.h"

#include "phone/device/RootFolder.h"
#include "phone/eventkit/Calendar.h"
#include "phone/eventkit/Reminder.h"
#include "phone/eventkit/StoreEntry.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "phone/foundation/WallClock.h"
#include "platform/foundation/NSDictionary.h"

#include <atomic>

extern "C" {
extern const id NSLocalizedDescriptionKey; // of Foundation
}

namespace phone::eventkit {

namespace {

constexpr const char* errorDomain = "EKErrorDomain";
/// The store's own process refuses those who have no access.
constexpr const char* processErrorDomain = "EKCADErrorDomain";
constexpr objc::Int noAccess = 1013;
constexpr objc::Int highestPriority = 9;

CalendarFolder folder(EntityType type) { return {RootFolder::path(), type}; }

bool isAllowed(EntityType type) { return folder(type).access() == Access::Allow; }

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
        .def<"commit:", &EventStore::commit>()
        .def<"reset", &EventStore::reset>();
}

void EventStore::init() {
    static constinit std::atomic<StoreNumber> last = 0;
    super<"init">();
    logMessage(*this, "init");
    _number = ++last;
}

bool EventStore::answers(SEL selector) {
    logMessage(*this, "respondsToSelector:", selector);
    return super<"respondsToSelector:", bool>(selector);
}

EKAuthorizationStatus EventStore::authorizationStatus(EKEntityType type) {
    logClassMessage(objc_name, "authorizationStatusForEntityType:", type);
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
    logMessage(*this, "requestAccessToEntityType:completion:", type);
    AccessRequests::shared().add(checked(type), completion);
}

NSArray EventStore::calendars(EKEntityType type) {
    logMessage(*this, "calendarsForEntityType:", type);
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
    logMessage(*this, "calendarWithIdentifier:", identifier);
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
    logMessage(*this, "defaultCalendarForNewReminders");
    return defaultCalendar(EntityType::Reminder);
}

EKCalendar EventStore::defaultCalendarForNewEvents() {
    logMessage(*this, "defaultCalendarForNewEvents");
    return defaultCalendar(EntityType::Event);
}

bool EventStore::saveReminder(const EKReminder& reminder, bool commits, id* error) {
    logMessage(*this, "saveReminder:commit:error:", reminder, commits);
    const Reminder* peer = Reminder::of(reminder);
    if (peer == nullptr) {
        raise("NSInvalidArgumentException", "There is no reminder to save");
    }
    CalendarItem* item = CalendarItem::of(reminder);
    checkOwn(reminder, "reminder");
    checkOwn(item->currentCalendar(), "calendar");
    if (const auto failure = obstacle(reminder)) {
        return report(failure, error);
    }
    // What is already being saved in this batch is saved as it is now.
    std::erase_if(_pending, [&](const Pending& pending) { return pending.reminder == reminder; });
    _pending.push_back({reminder, peer->item(), Calendar::of(item->currentCalendar())->id()});
    return commits ? report(write(), error) : report(std::nullopt, error);
}

bool EventStore::commit(id* error) {
    logMessage(*this, "commit:");
    return report(write(), error);
}

void EventStore::reset() {
    logMessage(*this, "reset");
    _pending.clear();
    _calendars.clear();
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

std::optional<EventStore::Failure> EventStore::obstacle(const EKReminder& reminder) const {
    const auto failure = [](EKErrorCode code, const char* why) {
        return Failure{errorDomain, static_cast<objc::Int>(code), why};
    };
    if (!isAllowed(EntityType::Reminder)) {
        return Failure{processErrorDomain, noAccess, "Access to reminders has not been granted"};
    }
    const Calendar* list = Calendar::of(CalendarItem::of(reminder)->currentCalendar());
    if (list == nullptr) {
        return failure(EKErrorCode::NoCalendar, "No calendar has been set.");
    }
    if (list->type() != EntityType::Reminder) {
        return failure(EKErrorCode::CalendarDoesNotAllowReminders, "That calendar does not allow reminders.");
    }
    if (list->isReadOnly()) {
        return failure(EKErrorCode::CalendarReadOnly, "That calendar may not be modified.");
    }
    const Reminder* peer = Reminder::of(reminder);
    if (peer->isDue() && !peer->hasStart()) {
        return failure(EKErrorCode::NoStartDate, "No start date has been set.");
    }
    if (peer->currentPriority() < 0 || peer->currentPriority() > highestPriority) {
        return failure(EKErrorCode::PriorityIsInvalid, "The priority is invalid.");
    }
    return std::nullopt;
}

std::optional<EventStore::Failure> EventStore::write() {
    const CalendarFolder lists = folder(EntityType::Reminder);
    while (!_pending.empty()) {
        Pending& next = _pending.front();
        CalendarItem* common = CalendarItem::of(next.reminder);
        next.item.modified = WallClock::now();
        next.item.created = common->created.value_or(*next.item.modified);
        try {
            lists.write(next.list, next.item);
            if (!common->savedIn.empty() && common->savedIn != next.list) {
                lists.remove(common->savedIn, next.item.id);
            }
        } catch (const CalendarFolderError& error) {
            return Failure{errorDomain, static_cast<objc::Int>(EKErrorCode::InternalFailure), error.what()};
        }
        common->created = next.item.created;
        common->modified = next.item.modified;
        common->order = next.item.order;
        common->savedIn = next.list;
        StoredObject::of(next.reminder)->setSaved();
        _pending.erase(_pending.begin());
    }
    return std::nullopt;
}

bool EventStore::report(const std::optional<Failure>& failure, id* error) {
    if (error != nullptr) {
        *error = nullptr;
        if (failure) {
            const auto info = objc::make<NSMutableDictionary>();
            info.set(string(failure->text), objc::borrow<NSString>(NSLocalizedDescriptionKey));
            // Autoreleased: the caller's as long as its pool lives.
            const auto made =
                objc::make<NSError, "initWithDomain:code:userInfo:">(string(failure->domain), failure->code, info);
            *error = objc::detail::call<id>(objc::Object(made).relinquish(), objc::selector<"autorelease">());
        }
    }
    return !failure;
}

} // namespace phone::eventkit
