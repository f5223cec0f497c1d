/// EKRecurrenceRule, how an event repeats. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKObject.h"
#include "platform/eventkit/EKRecurrenceEnd.h"
#include "platform/eventkit/EKTypes.h"

class EKRecurrenceRule : public EKObject {
public:
    static constexpr auto objc_name = "EKRecurrenceRule";
    using EKObject::EKObject;
    /// Every `interval` days, weeks, months or years; a nil end repeats for ever. An interval of 0 raises.
    static EKRecurrenceRule with(EKRecurrenceFrequency frequency, objc::Int interval, const EKRecurrenceEnd& end) {
        return objc::make<EKRecurrenceRule, "initRecurrenceWithFrequency:interval:end:">(frequency, interval, end);
    }

    EKRecurrenceFrequency frequency() const { return send<"frequency", EKRecurrenceFrequency>(); }
    objc::Int interval() const { return send<"interval", objc::Int>(); }
    /// nil for a repetition without end.
    EKRecurrenceEnd recurrenceEnd() const { return send<"recurrenceEnd", EKRecurrenceEnd>(); }
};
