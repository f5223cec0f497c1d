/// Handles: C++ values that own a reference to an object, send it messages, and are safe on nil.
#pragma once

#include "platform/objc/Memory.h"
#include "platform/objc/Runtime.h"
#include "platform/objc/Selector.h"

namespace objc {

class Object;
template <class T, class Self, class Super>
class DefinesAs;

template <class T>
concept Handle = std::derived_from<T, Object>;

namespace detail {
template <class T>
struct Wire;
template <class T>
using Sent = decltype(Wire<T>::send(*static_cast<const T*>(nullptr)));
} // namespace detail

/// An owning reference to an object, or nil. Copying retains, moving is free, destroying releases.
/// Every message to nil answers a zero of its result's type.
class Object {
public:
    constexpr Object() = default;
    constexpr Object(std::nullptr_t) {} // NOLINT: nil converts to every handle
    constexpr Object(const Object& other) : _id(other._id) {
        if (_id != nullptr) {
            retain(_id);
        }
    }
    constexpr Object(Object&& other) noexcept : _id(other._id) { other._id = nullptr; }
    Object& operator=(const Object& other) {
        Object kept(other);
        swap(kept);
        return *this;
    }
    Object& operator=(Object&& other) noexcept {
        Object kept(objc::move(other));
        swap(kept);
        return *this;
    }
    constexpr ~Object() {
        if (_id != nullptr) {
            release(_id);
        }
    }

    /// The object itself, not retained; for the runtime's C functions.
    constexpr id raw() const { return _id; }
    explicit constexpr operator bool() const { return _id != nullptr; }
    /// Identity. For equality of values send `isEqual:`.
    friend constexpr bool operator==(const Object& a, const Object& b) { return a._id == b._id; }

    /// Sends the message `Sel` and answers its result, a zero when this is nil. A result of a handle
    /// type is retained, or taken over when the selector's family says that it is the sender's.
    template <FixedString Sel, class R = void, class... A>
    R send(const A&... arguments) const;

    /// Gives the reference up without releasing it.
    constexpr id relinquish() {
        id given = _id;
        _id = nullptr;
        return given;
    }

    static void retain(id object) { detail::call<id>(object, selector<"retain">()); }
    static void release(id object) { detail::call<void>(object, selector<"release">()); }

protected:
    constexpr void swap(Object& other) noexcept {
        id mine = _id;
        _id = other._id;
        other._id = mine;
    }

private:
    template <class T>
    friend T adopt(id owned);
    template <class T>
    friend T borrow(id object);
    template <class, class, class>
    friend class DefinesAs;

    id _id = nullptr;
};

/// Takes over a reference that the caller owns.
template <class T>
T adopt(id owned) {
    T handle;
    static_cast<Object&>(handle)._id = owned;
    return handle;
}

/// Makes a handle of an object that somebody else owns: retains it.
template <class T>
T borrow(id object) {
    if (object != nullptr) {
        Object::retain(object);
    }
    return adopt<T>(object);
}

/// The same object seen as another class. Not checked: see `isKind`.
template <Handle T>
T as(const Object& object) {
    return borrow<T>(object.raw());
}

/// A visible back-pointer: refers to an object without keeping it alive.
template <Handle T>
class Unretained {
public:
    constexpr Unretained() = default;
    constexpr Unretained(std::nullptr_t) {}            // NOLINT: nil converts
    Unretained(const T& object) : _id(object.raw()) {} // NOLINT: a handle converts to its back-pointer

    T get() const { return borrow<T>(_id); }
    constexpr id raw() const { return _id; }
    explicit constexpr operator bool() const { return _id != nullptr; }

private:
    id _id = nullptr;
};

namespace detail {
template <class T>
inline constexpr bool isUnretained = false;
template <class T>
inline constexpr bool isUnretained<Unretained<T>> = true;
} // namespace detail

template <class T>
concept BackPointer = detail::isUnretained<T>;

namespace detail {
/// The object in a variable that several threads may replace, as a reference that the caller owns.
id ownedValue(const id& variable);
/// Puts a reference, given up by the caller, into such a variable, and releases what was there.
void replaceValue(id& variable, id owned);
} // namespace detail

/// A process-wide variable that owns its value and is never destroyed: nothing runs at process exit. Several threads
/// may read and replace it: whoever reads gets a value that is its own, as from an atomic property.
template <Handle T>
class Global {
    /// What `->` works on: the value stays alive until the end of the expression.
    struct Held {
        T value;
        const T* operator->() const { return &value; }
    };

public:
    constexpr Global() = default;
    Global& operator=(T value) {
        detail::replaceValue(_object, value.relinquish());
        return *this;
    }
    Global& operator=(const Global& other) { return *this = other.get(); }

