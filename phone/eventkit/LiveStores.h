/// The event stores that exist in this process, and the news of the database that each of them announces.
#pragma once

#include "phone/eventkit/StoredObject.h"

namespace phone::eventkit {

/// From any thread.
class LiveStores {
public:
    /// From now on no store ends while it is being told. Once its class exists.
    static void watchReleases();

    static void add(id store);
    static void remove(id store);

    /// The database has changed: at the start of the main thread's next cycle each store posts
    /// EKEventStoreChangedNotification, with itself as the object.
    static void announceChange();
};

} // namespace phone::eventkit
