/// NSObject, the root of the platform's classes. Every call is safe on nil.
#pragma once

#include "platform/objc/Class.h"

class NSString;

class NSObject : public objc::Object {
public:
    static constexpr auto objc_name = "NSObject";
    using objc::Object::Object;

    /// Equality of values; `==` on handles is identity.
    bool isEqual(const objc::Object& other) const { return send<"isEqual:", bool>(other); }
    bool respondsTo(SEL selector) const { return send<"respondsToSelector:", bool>(selector); }
    NSString description() const;

    /// Sends the message by way of `performSelector:`.
    template <objc::FixedString Sel, class R = objc::Object>
    R perform() const {
        static_assert(objc::arity(Sel) == 0);
        return send<"performSelector:", R>(objc::selector<Sel>());
    }
    /// Sends the message by way of `performSelector:withObject:`.
    template <objc::FixedString Sel, class R = objc::Object>
    R perform(const objc::Object& argument) const {
        static_assert(objc::arity(Sel) == 1);
        return send<"performSelector:withObject:", R>(objc::selector<Sel>(), argument);
    }
};
