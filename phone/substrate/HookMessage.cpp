#include "phone/foundation/Correct.h"
#include "phone/substrate/SuperThunk.h"
#include "platform/objc/Selector.h"
#include "platform/substrate/Substrate.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

/// The class's own method; nullptr when it only inherits it.
Method ownMethod(Class cls, SEL selector) {
    unsigned count = 0;
    const std::unique_ptr<Method[], decltype(&std::free)> methods(class_copyMethodList(cls, &count), &std::free);
    for (unsigned i = 0; i < count; ++i) {
        if (objc::same(method_getName(methods[i]), selector)) {
            return methods[i];
        }
    }
    return nullptr;
}

void warn(const char* what, Class cls, SEL selector) {
    std::fprintf(stderr, "MSHookMessageEx: %s (%s %s); nothing is hooked\n", what,
                 cls == nullptr ? "nil" : class_getName(cls), selector == nullptr ? "NULL" : sel_getName(selector));
}

} // namespace

// A method of the class itself is swapped. An inherited one is added to the class, under the superclass's
// encoding, and what the caller gets back follows later hooks on the superclass. A class method is hooked
// on the metaclass.
extern "C" [[gnu::visibility("default")]] void MSHookMessageEx(Class cls, SEL selector, IMP replacement,
                                                               IMP* previous) {
    if (cls == nullptr) {
        return warn("there is no class", cls, selector);
    }
    if (selector == nullptr) {
        return warn("there is no selector", cls, selector);
    }
    if (replacement == nullptr) {
        return warn("there is no replacement", cls, selector);
    }
    if (Method own = ownMethod(cls, selector)) {
        const IMP before = method_setImplementation(own, replacement);
        phone::updateSubclasses(cls);
        if (previous != nullptr) {
            *previous = before;
        }
        return;
    }
    Method inherited = class_getInstanceMethod(cls, selector);
    if (inherited == nullptr) {
        return warn("the class does not answer the message", cls, selector);
    }
    if (previous != nullptr) {
        *previous = phone::superThunk(cls, selector);
    }
    class_addMethod(cls, selector, replacement, method_getTypeEncoding(inherited));
}
