#include "phone/eventkit/LiveStores.h"

#include "phone/device/RunLoop.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/Text.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/NSNotification.h"

#include <mutex>
#include <vector>

namespace phone::eventkit {

namespace {

struct Registry {
    std::recursive_mutex mutex; // one that ends is removed while it is being released
    std::vector<id> stores;     // not retained
};

Registry& registry() {
    static auto* all = new Registry; // stores may end until the very end of the process
    return *all;
}

constinit void (*releaseUnwatched)(id, SEL) = nullptr;

/// What is in the registry is not on its way out as long as the registry is locked.
void release(id self, SEL selector) {
    const std::lock_guard lock(registry().mutex);
    releaseUnwatched(self, selector);
}

void tellEach() {
    std::vector<EKEventStore> told;
    {
        const std::lock_guard lock(registry().mutex);
        for (const id store : registry().stores) {
            told.push_back(objc::borrow<EKEventStore>(store));
        }
    }
    for (const EKEventStore& store : told) {
        NSNotificationCenter::defaultCenter().post(string("EKEventStoreChangedNotification"), store, nullptr);
    }
}

} // namespace

void LiveStores::watchReleases() { releaseUnwatched = correct<"release">(objc::classOf<EKEventStore>(), &release); }

void LiveStores::add(id store) {
    const std::lock_guard lock(registry().mutex);
    registry().stores.push_back(store);
}

void LiveStores::remove(id store) {
    const std::lock_guard lock(registry().mutex);
    std::erase(registry().stores, store);
}

void LiveStores::announceChange() { RunLoop::main().perform(&tellEach); }

} // namespace phone::eventkit
