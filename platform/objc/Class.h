/// Classes of our own: a C++ class whose objects live inside the platform's objects, and the table
/// that says which messages it answers.
#pragma once

#include "platform/objc/Block.h"
#include "platform/objc/Encoding.h"
#include "platform/objc/Memory.h"
#include "platform/objc/Object.h"

namespace objc {

template <class T>
class ClassTable;

/// What the kernel keeps of a class of our own.
struct PeerClass {
    Class cls = nullptr;
    std::ptrdiff_t offset = 0; // of the peer inside the object
    long live = 0;             // peers that exist now
    const char* name = nullptr;
    PeerClass* next = nullptr; // the list of all classes made so far
};

/// The classes made so far, newest first; for counting what is alive.
PeerClass* peerClasses();

namespace detail {

template <class T>
struct Peer {
    bool alive; // zero when the runtime hands out the memory
    id answer;  // of the superclass's initialiser
    alignas(T) unsigned char storage[sizeof(T)];

    T* get() { return alive ? reinterpret_cast<T*>(storage) : nullptr; }
};

template <class T>
inline constinit PeerClass peerClass{};

template <class T>
Peer<T>* peerIn(id object) {
    return reinterpret_cast<Peer<T>*>(reinterpret_cast<char*>(object) + peerClass<T>.offset);
}

/// Makes the class pair and enters it into the list. False when the name is taken or the superclass is
/// absent: the class then does not exist, and everything made of it is nil.
bool allocate(PeerClass& peer, Class superclass, const char* name, std::size_t size, std::size_t alignment);
void registerClass(PeerClass& peer);
void addMethod(Class cls, SEL selector, IMP imp, const char* types);
/// In debug builds stops the program when the superclass does not implement the selector with these types.
void checkOverride(Class cls, SEL selector, const char* types);

/// A C++ method as a function that the runtime can call.
template <class T, class Signature>
struct Trampoline;

template <class A>
using Received = decltype(Wire<std::remove_cvref_t<A>>::send(*static_cast<const std::remove_cvref_t<A>*>(nullptr)));

template <class T, class R, class... A>
struct TrampolineOf {
    using Out = typename ResultWire<R>::Out;
    static constexpr auto& types = methodTypes<R, A...>;

    template <FixedString Sel, auto Method>
    static Out call(id self, SEL, Received<A>... arguments) {
        T* peer = peerIn<T>(self)->get();
        if (peer == nullptr) {
            return Out(); // the message came after the peer's destruction
        }
        Keep alive(self);
        if constexpr (std::is_void_v<R>) {
            (peer->*Method)(Wire<std::remove_cvref_t<A>>::receive(arguments)...);
        } else if constexpr (Handle<R>) {
            R result = (peer->*Method)(Wire<std::remove_cvref_t<A>>::receive(arguments)...);
            id given = result.relinquish();
            if constexpr (!givesOwnership(Sel)) {
                detail::call<id>(given, selector<"autorelease">());
            }
            return given;
        } else if constexpr (BackPointer<R>) {
            // Not even for the moment of the pool: the object may be on its way out.
            return (peer->*Method)(Wire<std::remove_cvref_t<A>>::receive(arguments)...).raw();
        } else {
            return static_cast<Out>((peer->*Method)(Wire<std::remove_cvref_t<A>>::receive(arguments)...));
        }
    }

    /// An initialiser: the method sets the peer up, and what the superclass answered to `super` is the result.
    template <auto Method>
    static id init(id self, SEL, Received<A>... arguments) {
        Peer<T>* peer = peerIn<T>(self);
        if (!peer->alive) {
            return self;
        }
        Keep alive(self); // a superclass that answers nil or another object lets go of its receiver
        peer->answer = self;
        (peer->get()->*Method)(Wire<std::remove_cvref_t<A>>::receive(arguments)...);
        return peer->answer;
    }
};

template <class T, class C, class R, class... A>
struct Trampoline<T, R (C::*)(A...)> : TrampolineOf<T, R, A...> {};
template <class T, class C, class R, class... A>
struct Trampoline<T, R (C::*)(A...) const> : TrampolineOf<T, R, A...> {};

/// A C++ function as a class method.
template <class Signature>
struct ClassTrampoline;

template <class R, class... A>
struct ClassTrampoline<R (*)(A...)> {
    using Out = typename ResultWire<R>::Out;
    static constexpr auto& types = methodTypes<R, A...>;

    template <FixedString Sel, auto Function>
    static Out call(id, SEL, Received<A>... arguments) {
        if constexpr (std::is_void_v<R>) {
            Function(Wire<std::remove_cvref_t<A>>::receive(arguments)...);
        } else if constexpr (Handle<R>) {
            id given = Function(Wire<std::remove_cvref_t<A>>::receive(arguments)...).relinquish();
            if constexpr (!givesOwnership(Sel)) {
                if (given != nullptr) {
                    detail::call<id>(given, selector<"autorelease">());
                }
            }
            return given;
        } else {
            return static_cast<Out>(Function(Wire<std::remove_cvref_t<A>>::receive(arguments)...));
        }
    }
};

template <class Signature>
struct MemberOf;
template <class T, class V>
struct MemberOf<V T::*> {
    using Value = V;
};

} // namespace detail

/// The messages that a class of ours answers. Handed to `T::define` once, before the class is registered.
template <class T>
class ClassTable {
public:
    explicit ClassTable(Class cls) : _cls(cls) {}

