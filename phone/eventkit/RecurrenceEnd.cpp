#include "phone/eventkit/RecurrenceEnd.h"

#include "phone/eventkit/Turn.h"
#include "phone/foundation/Raise.h"

namespace phone::eventkit {

void RecurrenceEnd::define(objc::ClassTable<RecurrenceEnd>& c) {
    c.classMethod<"recurrenceEndWithEndDate:", &RecurrenceEnd::withDate>()
        .classMethod<"recurrenceEndWithOccurrenceCount:", &RecurrenceEnd::withCount>()
        .def<"copyWithZone:", &RecurrenceEnd::copyWithZone>();

    c.def<"endDate", &RecurrenceEnd::endDate>().def<"occurrenceCount", &RecurrenceEnd::occurrenceCount>().conforms(
        "NSCopying");
}

EKRecurrenceEnd RecurrenceEnd::withDate(const NSDate& date) {
    const Turn turn(objc_name, "recurrenceEndWithEndDate:", date);
    if (!date) {
        raise("NSInvalidArgumentException", "A recurrence end needs an end date");
    }
    const auto end = objc::make<EKRecurrenceEnd>();
    of(end)->_date = date;
    return end;
}

EKRecurrenceEnd RecurrenceEnd::withCount(objc::UInt count) {
    const Turn turn(objc_name, "recurrenceEndWithOccurrenceCount:", count);
    if (count == 0) {
        raise("NSInvalidArgumentException", "A recurrence end needs an occurrence count greater than 0");
    }
    const auto end = objc::make<EKRecurrenceEnd>();
    of(end)->_count = count;
    return end;
}

NSDate RecurrenceEnd::endDate() {
    const Turn turn(*this, "endDate");
    return _date;
}

objc::UInt RecurrenceEnd::occurrenceCount() {
    const Turn turn(*this, "occurrenceCount");
    return _count;
}

} // namespace phone::eventkit
