/// NSTimeZone, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class NSTimeZone : public NSObject {
public:
    static constexpr auto objc_name = "NSTimeZone";
    using NSObject::NSObject;
    /// nil for a name that the time zone database does not have.
    static NSTimeZone named(const NSString& name) {
        return objc::sendClass<NSTimeZone, "timeZoneWithName:", NSTimeZone>(name);
    }
    /// The one that the person is in, unless the application has chosen another.
    static NSTimeZone defaultTimeZone() { return objc::sendClass<NSTimeZone, "defaultTimeZone", NSTimeZone>(); }

    NSString name() const { return send<"name", NSString>(); }
};
