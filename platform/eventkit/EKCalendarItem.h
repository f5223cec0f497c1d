/// EKCalendarItem, what events and reminders have in common. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKAlarm.h"
#include "platform/eventkit/EKCalendar.h"
#include "platform/eventkit/EKRecurrenceRule.h"
#include "platform/foundation/NSArray.h"

class EKCalendarItem : public EKObject {
public:
    static constexpr auto objc_name = "EKCalendarItem";
    using EKObject::EKObject;

    /// nil until it is set.
    EKCalendar calendar() const { return send<"calendar", EKCalendar>(); }
    void setCalendar(const EKCalendar& calendar) const { send<"setCalendar:">(calendar); }
    /// "" until it is set.
    NSString title() const { return send<"title", NSString>(); }
    void setTitle(const NSString& title) const { send<"setTitle:">(title); }
    NSString location() const { return send<"location", NSString>(); }
    void setLocation(const NSString& location) const { send<"setLocation:">(location); }
    NSString notes() const { return send<"notes", NSString>(); }
    void setNotes(const NSString& notes) const { send<"setNotes:">(notes); }
    NSString calendarItemIdentifier() const { return send<"calendarItemIdentifier", NSString>(); }

    /// nil when there are none.
    NSArray alarms() const { return send<"alarms", NSArray>(); }
    void setAlarms(const NSArray& alarms) const { send<"setAlarms:">(alarms); }
    void addAlarm(const EKAlarm& alarm) const { send<"addAlarm:">(alarm); }
    void removeAlarm(const EKAlarm& alarm) const { send<"removeAlarm:">(alarm); }
    bool hasAlarms() const { return send<"hasAlarms", bool>(); }

    /// nil when it does not repeat.
    NSArray recurrenceRules() const { return send<"recurrenceRules", NSArray>(); }
    void setRecurrenceRules(const NSArray& rules) const { send<"setRecurrenceRules:">(rules); }
    void addRecurrenceRule(const EKRecurrenceRule& rule) const { send<"addRecurrenceRule:">(rule); }

    /// nil until it is saved.
    NSDate creationDate() const { return send<"creationDate", NSDate>(); }
    NSDate lastModifiedDate() const { return send<"lastModifiedDate", NSDate>(); }
};
