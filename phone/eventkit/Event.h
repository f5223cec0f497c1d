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
    /// It has been saved like this: an all-day event has lost its times of day, and reaches from the first moment of
    /// its days to the last second. It keeps those moments: for a person who travels on they may be other days.
    void setSaved(const EventItem& item);

private:
    static EKEvent withEventStore(const EKEventStore& store);

    NSString eventIdentifier();
    NSDate startDate();
    void setStartDate(const NSDate& date);
    NSDate endDate();
    void setEndDate(const NSDate& date);
    bool isAllDay();
    void setAllDay(bool allDay);

    std::optional<CalendarDate> written(const NSDate& date) const;

    NSDate _start; // nil until it is set
    NSDate _end;   // likewise
    bool _isAllDay = false;
};

} // namespace phone::eventkit