    T get() const { return adopt<T>(detail::ownedValue(_object)); }
    operator T() const { return get(); } // NOLINT: stands for its value
    Held operator->() const { return {get()}; }
    explicit operator bool() const { return __atomic_load_n(&_object, __ATOMIC_RELAXED) != nullptr; }

private:
    id _object = nullptr;
};

namespace detail {

/// How a C++ type travels in a message. `send` makes the argument that goes out, `receive` the value
/// of an argument or result that comes in; `Out` is the type of a result as the runtime returns it.
template <class T>
struct Wire {
    using Out = T;
    static T send(const T& value) { return value; }
    static T receive(T value) { return value; }
};

template <class T>
    requires std::integral<T> || std::is_enum_v<T>
struct Wire<T> {
    using Out = T;
    static constexpr bool isSigned = std::is_signed_v<T> || std::is_enum_v<T>;
    // Callers and callees differ in who extends a small integer, so it travels as a whole word.
    using Word = std::conditional_t<(sizeof(T) > sizeof(Int)), T, std::conditional_t<isSigned, Int, UInt>>;
    static Word send(const T& value) { return static_cast<Word>(value); }
    static T receive(Word value) { return static_cast<T>(value); }
};

template <>
struct Wire<bool> {
    using Out = unsigned char;
    static UInt send(const bool& value) { return value ? 1 : 0; }
    static bool receive(UInt value) { return (value & 0xff) != 0; }
};

template <Handle T>
struct Wire<T> {
    using Out = id;
    static id send(const T& handle) { return handle.raw(); }
    static T receive(id object) { return borrow<T>(object); }
};

template <Handle T>
struct Wire<Unretained<T>> {
    using Out = id;
    static id send(const Unretained<T>& handle) { return handle.raw(); }
    static Unretained<T> receive(id object) { return borrow<T>(object); }
};

template <>
struct Wire<std::nullptr_t> {
    static id send(const std::nullptr_t&) { return nullptr; }
};

/// Answers `object`'s result of `Sel` as R; the receiver is not nil.
template <FixedString Sel, class R, class Call>
R result(Call&& call) {
    if constexpr (std::is_void_v<R>) {
        call();
    } else if constexpr (Handle<R>) {
        if constexpr (givesOwnership(Sel)) {
            return adopt<R>(call());
        } else {
            return borrow<R>(call());
        }
    } else if constexpr (std::same_as<typename Wire<R>::Out, R>) {
        return call();
    } else {
        return Wire<R>::receive(call());
    }
}

template <class R>
struct ResultWire {
    using Out = typename Wire<R>::Out;
};
template <>
struct ResultWire<void> {
    using Out = void;
};

} // namespace detail

template <FixedString Sel, class R, class... A>
R Object::send(const A&... arguments) const {
    static_assert(arity(Sel) == sizeof...(A), "the selector's colons and the arguments differ in number");
    static_assert(family(Sel) != Family::Init, "an initialiser consumes its receiver: use make<>");
    if (_id == nullptr) {
        return R();
    }
    using Out = typename detail::ResultWire<R>::Out;
    return detail::result<Sel, R>([&]() -> Out {
        return detail::call<Out, detail::Sent<A>...>(_id, selector<Sel>(), detail::Wire<A>::send(arguments)...);
    });
}

/// Keeps an object alive for a scope.
class Keep {
public:
    explicit Keep(id object) : _id(object) { Object::retain(_id); }
    ~Keep() { Object::release(_id); }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;

private:
    id _id;
};

namespace detail {
inline Class found(Class& cache, const char* name) {
    Class known = __atomic_load_n(&cache, __ATOMIC_RELAXED);
    if (known == nullptr) {
        known = objc_getClass(name); // a failed look-up is not kept: the class may be loaded later
        __atomic_store_n(&cache, known, __ATOMIC_RELAXED);
    }
    return known;
}
template <class T>
inline constinit Class cachedClass = nullptr;
} // namespace detail

/// The class that the handle type T stands for, or nil where the platform has none. A class of our
/// own is made at its first use.
template <class T>
Class classOf() {
    if constexpr (requires { T::definedClass(); }) {
        return T::definedClass();
    } else {
        return detail::found(detail::cachedClass<T>, T::objc_name);
    }
}

/// Sends a message to the class T, as `send` does to an object.
template <class T, FixedString Sel, class R = void, class... A>
R sendClass(const A&... arguments) {
    Class cls = classOf<T>();
    if (cls == nullptr) {
        return R();
    }
    using Out = typename detail::ResultWire<R>::Out;
    return detail::result<Sel, R>([&]() -> Out {
        return detail::call<Out, detail::Sent<A>...>(reinterpret_cast<id>(cls), selector<Sel>(),
                                                     detail::Wire<A>::send(arguments)...);
    });
}

/// `[[T alloc] Init…]`: a new object, or nil where the class does not exist.
template <class T, FixedString Init = "init", class... A>
T make(const A&... arguments) {
    static_assert(family(Init) == Family::Init, "make<> wants an initialiser");
    static_assert(arity(Init) == sizeof...(A), "the selector's colons and the arguments differ in number");
    Class cls = classOf<T>();
    if (cls == nullptr) {
        return T();
    }
    id made = detail::call<id>(reinterpret_cast<id>(cls), selector<"alloc">());
    if (made == nullptr) {
        return T();
    }
    return adopt<T>(detail::call<id, detail::Sent<A>...>(made, selector<Init>(), detail::Wire<A>::send(arguments)...));
}

/// Whether the object is one of T or of a class that derives from it. No for nil.
template <Handle T>
bool isKind(const Object& object) {
    Class cls = classOf<T>();
    if (cls == nullptr || !object) {
        return false;
    }
    for (Class at = object_getClass(object.raw()); at != nullptr; at = class_getSuperclass(at)) {
        if (at == cls) {
            return true;
        }
    }
    return false;
}

/// Whether the object's class implements the message; asks the object itself, so that a class may say
/// no to what it inherits. No for nil.
template <FixedString Sel>
bool responds(const Object& object) {
    return object.send<"respondsToSelector:", bool>(selector<Sel>());
}

} // namespace objc
