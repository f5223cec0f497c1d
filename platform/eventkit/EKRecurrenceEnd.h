/// EKRecurrenceEnd, when a repetition ends. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSDate.h"

class EKRecurrenceEnd : public NSObject {
public:
    static constexpr auto objc_name = "EKRecurrenceEnd";
    using NSObject::NSObject;
    /// The last occurrence is not after this date. nil raises.
    static EKRecurrenceEnd withEndDate(const NSDate& date) {
        return objc::sendClass<EKRecurrenceEnd, "recurrenceEndWithEndDate:", EKRecurrenceEnd>(date);
    }
    /// So many occurrences. 0 raises.
    static EKRecurrenceEnd withOccurrenceCount(objc::UInt count) {
        return objc::sendClass<EKRecurrenceEnd, "recurrenceEndWithOccurrenceCount:", EKRecurrenceEnd>(count);
    }

    /// nil when the repetition ends after a number of occurrences.
    NSDate endDate() const { return send<"endDate", NSDate>(); }
    /// 0 when the repetition ends on a date.
    objc::UInt occurrenceCount() const { return send<"occurrenceCount", objc::UInt>(); }
};
