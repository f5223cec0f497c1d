/// One event being written.
#pragma once

#include "phone/eventkit/CalendarItem.h"
#include "platform/eventkit/EKEvent.h"

namespace phone::eventkit {

/// Nothing of it lies on the disk before its store saves it.
class Event : public objc::Implements<Event, EKEvent, objc::Ref<CalendarItem>> {
public:
    static void define(objc::ClassTable<Event>& c);

    /// As it is written: whole days where it is all-day, else times in the zone that the person is in.
    EventItem item() const;
    bool isUnchanged() const;
    /// It has been saved like this: an all-day event keeps its days and has lost its times of day.
    void setSaved(const EventItem& item);

private:
    /// A start or an end.
    struct Time {
        NSDate date;                     // nil until it is set
        std::optional<CalendarDate> day; // instead, once a whole day has been saved

        std::optional<double> moment(bool isEnd) const;
    };

    static EKEvent withEventStore(const EKEventStore& store);

    NSString eventIdentifier();
    /// A whole day that was saved is the day where the person is now.
    NSDate startDate();
    void setStartDate(const NSDate& date);
    NSDate endDate();
    void setEndDate(const NSDate& date);
    bool isAllDay();
    void setAllDay(bool allDay);

    NSArray recurrenceRules();
    /// Raises NSInvalidArgumentException for anything that is no rule.
    void setRecurrenceRules(const NSArray& rules);
    void addRecurrenceRule(const EKRecurrenceRule& rule);

    std::optional<CalendarDate> written(const Time& time, bool isEnd) const;

    Time _start;
    Time _end;
    bool _isAllDay = false;
    std::vector<EKRecurrenceRule> _rules;
};

} // namespace phone::eventkit
