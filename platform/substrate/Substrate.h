/// MobileSubstrate: replacing methods of classes that are loaded already.
#pragma once

#include "platform/objc/Block.h"
#include "platform/objc/Class.h"

extern "C" {
/// Replaces a method and hands its previous implementation back. For a class or selector that does not
/// exist it prints a warning and leaves `previous` untouched.
void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* previous);
}

namespace substrate {

/// The previous implementation of a hooked method; empty until the hook is in place.
template <class Signature>
class Previous;

template <class R, class... A>
class Previous<R(A...)> {
public:
    /// Calls it with the receiver and selector of the hook. Nothing is guarded: a hook runs only when
    /// it is in place.
    R operator()(id self, SEL selector, A... arguments) const {
        return reinterpret_cast<R (*)(id, SEL, A...)>(_implementation)(self, selector, arguments...);
    }
    IMP* slot() { return &_implementation; }

private:
    IMP _implementation = nullptr;
};

/// Hooks an instance method. A nil class or a selector it does not answer is passed over in silence, so
/// that no loader has anything to say about it.
template <class R, class... A>
void hook(Class cls, SEL selector, R (*replacement)(id, SEL, A...), Previous<R(A...)>& previous) {
    if (cls == nullptr || class_getInstanceMethod(cls, selector) == nullptr) {
        return;
    }
    MSHookMessageEx(cls, selector, reinterpret_cast<IMP>(replacement), previous.slot());
}

/// Adds a method unless the class itself has it already. A nil class is passed over.
template <class R, class... A>
void addMethod(Class cls, SEL selector, R (*implementation)(id, SEL, A...), const char* encoding) {
    if (cls != nullptr) {
        class_addMethod(cls, selector, reinterpret_cast<IMP>(implementation), encoding);
    }
}

} // namespace substrate
