// The whole job while the store's thread and the main thread go on side by side.

#include "tests/quorvan/EventSavingTest.h"

#include <set>

namespace {

using Texts = std::vector<std::string>;

class ConcurrentAnswers : public EventSavingTest {
protected:
    void startConcurrently() {
        startEvent();
        boot().setStoreAnswers("concurrent");
    }
    static Texts titles(const std::vector<phone::EventRow>& rows) {
        Texts all;
        for (const auto& row : rows) {
            all.push_back(row.item.title);
        }
        return all;
    }
};

} // namespace

TEST_F(ConcurrentAnswers, OffTheMainThreadNothingOfTheScreenIsToldButItsTextsAsked) {
    startConcurrently();
    describe("Lunch");
    locate("Shop");
    chooseCalendar("Work");
    done();
    writeReminder("2026-03-06T09:00");

    std::set<std::string> messages;
    for (const auto& entry : log("offMainThread")) {
        messages.insert(entry.at("class").get<std::string>() + " " + entry.at("selector").get<std::string>());
    }
    EXPECT_EQ(messages, (std::set<std::string>{"UITextField text", "UITextView text"}));
}

TEST_F(ConcurrentAnswers, EventsAndRemindersAreSavedAsEver) {
    startConcurrently();
    describe("Lunch");
    chooseCalendar("Work");
    done();
    writeReminder("2026-03-06T09:00");

    EXPECT_EQ(saved().calendar, "Work");
    EXPECT_EQ(saved().title, "Lunch");
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders().front().item.title, "milk");
    EXPECT_EQ(reminders().front().item.alarms.size(), 1U);
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ConcurrentAnswers, AnEventIsSavedThoughTheCallHasEndedMeanwhile) {
    startConcurrently();
    describe("Lunch");

    tapOn("Done"); // and nothing is waited for
    phoneCall("cancel");
    advance(5);
    settle();

    EXPECT_EQ(titles(events()), (Texts{"Lunch"}));
}

TEST_F(ConcurrentAnswers, AChooserThatHasGoneLeavesItsTitlesAllTheSame) {
    startConcurrently();

    tapOn("Calendar");
    advance(0.5);
    goBack();

    EXPECT_TRUE(exists("/Library/Quorvan/Events.plist"));
}
