/// How an item repeats.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKRecurrenceRule.h"

namespace phone::eventkit {

class RecurrenceRule : public objc::Implements<RecurrenceRule, EKRecurrenceRule, objc::Ref<StoredObject>> {
public:
    static void define(objc::ClassTable<RecurrenceRule>& c);

    /// As it is written; `zone` is where the person is.
    Recurrence row(const std::string& zone) const;

private:
    /// Raises NSInvalidArgumentException for an interval below 1 or a frequency that is none.
    void init(EKRecurrenceFrequency frequency, objc::Int interval, const EKRecurrenceEnd& end);
    EKRecurrenceRule copyWithZone(void* zone);

    EKRecurrenceFrequency frequency();
    objc::Int interval();
    EKRecurrenceEnd recurrenceEnd();
    void setRecurrenceEnd(const EKRecurrenceEnd& end);

    EKRecurrenceFrequency _frequency = EKRecurrenceFrequency::Daily;
    objc::Int _interval = 1;
    EKRecurrenceEnd _end; // nil for a repetition without end
};

} // namespace phone::eventkit
