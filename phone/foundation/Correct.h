/// Replacing and adding single methods of Foundation's classes where GNUstep differs from the platform.
/// Arguments and results are those of the wire: objects as plain ids, a BOOL as a byte.
#pragma once

#include "platform/objc/Class.h"

#include <cassert>

extern "C" void __objc_update_dispatch_table_for_class(Class cls); // of the runtime; it declares it to itself alone

namespace phone {

/// Makes subclasses see a method that was replaced in the class: this runtime looks after the class alone.
inline void updateSubclasses(Class cls) { __objc_update_dispatch_table_for_class(cls); }

/// What a method gives to a caller that does not own it.
inline id autoreleased(objc::Object object) {
    return objc::detail::call<id>(object.relinquish(), objc::selector<"autorelease">());
}

/// Replaces the instance method `Sel`, which the class answers already; where it only inherits it, the
/// superclass keeps its own. Answers the implementation that was in effect.
template <objc::FixedString Sel, class R, class... A>
auto correct(Class cls, R (*function)(id, SEL, A...)) {
    static_assert(objc::arity(Sel) == sizeof...(A));
    const SEL selector = objc::selector<Sel>();
    Method before = class_getInstanceMethod(cls, selector);
    assert(before != nullptr);
    IMP previous = method_getImplementation(before);
    class_replaceMethod(cls, selector, reinterpret_cast<IMP>(function), method_getTypeEncoding(before));
    updateSubclasses(cls);
    return reinterpret_cast<R (*)(id, SEL, A...)>(previous);
}

/// The same for a message to the class itself.
template <objc::FixedString Sel, class R, class... A>
auto correctClass(Class cls, R (*function)(id, SEL, A...)) {
    return correct<Sel>(object_getClass(reinterpret_cast<id>(cls)), function);
}

/// Adds the instance method `Sel`, which the class does not have.
template <objc::FixedString Sel, class R, class... A>
void extend(Class cls, R (*function)(id, SEL, A...)) {
    static_assert(objc::arity(Sel) == sizeof...(A));
    static constexpr auto types = objc::methodEncoding<R, A...>();
    class_addMethod(cls, objc::selector<Sel>(), reinterpret_cast<IMP>(function), types.text);
}

/// The same for a message to the class itself.
template <objc::FixedString Sel, class R, class... A>
void extendClass(Class cls, R (*function)(id, SEL, A...)) {
    extend<Sel>(object_getClass(reinterpret_cast<id>(cls)), function);
}

} // namespace phone
