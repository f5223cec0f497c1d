// What the store announces of the database.

#include "tests/eventkit/ChangeCounter.h"
#include "tests/eventkit/StoreTest.h"

using phone::Access;

namespace {

class ChangesTest : public StoreTest {
protected:
    ChangesTest() {
        useReminders(Access::Allow);
        useEvents(Access::Allow);
    }
    static EKEvent event(const EKEventStore& store) {
        const auto made = EKEvent::withEventStore(store);
        made.setCalendar(store.defaultCalendarForNewEvents());
        made.setStartDate(NSDate::now());
        made.setEndDate(NSDate::now());
        return made;
    }
};

} // namespace

// Holds: changes-are-announced
TEST_F(ChangesTest, OnesOwnSavesAreAnnouncedByTheStoreInTheMainThreadsNextCycle) {
    const auto store = this->store();
    const auto counter = objc::Ref<ChangeCounter>::make();
    counter->observe(store);
    int whileSaving = -1;

    run([&] {
        store.saveReminder(reminder(store), true);
        whileSaving = counter->number;
    });
    EXPECT_EQ(whileSaving, 0);
    EXPECT_EQ(counter->number, 1);

    run([&] { store.saveEvent(event(store), EKSpan::FutureEvents, true); });
    EXPECT_EQ(counter->number, 2);
}

// Holds: changes-are-announced
TEST_F(ChangesTest, EachStoreThatExistsAnnouncesAChangeByAnother) {
    const auto store = this->store();
    const auto other = EKEventStore::make();
    {
        const objc::Pool pool;
        EKEventStore::make(); // gone by then
    }
    const auto all = objc::Ref<ChangeCounter>::make();
    all->observe();
    const auto others = objc::Ref<ChangeCounter>::make();
    others->observe(other);

    run([&] { store.saveReminder(reminder(store), true); });

    EXPECT_EQ(all->number, 2);
    EXPECT_EQ(others->number, 1);
}

// Holds: changes-are-announced
TEST_F(ChangesTest, WhatIsNotWrittenIsNotAnnounced) {
    const auto store = this->store();
    const auto counter = objc::Ref<ChangeCounter>::make();
    counter->observe();
    const auto refused = reminder(store);
    refused.setPriority(10);

    run([&] {
        store.saveReminder(reminder(store), false);
        store.saveReminder(refused, true);
    });
    EXPECT_EQ(counter->number, 0);

    run([&] {
        store.commit();
        store.commit();
    });
    EXPECT_EQ(counter->number, 1);
}
