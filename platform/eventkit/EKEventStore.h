/// EKEventStore, the way into calendars and reminders. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKCalendar.h"
#include "platform/eventkit/EKTypes.h"
#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSError.h"

class EKEvent;
class EKReminder;

class EKEventStore : public NSObject {
public:
    static constexpr auto objc_name = "EKEventStore";
    using NSObject::NSObject;
    static EKEventStore make() { return objc::make<EKEventStore>(); }
    static EKAuthorizationStatus authorizationStatus(EKEntityType type) {
        return objc::sendClass<EKEventStore, "authorizationStatusForEntityType:", EKAuthorizationStatus>(type);
    }

    /// The completion gets whether access was granted, and an error or nil; later and on a thread that the
    /// store chooses. Only the first request of a type ever asks the person. Platforms before 6 do not
    /// answer this message.
    void requestAccess(EKEntityType type, void (^completion)(bool granted, id error)) const {
        send<"requestAccessToEntityType:completion:">(type, completion);
    }

    /// In the store's order, read-only ones too; none before access.
    NSArray calendars(EKEntityType type) const { return send<"calendarsForEntityType:", NSArray>(type); }
    /// nil for one that is not there.
    EKCalendar calendar(const NSString& identifier) const {
        return send<"calendarWithIdentifier:", EKCalendar>(identifier);
    }
    /// nil where no list is the default, and before access.
    EKCalendar defaultCalendarForNewReminders() const { return send<"defaultCalendarForNewReminders", EKCalendar>(); }
    /// nil where no calendar is the default, and before access.
    EKCalendar defaultCalendarForNewEvents() const { return send<"defaultCalendarForNewEvents", EKCalendar>(); }

    /// False with an error when it cannot be saved; without `commit` it waits for `commit`.
    bool saveReminder(const EKReminder& reminder, bool commit, NSError* error = nullptr) const;
    /// The same for an event; false without an error when nothing in it has changed.
    bool saveEvent(const EKEvent& event, EKSpan span, bool commit, NSError* error = nullptr) const;
    /// Writes what was saved without commit; true when there was nothing to write.
    bool commit(NSError* error = nullptr) const;
    /// Forgets what was not committed; no object that came from it can be used again.
    void reset() const { send<"reset">(); }

private:
    /// Where the platform puts an error that it owns; `into` may be nullptr.
    struct ErrorOut {
        explicit ErrorOut(NSError* into) : _into(into) {}
        ErrorOut(const ErrorOut&) = delete;
        ErrorOut& operator=(const ErrorOut&) = delete;
        ~ErrorOut() {
            if (_into != nullptr) {
                *_into = objc::borrow<NSError>(_error);
            }
        }
        id* place() { return _into == nullptr ? nullptr : &_error; }

    private:
        NSError* _into;
        id _error = nullptr;
    };
};

#include "platform/eventkit/EKEvent.h"
#include "platform/eventkit/EKReminder.h"

inline bool EKEventStore::saveEvent(const EKEvent& event, EKSpan span, bool commit, NSError* error) const {
    ErrorOut out(error);
    return send<"saveEvent:span:commit:error:", bool>(event, span, commit, out.place());
}
inline bool EKEventStore::saveReminder(const EKReminder& reminder, bool commit, NSError* error) const {
    ErrorOut out(error);
    return send<"saveReminder:commit:error:", bool>(reminder, commit, out.place());
}
inline bool EKEventStore::commit(NSError* error) const {
    ErrorOut out(error);
    return send<"commit:", bool>(out.place());
}
