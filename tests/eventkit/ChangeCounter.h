/// Counts the news of the calendar database.
#pragma once

#include "phone/device/MainThread.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/NSNotification.h"

#include <gtest/gtest.h>

class ChangeCounter : public objc::Defines<ChangeCounter, NSObject> {
public:
    static constexpr auto objc_name = "TestChangeCounter";
    static void define(objc::ClassTable<ChangeCounter>& c) { c.def<"storeChanged:", &ChangeCounter::storeChanged>(); }
    ~ChangeCounter() { NSNotificationCenter::defaultCenter().removeObserver(*this); }

    /// From now on, of this store, or of any.
    void observe(const EKEventStore& store = nullptr) {
        NSNotificationCenter::defaultCenter().addObserver(*this, objc::selector<"storeChanged:">(),
                                                          "EKEventStoreChangedNotification"_ns, store);
    }

    int number = 0;

private:
    void storeChanged(const NSNotification& news) {
        ++number;
        EXPECT_TRUE(phone::isMainThread());
        EXPECT_TRUE(objc::isKind<EKEventStore>(news.send<"object", NSObject>()));
    }
};
