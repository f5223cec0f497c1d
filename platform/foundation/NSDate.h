/// NSDate, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

/// In seconds.
using NSTimeInterval = double;

class NSDate : public NSObject {
public:
    static constexpr auto objc_name = "NSDate";
    using NSObject::NSObject;
    static NSDate now() { return objc::sendClass<NSDate, "date", NSDate>(); }
    /// So many seconds from now.
    static NSDate withSinceNow(NSTimeInterval seconds) {
        return objc::sendClass<NSDate, "dateWithTimeIntervalSinceNow:", NSDate>(seconds);
    }
    /// Seconds since the start of 2001, UTC.
    static NSDate withSinceReferenceDate(NSTimeInterval seconds) {
        return objc::sendClass<NSDate, "dateWithTimeIntervalSinceReferenceDate:", NSDate>(seconds);
    }

    /// Seconds since the start of 2001, UTC.
    NSTimeInterval sinceReferenceDate() const { return send<"timeIntervalSinceReferenceDate", NSTimeInterval>(); }
};
