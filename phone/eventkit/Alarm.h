/// One alarm: at a date, or some time before the start of its item.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKAlarm.h"

namespace phone::eventkit {

class Alarm : public objc::Implements<Alarm, EKAlarm, objc::Ref<StoredObject>> {
public:
    static void define(objc::ClassTable<Alarm>& c);

    /// As it is written.
    CalendarAlarm row() const;

private:
    static EKAlarm withDate(const NSDate& date);
    static EKAlarm withOffset(NSTimeInterval offset);
    EKAlarm copyWithZone(void* zone);

    NSDate absoluteDate();
    /// A nil date leaves an alarm at the start.
    void setAbsoluteDate(const NSDate& date);
    NSTimeInterval relativeOffset();
    /// Raises NSInvalidArgumentException for an alarm after the start.
    void setRelativeOffset(NSTimeInterval offset);

    NSDate _date; // nil for a relative alarm
    NSTimeInterval _offset = 0;
};

} // namespace phone::eventkit
