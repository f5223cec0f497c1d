/// NSDateComponents, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class NSCalendar;
class NSTimeZone;

/// The fields of a date. One that was not set reads as `undefined`.
class NSDateComponents : public NSObject {
public:
    static constexpr auto objc_name = "NSDateComponents";
    using NSObject::NSObject;
    static NSDateComponents make() { return objc::make<NSDateComponents>(); }

    /// `NSUndefinedDateComponent`: the greatest number that a register holds.
    static constexpr objc::Int undefined = static_cast<objc::Int>(~objc::UInt{} >> 1);

    objc::Int year() const { return send<"year", objc::Int>(); }
    /// From 1.
    objc::Int month() const { return send<"month", objc::Int>(); }
    /// From 1.
    objc::Int day() const { return send<"day", objc::Int>(); }
    objc::Int hour() const { return send<"hour", objc::Int>(); }
    objc::Int minute() const { return send<"minute", objc::Int>(); }
    objc::Int second() const { return send<"second", objc::Int>(); }
    void setYear(objc::Int year) const { send<"setYear:">(year); }
    void setMonth(objc::Int month) const { send<"setMonth:">(month); }
    void setDay(objc::Int day) const { send<"setDay:">(day); }
    void setHour(objc::Int hour) const { send<"setHour:">(hour); }
    void setMinute(objc::Int minute) const { send<"setMinute:">(minute); }
    void setSecond(objc::Int second) const { send<"setSecond:">(second); }

    /// nil unless it was set.
    NSCalendar calendar() const;
    void setCalendar(const NSCalendar& calendar) const;
    /// nil unless it was set: the fields then are local wherever they are read.
    NSTimeZone timeZone() const;
    void setTimeZone(const NSTimeZone& zone) const;
};

#include "platform/foundation/NSCalendar.h"
#include "platform/foundation/NSTimeZone.h"

inline NSCalendar NSDateComponents::calendar() const { return send<"calendar", NSCalendar>(); }
inline void NSDateComponents::setCalendar(const NSCalendar& calendar) const { send<"setCalendar:">(calendar); }
inline NSTimeZone NSDateComponents::timeZone() const { return send<"timeZone", NSTimeZone>(); }
inline void NSDateComponents::setTimeZone(const NSTimeZone& zone) const { send<"setTimeZone:">(zone); }
