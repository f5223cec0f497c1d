/// NSCharacterSet, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class NSCharacterSet : public NSObject {
public:
    static constexpr auto objc_name = "NSCharacterSet";
    using NSObject::NSObject;
    /// Everything that breaks a line.
    static NSCharacterSet newlines() {
        return objc::sendClass<NSCharacterSet, "newlineCharacterSet", NSCharacterSet>();
    }
};
