/// EKReminder, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKCalendarItem.h"
#include "platform/foundation/NSDateComponents.h"

class EKEventStore;

class EKReminder : public EKCalendarItem {
public:
    static constexpr auto objc_name = "EKReminder";
    using EKCalendarItem::EKCalendarItem;
    /// A new one, which is in no list and not saved.
    static EKReminder withEventStore(const EKEventStore& store);

    /// 0 none, 1 to 4 high, 5 medium, 6 to 9 low; any other is refused when it is saved.
    objc::Int priority() const { return send<"priority", objc::Int>(); }
    void setPriority(objc::Int priority) const { send<"setPriority:">(priority); }
    /// nil for none. Copied when set; a calendar in them that is not Gregorian raises. Without hour,
    /// minute and second the reminder is all-day; without a zone its time is local everywhere.
    NSDateComponents startDateComponents() const { return send<"startDateComponents", NSDateComponents>(); }
    void setStartDateComponents(const NSDateComponents& start) const { send<"setStartDateComponents:">(start); }
    /// As above. A reminder that is due has to have a start to be saved.
    NSDateComponents dueDateComponents() const { return send<"dueDateComponents", NSDateComponents>(); }
    void setDueDateComponents(const NSDateComponents& due) const { send<"setDueDateComponents:">(due); }

    bool isCompleted() const { return send<"isCompleted", bool>(); }
    /// Sets or clears the date of completion.
    void setCompleted(bool completed) const { send<"setCompleted:">(completed); }
    NSDate completionDate() const { return send<"completionDate", NSDate>(); }
    void setCompletionDate(const NSDate& date) const { send<"setCompletionDate:">(date); }
};

#include "platform/eventkit/EKEventStore.h"

inline EKReminder EKReminder::withEventStore(const EKEventStore& store) {
    return objc::sendClass<EKReminder, "reminderWithEventStore:", EKReminder>(store);
}
