/// NSCalendar, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSString.h"

class NSDateComponents;

/// `NSCalendarUnit`: which fields to take of a date; added together.
namespace NSCalendarUnit {
inline constexpr objc::UInt Year = 4;
inline constexpr objc::UInt Month = 8;
inline constexpr objc::UInt Day = 16;
inline constexpr objc::UInt Hour = 32;
inline constexpr objc::UInt Minute = 64;
inline constexpr objc::UInt Second = 128;
inline constexpr objc::UInt Weekday = 512;
} // namespace NSCalendarUnit

class NSCalendar : public NSObject {
public:
    static constexpr auto objc_name = "NSCalendar";
    using NSObject::NSObject;
    /// nil for an identifier that is not known.
    static NSCalendar withIdentifier(const NSString& identifier) {
        return objc::make<NSCalendar, "initWithCalendarIdentifier:">(identifier);
    }

    NSString calendarIdentifier() const { return send<"calendarIdentifier", NSString>(); }
    /// The fields of the units asked for, in the calendar's zone; the others stay undefined. A nil date
    /// raises on the platform.
    NSDateComponents components(objc::UInt units, const NSDate& date) const;
    /// Lenient: fields that are out of range roll over.
    NSDate date(const NSDateComponents& components) const;
};

/// The identifiers of calendars: objects that Foundation exports as C constants.
extern "C" {
extern const id NSGregorianCalendar;
}

#include "platform/foundation/NSDateComponents.h"

inline NSDateComponents NSCalendar::components(objc::UInt units, const NSDate& date) const {
    return send<"components:fromDate:", NSDateComponents>(units, date);
}
inline NSDate NSCalendar::date(const NSDateComponents& components) const {
    return send<"dateFromComponents:", NSDate>(components);
}
