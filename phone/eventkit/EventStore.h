/// The way into calendars and reminders: access, lists, and saving.
#pragma once

#include "phone/eventkit/AccessRequests.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/eventkit/SaveFailure.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKEventStore.h"

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace phone::eventkit {

/// Reads the disk anew at each question. Before access there are no calendars, no defaults, and nothing
/// can be saved.
class EventStore : public objc::Implements<EventStore, EKEventStore, NSObject> {
public:
    static void define(objc::ClassTable<EventStore>& c);
    ~EventStore();

    /// Tells this store's objects from those of another, and from those of before it was reset.
    StoreNumber number() const { return _number; }

private:
    /// A reminder or an event as it was when it was saved, until it is written.
    struct Pending {
        EKCalendarItem object;
        std::variant<ReminderItem, EventItem> item;
        std::string calendar; // its id
    };

    void init();
    bool answers(SEL selector);
    static EKAuthorizationStatus authorizationStatus(EKEntityType type);
    void requestAccess(EKEntityType type, const AccessRequests::Completion& completion);
    NSArray calendars(EKEntityType type);
    EKCalendar calendar(const NSString& identifier);
    EKCalendar defaultCalendarForNewReminders();
    EKCalendar defaultCalendarForNewEvents();
    /// Raise NSInvalidArgumentException for an item, or a calendar, of another store.
    bool saveReminder(const EKReminder& reminder, bool commit, id* error);
    bool saveEvent(const EKEvent& event, EKSpan span, bool commit, id* error);
    bool commit(id* error);
    void reset();

    EKCalendar object(EntityType type, const CalendarRow& row);
    EKCalendar defaultCalendar(EntityType type);
    void checkOwn(const objc::Object& object, const char* what) const;
    /// Gathers, and writes all that is gathered where it `commits`.
    bool save(Pending pending, bool commits, id* error);
    std::optional<SaveFailure> write();
    std::optional<SaveFailure> writePending();
    template <class Item>
    static void write(const EKCalendarItem& object, Item& item, EntityType type, const std::string& calendar);

    StoreNumber _number = 0;
    std::map<std::string, EKCalendar> _calendars; // by id: one object a calendar
    std::vector<Pending> _pending;
};

} // namespace phone::eventkit
