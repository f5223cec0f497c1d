#include "phone/eventkit/RecurrenceRule.h"

#include "phone/eventkit/Components.h"
#include "phone/eventkit/RecurrenceEnd.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Raise.h"

namespace phone::eventkit {

void RecurrenceRule::define(objc::ClassTable<RecurrenceRule>& c) {
    c.init<"initRecurrenceWithFrequency:interval:end:", &RecurrenceRule::init>()
        .def<"copyWithZone:", &RecurrenceRule::copyWithZone>();

    c.def<"frequency", &RecurrenceRule::frequency>()
        .def<"interval", &RecurrenceRule::interval>()
        .def<"recurrenceEnd", &RecurrenceRule::recurrenceEnd>()
        .def<"setRecurrenceEnd:", &RecurrenceRule::setRecurrenceEnd>()
        .conforms("NSCopying");
}

Recurrence RecurrenceRule::row(const std::string& zone) const {
    Recurrence row = {static_cast<Frequency>(_frequency), _interval, std::nullopt, 0};
    if (const RecurrenceEnd* end = RecurrenceEnd::of(_end)) {
        row.count = static_cast<long>(end->count());
        if (const auto moment = unixTime(end->date())) {
            row.until = dateAt(*moment, zone);
        }
    }
    return row;
}

void RecurrenceRule::init(EKRecurrenceFrequency frequency, objc::Int interval, const EKRecurrenceEnd& end) {
    super<"init">();
    const Turn turn(*this, "initRecurrenceWithFrequency:interval:end:", frequency, interval, end);
    if (interval < 1) {
        raise("NSInvalidArgumentException", "The interval of a recurrence must be greater than 0");
    }
    if (frequency < EKRecurrenceFrequency::Daily || frequency > EKRecurrenceFrequency::Yearly) {
        raise("NSInvalidArgumentException", "The frequency of a recurrence is invalid");
    }
    _frequency = frequency;
    _interval = interval;
    _end = end;
}

EKRecurrenceRule RecurrenceRule::copyWithZone(void*) {
    const auto copy = objc::make<EKRecurrenceRule>();
    of(copy)->_frequency = _frequency;
    of(copy)->_interval = _interval;
    of(copy)->_end = _end;
    return copy;
}

EKRecurrenceFrequency RecurrenceRule::frequency() {
    const Turn turn(*this, "frequency");
    return _frequency;
}

objc::Int RecurrenceRule::interval() {
    const Turn turn(*this, "interval");
    return _interval;
}

EKRecurrenceEnd RecurrenceRule::recurrenceEnd() {
    const Turn turn(*this, "recurrenceEnd");
    return _end;
}

void RecurrenceRule::setRecurrenceEnd(const EKRecurrenceEnd& end) {
    const Turn turn(*this, "setRecurrenceEnd:", end);
    _end = end;
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
