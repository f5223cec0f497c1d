// The store answers on threads of its own while the main thread goes on.

#include "phone/foundation/Thread.h"
#include "tests/eventkit/StoreTest.h"

#include <atomic>
#include <latch>
#include <thread>

using phone::Access;

namespace {

class ConcurrentAnswersTest : public StoreTest {
protected:
    ConcurrentAnswersTest() {
        useReminders(Access::Allow);
        useEvents(Access::Allow);
    }
    void answerConcurrently() { boot().setStoreAnswers("concurrent"); }
    bool isMoving() { return boot().request({{"do", "state"}}).at("moving"); }
};

} // namespace

TEST_F(ConcurrentAnswersTest, TheMainThreadGoesOnWhileACompletionRuns) {
    answerConcurrently();
    std::latch goneOn(1);
    std::latch* wait = &goneOn;
    std::atomic<bool> hasReturned = false;
    std::atomic<bool>* returned = &hasReturned;

    run([&] {
        store().requestAccess(EKEntityType::Reminder, ^(bool, id) {
          wait->wait();
          *returned = true;
        });
    });
    EXPECT_FALSE(hasReturned);
    EXPECT_TRUE(isMoving());

    goneOn.count_down();
    settle();
    EXPECT_TRUE(hasReturned);
    EXPECT_FALSE(isMoving());
}

TEST_F(ConcurrentAnswersTest, SettlingWaitsForAnswersThatACompletionAsksForToo) {
    answerConcurrently();
    std::atomic<int> count = 0;
    std::atomic<int>* answers = &count;
    const auto asked = store();

    run([&] {
        asked.requestAccess(EKEntityType::Reminder, ^(bool, id) {
          asked.requestAccess(EKEntityType::Event, ^(bool, id) {
            ++*answers;
          });
          ++*answers;
        });
    });
    settle();

    EXPECT_EQ(count, 2);
}

TEST_F(ConcurrentAnswersTest, AnExceptionInACompletionEndsTheApplication) {
    answerConcurrently();
    expectLogged("exception");
    run([&] {
        store().requestAccess(EKEntityType::Reminder, ^(bool, id) {
          objc::make<NSMutableArray>().at(3);
        });
    });

    EXPECT_THROW(settle(), phone::ScreenError);

    EXPECT_TRUE(boot().isDead());
    EXPECT_NE(boot().epitaph().find("NSRangeException"), std::string::npos);
}

TEST_F(ConcurrentAnswersTest, ManyThreadsSaveIntoOneStoreAndNothingIsLost) {
    constexpr int threads = 8;
    constexpr int each = 10;
    answerConcurrently();
    const auto shared = store();
    run([&] {
        for (int i = 0; i < threads; ++i) {
            shared.requestAccess(EKEntityType::Reminder, ^(bool, id) {
              for (int made = 0; made < each; ++made) {
                  const objc::Pool pool;
                  const auto lists = shared.calendars(EKEntityType::Reminder);
                  const auto reminder = StoreTest::reminder(shared);
                  reminder.setCalendar(lists.at<EKCalendar>(static_cast<objc::UInt>(made) % lists.count()));
                  EXPECT_EQ(failure(shared, reminder), std::nullopt);
              }
            });
        }
        for (int asked = 0; asked < each; ++asked) {
            EXPECT_EQ(titles(shared.calendars(EKEntityType::Reminder)).size(), 3u);
        }
    });
    settle();

    EXPECT_EQ(reminders().size(), static_cast<std::size_t>(threads * each));
}

TEST_F(ConcurrentAnswersTest, OneObjectMayBeWrittenAndReadOnTwoThreads) {
    constexpr int times = 500;
    const auto store = this->store();
    const auto event = EKEvent::withEventStore(store);
    std::thread other = phone::startThread([&] {
        for (int i = 0; i < times; ++i) {
            const objc::Pool pool;
            event.setTitle(phone::string("title " + std::to_string(i)));
            event.setStartDate(NSDate::now());
            event.addAlarm(EKAlarm::withRelativeOffset(-i));
        }
    });
    for (int i = 0; i < times; ++i) {
        const objc::Pool pool;
        EXPECT_TRUE(event.title());
        event.startDate().sinceReferenceDate();
        event.alarms().count();
    }
    other.join();

    EXPECT_EQ(event.alarms().count(), static_cast<objc::UInt>(times));
}

TEST_F(ConcurrentAnswersTest, StoresEndOnAnyThreadWhileTheirChangesAreAnnounced) {
    constexpr int times = 200;
    const auto lasting = store();
    std::thread other = phone::startThread([] {
        for (int i = 0; i < times; ++i) {
            const objc::Pool pool;
            EKEventStore::make();
        }
    });
    for (int i = 0; i < times / 10; ++i) {
        run([&] { lasting.saveReminder(reminder(lasting), true); });
    }
    other.join();

    EXPECT_EQ(reminders().size(), static_cast<std::size_t>(times / 10));
}
