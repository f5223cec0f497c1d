#include "phone/eventkit/Alarm.h"

#include "phone/eventkit/Components.h"
#include "phone/eventkit/Turn.h"
#include "phone/foundation/Raise.h"

namespace phone::eventkit {

namespace {

void refuseAfterTheStart(NSTimeInterval offset) {
    if (offset > 0) {
        raise("NSInvalidArgumentException", "The relative offset of an alarm must not be positive");
    }
}

} // namespace

void Alarm::define(objc::ClassTable<Alarm>& c) {
    c.classMethod<"alarmWithAbsoluteDate:", &Alarm::withDate>()
        .classMethod<"alarmWithRelativeOffset:", &Alarm::withOffset>()
        .def<"copyWithZone:", &Alarm::copyWithZone>();

    c.def<"absoluteDate", &Alarm::absoluteDate>()
        .def<"setAbsoluteDate:", &Alarm::setAbsoluteDate>()
        .def<"relativeOffset", &Alarm::relativeOffset>()
        .def<"setRelativeOffset:", &Alarm::setRelativeOffset>()
        .conforms("NSCopying");
}

CalendarAlarm Alarm::row() const { return {unixTime(_date), _offset}; }

EKAlarm Alarm::withDate(const NSDate& date) {
    const Turn turn(objc_name, "alarmWithAbsoluteDate:", date);
    const auto alarm = objc::make<EKAlarm>();
    of(alarm)->_date = date;
    return alarm;
}

EKAlarm Alarm::withOffset(NSTimeInterval offset) {
    const Turn turn(objc_name, "alarmWithRelativeOffset:", offset);
    refuseAfterTheStart(offset);
    const auto alarm = objc::make<EKAlarm>();
    of(alarm)->_offset = offset;
    return alarm;
}

EKAlarm Alarm::copyWithZone(void*) {
    const auto copy = objc::make<EKAlarm>();
    of(copy)->_date = _date;
    of(copy)->_offset = _offset;
    return copy;
}

NSDate Alarm::absoluteDate() {
    const Turn turn(*this, "absoluteDate");
    return _date;
}

void Alarm::setAbsoluteDate(const NSDate& date) {
    const Turn turn(*this, "setAbsoluteDate:", date);
    _date = date;
    _offset = 0;
    StoredObject::of(*this)->setChanged();
}

NSTimeInterval Alarm::relativeOffset() {
    const Turn turn(*this, "relativeOffset");
    return _offset;
}

void Alarm::setRelativeOffset(NSTimeInterval offset) {
    const Turn turn(*this, "setRelativeOffset:", offset);
    refuseAfterTheStart(offset);
    _offset = offset;
    _date = nullptr;
    StoredObject::of(*this)->setChanged();
}

} // namespace phone::eventkit
