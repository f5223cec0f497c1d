/// The runtime's own function replaces an inherited method in the class that defines it, for all its
/// subclasses at once. On a device the parent stays as it is: this definition comes first, for every library.
#include "platform/objc/Runtime.h"

#include <cstdlib>

namespace {

/// nullptr for a method that the class only inherits.
Method ownMethod(Class cls, SEL selector) {
    unsigned count = 0;
    Method* methods = class_copyMethodList(cls, &count);
    Method found = nullptr;
    for (unsigned i = 0; i < count && found == nullptr; ++i) {
        if (sel_isEqual(method_getName(methods[i]), selector)) {
            found = methods[i];
        }
    }
    std::free(methods);
    return found;
}

} // namespace

extern "C" __attribute__((visibility("default"))) IMP class_replaceMethod(Class cls, SEL selector, IMP implementation,
                                                                          const char* types) {
    if (cls == nullptr || selector == nullptr) {
        return nullptr;
    }
    if (Method own = ownMethod(cls, selector)) {
        return method_setImplementation(own, implementation);
    }
    class_addMethod(cls, selector, implementation, types);
    return nullptr;
}
