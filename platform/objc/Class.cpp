#include "platform/objc/Class.h"

namespace objc {

namespace {
constinit PeerClass* newest = nullptr;
}

PeerClass* peerClasses() { return newest; }

namespace detail {

bool allocate(PeerClass& peer, Class superclass, const char* name, std::size_t size, std::size_t alignment) {
    if (superclass == nullptr || objc_lookUpClass(name) != nullptr) {
        return false;
    }
    Class made = objc_allocateClassPair(superclass, name, 0);
    if (made == nullptr) {
        return false;
    }
    const auto log2 = static_cast<std::uint8_t>(__builtin_ctzl(alignment));
    if (!class_addIvar(made, name, size, log2, "?")) {
        return false;
    }
    peer.cls = made;
    peer.name = name;
    peer.next = newest;
    newest = &peer;
    return true;
}

void registerClass(PeerClass& peer) {
    objc_registerClassPair(peer.cls);
    peer.offset = ivar_getOffset(class_getInstanceVariable(peer.cls, peer.name));
}

void addMethod(Class cls, SEL selector, IMP imp, const char* types) { class_addMethod(cls, selector, imp, types); }

void checkOverride([[maybe_unused]] Class cls, [[maybe_unused]] SEL selector, [[maybe_unused]] const char* types) {
#ifndef NDEBUG
    Method inherited = class_getInstanceMethod(class_getSuperclass(cls), selector);
    if (inherited == nullptr || !encodingsAgree(method_getTypeEncoding(inherited), types)) {
        __builtin_trap();
    }
#endif
}

} // namespace detail

namespace {

bool isQualifierOrOffset(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == 'r' || c == 'n' || c == 'N' || c == 'o' || c == 'O' ||
           c == 'R' || c == 'V';
}

/// Passes over what does not count: qualifiers, offsets, and the name of a structure.
const char* significant(const char* at) {
    while (isQualifierOrOffset(*at)) {
        ++at;
    }
    return at;
}

const char* skipStructureName(const char* at) {
    const char* ahead = at;
    while (*ahead != 0 && *ahead != '=' && *ahead != '}') {
        ++ahead;
    }
    return *ahead == '=' ? ahead + 1 : at;
}

} // namespace

bool encodingsAgree(const char* a, const char* b) {
    for (;;) {
        a = significant(a);
        b = significant(b);
        if (*a != *b) {
            return false;
        }
        if (*a == 0) {
            return true;
        }
        const bool structure = *a == '{';
        ++a;
        ++b;
        if (structure) {
            a = skipStructureName(a);
            b = skipStructureName(b);
        }
    }
}

} // namespace objc
