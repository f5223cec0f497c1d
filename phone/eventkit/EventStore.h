/// The way into calendars and reminders: access, lists, and saving.
#pragma once

#include "phone/eventkit/AccessRequests.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKEventStore.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace phone::eventkit {

/// Reads the disk anew at each question. Before access there are no calendars, no defaults, and nothing
/// can be saved.
class EventStore : public objc::Implements<EventStore, EKEventStore, NSObject> {
public:
    static void define(objc::ClassTable<EventStore>& c);

    /// Tells this store's objects from those of another.
    StoreNumber number() const { return _number; }

private:
    /// Why something cannot be saved.
    struct Failure {
        std::string domain;
        objc::Int code;
        std::string text;
    };
    /// A reminder as it was when it was saved, until it is written.
    struct Pending {
        EKReminder reminder;
        ReminderItem item;
        std::string list; // its id
    };

    void init();
    bool answers(SEL selector);
    static EKAuthorizationStatus authorizationStatus(EKEntityType type);
    void requestAccess(EKEntityType type, const AccessRequests::Completion& completion);
    NSArray calendars(EKEntityType type);
    EKCalendar calendar(const NSString& identifier);
    EKCalendar defaultCalendarForNewReminders();
    EKCalendar defaultCalendarForNewEvents();
    /// Raises NSInvalidArgumentException for a reminder, or a list, of another store.
    bool saveReminder(const EKReminder& reminder, bool commit, id* error);
    bool commit(id* error);
    void reset();

    EKCalendar object(EntityType type, const CalendarRow& row);
    EKCalendar defaultCalendar(EntityType type);
    void checkOwn(const objc::Object& object, const char* what) const;
    /// What keeps the reminder from being saved.
    std::optional<Failure> obstacle(const EKReminder& reminder) const;
    std::optional<Failure> write();
    static bool report(const std::optional<Failure>& failure, id* error);

    StoreNumber _number = 0;
    std::map<std::string, EKCalendar> _calendars; // by id: one object a calendar
    std::vector<Pending> _pending;
};

} // namespace phone::eventkit
