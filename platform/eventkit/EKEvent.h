/// EKEvent, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKCalendarItem.h"

class EKEventStore;

class EKEvent : public EKCalendarItem {
public:
    static constexpr auto objc_name = "EKEvent";
    using EKCalendarItem::EKCalendarItem;
    /// A new one, which is in no calendar and not saved.
    static EKEvent withEventStore(const EKEventStore& store);

    /// nil until it is saved.
    NSString eventIdentifier() const { return send<"eventIdentifier", NSString>(); }
    /// nil until it is set.
    NSDate startDate() const { return send<"startDate", NSDate>(); }
    void setStartDate(const NSDate& date) const { send<"setStartDate:">(date); }
    /// nil until it is set; one before the start is refused when it is saved.
    NSDate endDate() const { return send<"endDate", NSDate>(); }
    void setEndDate(const NSDate& date) const { send<"setEndDate:">(date); }
    /// Whole days, wherever one is: saving takes the times of day off the dates.
    bool isAllDay() const { return send<"isAllDay", bool>(); }
    void setAllDay(bool allDay) const { send<"setAllDay:">(allDay); }
};

#include "platform/eventkit/EKEventStore.h"

inline EKEvent EKEvent::withEventStore(const EKEventStore& store) {
    return objc::sendClass<EKEvent, "eventWithEventStore:", EKEvent>(store);
}
