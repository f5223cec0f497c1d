/// EKAlarm, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKObject.h"
#include "platform/foundation/NSDate.h"

/// At a date, or some time before the start of its item.
class EKAlarm : public EKObject {
public:
    static constexpr auto objc_name = "EKAlarm";
    using EKObject::EKObject;
    static EKAlarm withAbsoluteDate(const NSDate& date) {
        return objc::sendClass<EKAlarm, "alarmWithAbsoluteDate:", EKAlarm>(date);
    }
    /// In seconds from the item's start; not above 0.
    static EKAlarm withRelativeOffset(NSTimeInterval offset) {
        return objc::sendClass<EKAlarm, "alarmWithRelativeOffset:", EKAlarm>(offset);
    }

    /// nil for a relative alarm.
    NSDate absoluteDate() const { return send<"absoluteDate", NSDate>(); }
    /// The alarm is relative no longer.
    void setAbsoluteDate(const NSDate& date) const { send<"setAbsoluteDate:">(date); }
    /// 0 for an absolute alarm.
    NSTimeInterval relativeOffset() const { return send<"relativeOffset", NSTimeInterval>(); }
    /// The alarm is absolute no longer.
    void setRelativeOffset(NSTimeInterval offset) const { send<"setRelativeOffset:">(offset); }
};
