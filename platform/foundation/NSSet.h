/// NSSet, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class NSSet : public NSObject {
public:
    static constexpr auto objc_name = "NSSet";
    using NSObject::NSObject;
    static NSSet of(const objc::Object& object) { return objc::sendClass<NSSet, "setWithObject:", NSSet>(object); }

    objc::UInt count() const { return send<"count", objc::UInt>(); }
    template <class T = NSObject>
    T any() const {
        return send<"anyObject", T>();
    }
};
