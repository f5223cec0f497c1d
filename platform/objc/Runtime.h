/// The object runtime's C API, and how a message is sent on this runtime and processor.
/// Everything that differs between runtimes and processors stands in this file.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#ifdef __APPLE__

extern "C" {
using id = struct objc_object*;
using Class = struct objc_class*;
using SEL = struct objc_selector*;
using IMP = id (*)(id, SEL, ...);
using Method = struct objc_method*;
using Ivar = struct objc_ivar*;
struct objc_super {
    id self;
    Class super_class;
};

Class objc_getClass(const char* name);
Class objc_lookUpClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class cls);
struct objc_object* objc_getProtocol(const char* name);
signed char class_addIvar(Class cls, const char* name, size_t size, uint8_t alignment, const char* types);
signed char class_addMethod(Class cls, SEL name, IMP imp, const char* types);
signed char class_addProtocol(Class cls, struct objc_object* protocol);
Method class_getInstanceMethod(Class cls, SEL name);
Ivar class_getInstanceVariable(Class cls, const char* name);
Class class_getSuperclass(Class cls);
const char* class_getName(Class cls);
Class object_getClass(id object);
ptrdiff_t ivar_getOffset(Ivar ivar);
const char* method_getTypeEncoding(Method method);
SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector);
signed char sel_isEqual(SEL a, SEL b);
void objc_msgSend();
void objc_msgSend_stret();
void objc_msgSendSuper();
void objc_msgSendSuper_stret();
}

#else

#include <objc/message.h>
#include <objc/runtime.h>

#endif

namespace objc {

/// The width of the platform's floating-point geometry (`CGFloat`).
#if defined(__LP64__)
using Float = double;
#else
using Float = float;
#endif

/// The platform's `NSInteger` and `NSUInteger`: as wide as a register.
using Int = long;
using UInt = unsigned long;

/// The encoding of `BOOL` on this runtime.
#if !defined(__APPLE__)
inline constexpr char boolEncoding = 'C';
#elif defined(__LP64__)
inline constexpr char boolEncoding = 'B';
#else
inline constexpr char boolEncoding = 'c';
#endif

/// The encodings of `NSInteger` and `NSUInteger` on this processor.
#if defined(__LP64__)
inline constexpr char intEncoding = 'q';
inline constexpr char uintEncoding = 'Q';
#else
inline constexpr char intEncoding = 'i';
inline constexpr char uintEncoding = 'I';
#endif

namespace detail {

#ifdef __APPLE__

/// Whether a result of type R is returned through memory and needs the `_stret` entry.
template <class R>
constexpr bool returnsInMemory() {
    if constexpr (!std::is_class_v<R>) {
        return false;
    } else {
#if defined(__arm64__)
        return false;
#elif defined(__arm__)
        return sizeof(R) > 4;
#else
        return sizeof(R) > 16;
#endif
    }
}

template <class R, class... A>
R call(id receiver, SEL selector, A... arguments) {
    using Function = R (*)(id, SEL, A...);
#if !defined(__arm64__)
    if constexpr (returnsInMemory<R>()) {
        return reinterpret_cast<Function>(&objc_msgSend_stret)(receiver, selector, arguments...);
    } else
#endif
    {
        return reinterpret_cast<Function>(&objc_msgSend)(receiver, selector, arguments...);
    }
}

template <class R, class... A>
R callSuper(id receiver, Class superclass, SEL selector, A... arguments) {
    using Function = R (*)(objc_super*, SEL, A...);
    objc_super target{receiver, superclass};
#if !defined(__arm64__)
    if constexpr (returnsInMemory<R>()) {
        return reinterpret_cast<Function>(&objc_msgSendSuper_stret)(&target, selector, arguments...);
    } else
#endif
    {
        return reinterpret_cast<Function>(&objc_msgSendSuper)(&target, selector, arguments...);
    }
}

#else

template <class R, class... A>
R call(id receiver, SEL selector, A... arguments) {
    using Function = R (*)(id, SEL, A...);
    return reinterpret_cast<Function>(objc_msg_lookup(receiver, selector))(receiver, selector, arguments...);
}

template <class R, class... A>
R callSuper(id receiver, Class superclass, SEL selector, A... arguments) {
    using Function = R (*)(id, SEL, A...);
    objc_super target{receiver, superclass};
    return reinterpret_cast<Function>(objc_msg_lookup_super(&target, selector))(receiver, selector, arguments...);
}

#endif

} // namespace detail
} // namespace objc
