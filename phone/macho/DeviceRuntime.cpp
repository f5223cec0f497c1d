#include "phone/macho/DeviceRuntime.h"

#include "phone/macho/MessageSend.h"
#include "platform/objc/Block.h"
#include "platform/objc/Runtime.h"

#include <sys/random.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_set>

extern "C" {
void _Block_object_assign(void* destination, const void* object, int flags);
void _Block_object_dispose(const void* object, int flags);
extern void* _NSConcreteStackBlock[];
extern void* _NSConcreteGlobalBlock[];
}

namespace phone::macho {

namespace {

constexpr char deviceTruth = 'B';
using DeviceBool = signed char;

DeviceBool addIvar(Class cls, const char* name, std::size_t size, std::uint8_t alignment, const char* types) {
    return class_addIvar(cls, name, size, alignment, types) ? 1 : 0;
}
DeviceBool addMethod(Class cls, SEL name, IMP imp, const char* types) {
    return class_addMethod(cls, name, imp, withTruthAs(objc::boolEncoding, types).c_str()) ? 1 : 0;
}
DeviceBool addProtocol(Class cls, Protocol* protocol) { return class_addProtocol(cls, protocol) ? 1 : 0; }
DeviceBool selectorsAreEqual(SEL a, SEL b) { return sel_isEqual(a, b) ? 1 : 0; }

/// Encodings live as long as their methods: for ever, each once.
const char* typeEncoding(Method method) {
    static std::mutex mutex;
    static auto& texts = *new std::unordered_set<std::string>;
    const char* types = method_getTypeEncoding(method);
    if (types == nullptr) {
        return nullptr;
    }
    const std::scoped_lock lock(mutex);
    return texts.insert(withTruthAs(deviceTruth, types)).first->c_str();
}

/// What a function keeps beside its variables to notice that it wrote past them.
const std::uintptr_t& stackGuard() {
    static const std::uintptr_t guard = [] {
        std::uintptr_t random = 0;
        return getrandom(&random, sizeof(random), 0) == sizeof(random) ? random : 0x5bd1e995a3c7f12dU;
    }();
    return guard;
}

[[noreturn]] void stackSmashed() {
    std::fputs("a loaded library wrote past the variables of a function\n", stderr);
    std::abort();
}

/// Everything is bound while it is loaded: nothing is left for later.
[[noreturn]] void bindLazily() {
    std::fputs("a loaded library called a function that was not bound\n", stderr);
    std::abort();
}

template <class Function>
const void* code(Function* function) {
    return reinterpret_cast<const void*>(function);
}

} // namespace

std::string withTruthAs(char letter, std::string_view encoding) {
    const char other = letter == deviceTruth ? objc::boolEncoding : deviceTruth;
    std::string text(encoding);
    bool isName = false; // of a structure, up to its `=`, or of a class, between quotes
    for (char& c : text) {
        if (isName) {
            isName = c != '=' && c != '}' && c != ')' && c != '"';
        } else if (c == '{' || c == '(' || c == '"') {
            isName = true;
        } else if (c == other) {
            c = letter;
        }
    }
    return text;
}

void exportRuntime(Exports& exports) {
    exports.add(objectRuntime, {{"_class_addIvar", code(&addIvar)},
                                {"_class_addMethod", code(&addMethod)},
                                {"_class_addProtocol", code(&addProtocol)},
                                {"_class_getInstanceMethod", code(&class_getInstanceMethod)},
                                {"_class_getInstanceVariable", code(&class_getInstanceVariable)},
                                {"_class_getName", code(&class_getName)},
                                {"_class_getSuperclass", code(&class_getSuperclass)},
                                {"_ivar_getOffset", code(&ivar_getOffset)},
                                {"_method_getTypeEncoding", code(&typeEncoding)},
                                {"_objc_allocateClassPair", code(&objc_allocateClassPair)},
                                {"_objc_getClass", code(&objc_getClass)},
                                {"_objc_getProtocol", code(&objc_getProtocol)},
                                {"_objc_lookUpClass", code(&objc_lookUpClass)},
                                {"_objc_msgSend", code(&phoneMessageSend)},
                                {"_objc_msgSendSuper", code(&phoneMessageSendSuper)},
                                {"_objc_registerClassPair", code(&objc_registerClassPair)},
                                {"_object_getClass", code(&object_getClass)},
                                {"_sel_getName", code(&sel_getName)},
                                {"_sel_isEqual", code(&selectorsAreEqual)},
                                {"_sel_registerName", code(&sel_registerName)}});
#if defined(__x86_64__)
    exports.add(objectRuntime, {{"_objc_msgSend_stret", code(&phoneMessageSendInMemory)},
                                {"_objc_msgSendSuper_stret", code(&phoneMessageSendSuperInMemory)}});
#endif
    exports.add(system, {{"__Block_copy", code(&_Block_copy)},
                         {"__Block_object_assign", code(&_Block_object_assign)},
                         {"__Block_object_dispose", code(&_Block_object_dispose)},
                         {"__Block_release", code(&_Block_release)},
                         {"__NSConcreteGlobalBlock", &_NSConcreteGlobalBlock},
                         {"__NSConcreteStackBlock", &_NSConcreteStackBlock},
                         {"___stack_chk_fail", code(&stackSmashed)},
                         {"___stack_chk_guard", &stackGuard()},
                         {"_memcmp", code(&std::memcmp)},
                         {"_memcpy", code(&std::memcpy)},
                         {"_memmove", code(&std::memmove)},
                         {"_memset", code(&std::memset)},
                         {"_strlen", code(&std::strlen)},
                         {"dyld_stub_binder", code(&bindLazily)}});
}

} // namespace phone::macho