    /// A new message. The encoding comes from the C++ signature.
    template <FixedString Sel, auto Method>
    ClassTable& def() {
        return add<Sel, Method>(detail::Trampoline<T, decltype(Method)>::types.text);
    }
    /// A new message whose encoding is fixed by design.
    template <FixedString Sel, auto Method>
    ClassTable& def(const char* encoding) {
        return add<Sel, Method>(encoding);
    }
    /// A message that the superclass answers too.
    template <FixedString Sel, auto Method>
    ClassTable& overrides() {
        const char* types = detail::Trampoline<T, decltype(Method)>::types.text;
        detail::checkOverride(_cls, selector<Sel>(), types);
        return add<Sel, Method>(types);
    }
    /// A message that a control, a bar item or a recogniser sends with itself as its argument.
    template <FixedString Sel, auto Method>
    ClassTable& action() {
        static_assert(arity(Sel) == 1, "an action takes its sender");
        return def<Sel, Method>();
    }
    /// An initialiser. The method sets the peer up and gives nothing; the message answers what the superclass's
    /// initialiser did, which the method sends with `super`.
    template <FixedString Sel, auto Method>
    ClassTable& init() {
        static_assert(family(Sel) == Family::Init);
        using Call = detail::Trampoline<T, decltype(Method)>;
        static constexpr auto types = FixedString("@") + dropFirst(Call::types);
        detail::addMethod(_cls, selector<Sel>(), reinterpret_cast<IMP>(&Call::template init<Method>), types.text);
        return *this;
    }
    /// A message to the class itself.
    template <FixedString Sel, auto Function>
    ClassTable& classMethod() {
        using Call = detail::ClassTrampoline<decltype(Function)>;
        detail::addMethod(object_getClass(reinterpret_cast<id>(_cls)), selector<Sel>(),
                          reinterpret_cast<IMP>(&Call::template call<Sel, Function>), Call::types.text);
        return *this;
    }
    /// A message that answers a field.
    template <FixedString Sel, auto Field>
    ClassTable& get() {
        return def<Sel, &T::template fieldGetter<Field>>();
    }
    /// A message that sets a field.
    template <FixedString Sel, auto Field>
    ClassTable& set() {
        return def<Sel, &T::template fieldSetter<Field>>();
    }
    /// Declares that the class follows a protocol, where the platform knows one of this name.
    ClassTable& conforms(const char* protocol) {
        if (auto* known = objc_getProtocol(protocol)) {
            class_addProtocol(_cls, known);
        }
        return *this;
    }

private:
    template <std::size_t N>
    static constexpr FixedString<N - 1> dropFirst(const FixedString<N>& text) {
        FixedString<N - 1> rest;
        for (std::size_t i = 1; i < N; ++i) {
            rest.text[i - 1] = text.text[i];
        }
        return rest;
    }

    template <FixedString Sel, auto Method>
    ClassTable& add(const char* types) {
        using Call = detail::Trampoline<T, decltype(Method)>;
        detail::addMethod(_cls, selector<Sel>(), reinterpret_cast<IMP>(&Call::template call<Sel, Method>), types);
        return *this;
    }

    Class _cls;
};

/// A class of our own: T is the peer, one C++ object inside each object of the new class; Self is the
/// handle type that T's methods use on themselves; Super is the platform's name for the superclass.
/// The peer is made with the object and destroyed in its `dealloc`; its `self` does not own.
///
/// A class of ours that derives from another of ours names it as `Ref<Other>`: each class has its own
/// peer in the object, so that the fields of both exist once.
template <class T, class Self, class Super>
class DefinesAs : public Self {
    static_assert(Handle<Self> && Handle<Super>);
    static_assert(!requires { &Self::define; }, "derive from Ref<> of a class of our own, not from its peer");

public:
    DefinesAs(const DefinesAs&) = delete;
    DefinesAs& operator=(const DefinesAs&) = delete;

    /// The class, made at the first call; nil when its name is taken or its superclass absent.
    static Class definedClass() {
        PeerClass& peer = detail::peerClass<T>;
        if (Class known = __atomic_load_n(&peer.cls, __ATOMIC_ACQUIRE)) {
            return known;
        }
        using Storage = detail::Peer<T>;
        if (!detail::allocate(peer, classOf<Super>(), T::objc_name, sizeof(Storage), alignof(Storage))) {
            return nullptr;
        }
        Class meta = object_getClass(reinterpret_cast<id>(peer.cls));
        detail::addMethod(meta, selector<"allocWithZone:">(), reinterpret_cast<IMP>(&allocWithZone), "@@:^v");
        detail::addMethod(peer.cls, selector<"dealloc">(), reinterpret_cast<IMP>(&dealloc), "v@:");
        ClassTable<T> table(peer.cls);
        T::define(table);
        detail::registerClass(peer);
        return peer.cls;
    }

