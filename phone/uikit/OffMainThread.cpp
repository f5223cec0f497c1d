#include "phone/uikit/OffMainThread.h"

#include "phone/device/Log.h"
#include "phone/device/MainThread.h"
#include "platform/foundation/NSObject.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <string_view>

namespace phone {

namespace {

using Lookup = IMP (*)(id, SEL);

constexpr std::array<std::string_view, 4> forAnyThread = {"UIActivity", "UIColor", "UIFont", "UIImage"};

constinit std::atomic<bool> isWatching = false;

IMP findAndLookUp(id receiver, SEL selector);
/// The runtime's own look-up; the first call finds it.
constinit std::atomic<Lookup> runtimesOwn = &findAndLookUp;

IMP findAndLookUp(id receiver, SEL selector) {
    auto* const found = reinterpret_cast<Lookup>(dlsym(RTLD_NEXT, "objc_msg_lookup"));
    runtimesOwn.store(found, std::memory_order_relaxed);
    return found(receiver, selector);
}

/// Whether objects of this class, or this class itself, belong to the main thread.
bool isBound(Class cls) {
    for (; cls != nullptr; cls = class_getSuperclass(cls)) {
        const std::string_view name = class_getName(cls);
        if (name.starts_with("UI")) {
            return std::find(forAnyThread.begin(), forAnyThread.end(), name) == forAnyThread.end();
        }
    }
    return false;
}

void watch(id receiver, SEL selector) {
    if (receiver == nullptr || !isWatching.load(std::memory_order_relaxed)) {
        return;
    }
    Class cls = object_getClass(receiver);
    const Class object = objc::classOf<NSObject>();
    const Class any = class_isMetaClass(cls) ? object_getClass(reinterpret_cast<id>(object)) : object;
    if (isBound(cls) && class_getInstanceMethod(any, selector) == nullptr) {
        Log::shared().add("offMainThread", {{"class", class_getName(cls)}, {"selector", sel_getName(selector)}});
    }
}

} // namespace

void watchForMessagesOffMainThread() { isWatching = true; }

} // namespace phone

// The runtime's look-up of a method, which every message goes through; this definition comes first, for every library.
extern "C" __attribute__((visibility("default"))) IMP objc_msg_lookup(id receiver, SEL selector) {
    if (!phone::isMainThread()) [[unlikely]] {
        phone::watch(receiver, selector);
    }
    return phone::runtimesOwn.load(std::memory_order_relaxed)(receiver, selector);
}
