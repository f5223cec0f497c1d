/// When a repetition ends: on a date, or after a number of occurrences.
#pragma once

#include "platform/eventkit/EKRecurrenceEnd.h"

namespace phone::eventkit {

class RecurrenceEnd : public objc::Implements<RecurrenceEnd, EKRecurrenceEnd, NSObject> {
public:
    static void define(objc::ClassTable<RecurrenceEnd>& c);

    const NSDate& date() const { return _date; }
    objc::UInt count() const { return _count; }

private:
    /// Raises NSInvalidArgumentException for nil.
    static EKRecurrenceEnd withDate(const NSDate& date);
    /// Raises NSInvalidArgumentException for 0.
    static EKRecurrenceEnd withCount(objc::UInt count);
    /// Nothing in it ever changes.
    EKRecurrenceEnd copyWithZone(void*) { return *this; }

    NSDate endDate();
    objc::UInt occurrenceCount();

    NSDate _date; // nil where the number of occurrences counts
    objc::UInt _count = 0;
};

} // namespace phone::eventkit