    /// The peer inside an object of this class or a subclass; nullptr for nil, for any other object, and
    /// after the peer's destruction. Valid as long as the object lives.
    static T* of(const Object& object) { return of(object.raw()); }
    static T* of(id object) {
        Class cls = detail::peerClass<T>.cls;
        if (object == nullptr || cls == nullptr) {
            return nullptr;
        }
        for (Class at = object_getClass(object); at != nullptr; at = class_getSuperclass(at)) {
            if (at == cls) {
                return detail::peerIn<T>(object)->get();
            }
        }
        return nullptr;
    }

    /// How many objects of this class and its subclasses are alive.
    static long liveCount() { return detail::peerClass<T>.live; }

    template <auto Field>
    auto fieldGetter() {
        return static_cast<T*>(this)->*Field;
    }
    template <auto Field>
    void fieldSetter(const typename detail::MemberOf<decltype(Field)>::Value& value) {
        static_cast<T*>(this)->*Field = value;
    }

protected:
    DefinesAs() = default;
    ~DefinesAs() { static_cast<Object*>(this)->_id = nullptr; }

    /// Sends `Sel` to the superclass's implementation. Of an initialiser the answer says whether there is
    /// anything to set up: not where the superclass has given nil, or another object.
    template <FixedString Sel, class R = void, class... A>
    auto super(const A&... arguments) const {
        static_assert(arity(Sel) == sizeof...(A), "the selector's colons and the arguments differ in number");
        Class superclass = class_getSuperclass(detail::peerClass<T>.cls);
        if constexpr (family(Sel) == Family::Init) {
            return answered(detail::callSuper<id, detail::Sent<A>...>(this->raw(), superclass, selector<Sel>(),
                                                                      detail::Wire<A>::send(arguments)...));
        } else {
            using Out = typename detail::ResultWire<R>::Out;
            return detail::result<Sel, R>([&]() -> Out {
                return detail::callSuper<Out, detail::Sent<A>...>(this->raw(), superclass, selector<Sel>(),
                                                                  detail::Wire<A>::send(arguments)...);
            });
        }
    }

    /// Sends another initialiser to the object itself, where a subclass may have overridden it. The answer is as
    /// that of `super`.
    template <FixedString Init, class... A>
    bool redirect(const A&... arguments) const {
        static_assert(family(Init) == Family::Init && arity(Init) == sizeof...(A));
        return answered(
            detail::call<id, detail::Sent<A>...>(this->raw(), selector<Init>(), detail::Wire<A>::send(arguments)...));
    }

private:
    /// Takes the answer of the initialiser that this one has passed on to.
    bool answered(id answer) const {
        detail::peerIn<T>(this->raw())->answer = answer;
        return answer == this->raw();
    }

    static id allocWithZone(id cls, SEL selector, void* zone) {
        PeerClass& peer = detail::peerClass<T>;
        Class metaSuper = class_getSuperclass(object_getClass(reinterpret_cast<id>(peer.cls)));
        id made = detail::callSuper<id>(cls, metaSuper, selector, zone);
        if (made == nullptr) {
            return nullptr;
        }
        detail::Peer<T>* at = detail::peerIn<T>(made);
        T* built = new (at->storage, Here{}) T();
        static_cast<Object*>(built)->_id = made;
        at->alive = true;
        __atomic_add_fetch(&peer.live, 1, __ATOMIC_RELAXED);
        return made;
    }

    static void dealloc(id self, SEL selector) {
        PeerClass& peer = detail::peerClass<T>;
        detail::Peer<T>* at = detail::peerIn<T>(self);
        if (T* built = at->get()) {
            at->alive = false; // from here on messages to this class's methods do nothing
            built->~T();
            __atomic_sub_fetch(&peer.live, 1, __ATOMIC_RELAXED);
        }
        detail::callSuper<void>(self, class_getSuperclass(peer.cls), selector);
    }
};

/// A new subclass of a platform class: `class NoteController : public objc::Defines<NoteController, UIViewController>`.
template <class T, Handle Super>
using Defines = DefinesAs<T, Super, Super>;

/// A platform class itself, implemented here: its peers speak to themselves through the class's own handle.
template <class T, Handle Projected, Handle Super>
class Implements : public DefinesAs<T, Projected, Super> {
public:
    static constexpr const char* objc_name = Projected::objc_name;
};

/// An owning reference to an object of a class of our own, with its C++ methods at hand.
template <class T>
class Ref : public Object {
public:
    static constexpr const char* objc_name = T::objc_name;
    static Class definedClass() { return T::definedClass(); }

    using Object::Object;
    /// A new object, made with `init`.
    static Ref make() { return objc::make<Ref>(); }

    /// The same object as a handle of any class that T derives from.
    template <Handle H>
        requires std::convertible_to<const T&, H>
    operator H() const { // NOLINT: a reference is its object
        return as<H>(*this);
    }

    /// The peer. Only for a reference that is not nil and whose object is not being destroyed.
    T* operator->() const { return detail::peerIn<T>(raw())->get(); }
    T& operator*() const { return *operator->(); }
};

} // namespace objc
