// The request for access, the store's answer and what the store is told.

#include "tests/quorvan/EventSavingTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using phone::Access;
using Saved = SavedEvent;
using Texts = std::vector<std::string>;

class EventAnswers : public EventSavingTest {};

const std::string opened = "2026-03-05T14:37:12+00:00";
const std::string hourLater = "2026-03-05T15:37:12+00:00";

} // namespace

TEST_F(EventAnswers, SendsTheStoreItsMessagesInOrder) {
    startTyped();

    done();

    EXPECT_EQ(savingMessages(), (Texts{
                                    "init",
                                    "requestAccessToEntityType:completion:",
                                    "calendarsForEntityType:",
                                    "eventWithEventStore:",
                                    "defaultCalendarForNewEvents",
                                    "setCalendar:",
                                    "setAllDay:",
                                    "setTitle:",
                                    "setLocation:",
                                    "setStartDate:",
                                    "setStartDate:",
                                    "setEndDate:",
                                    "alarmWithRelativeOffset:",
                                    "setAlarms:",
                                    "saveEvent:span:commit:error:",
                                }));
}

TEST_F(EventAnswers, SavesThisAndFutureEventsAtOnce) {
    startTyped();

    done();

    const auto save = log("store").back();
    ASSERT_EQ(save.at("message"), "saveEvent:span:commit:error:");
    EXPECT_EQ(save.at("arguments").at(1), "1");
    EXPECT_EQ(save.at("arguments").at(2), "true");
}

TEST_F(EventAnswers, ReceivesTheErrorOfTheSave) {
    startTyped();
    overhear<"EKEventStore", "saveEvent:span:commit:error:", unsigned char, id, objc::Int, objc::UInt, id*>();

    done();

    EXPECT_EQ(heard(), Texts{"EKEventStore saveEvent:span:commit:error: EKEvent 1 1 set"});
}

TEST_F(EventAnswers, SendsTheStoreTheRepetitionBeforeItSaves) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("2026-12-24T14:37");

    done();

    const Texts sent = savingMessages();
    const auto alarms = std::find(sent.begin(), sent.end(), "setAlarms:");
    EXPECT_EQ(Texts(alarms, sent.end()), (Texts{
                                             "setAlarms:",
                                             "recurrenceEndWithEndDate:",
                                             "initRecurrenceWithFrequency:interval:end:",
                                             "addRecurrenceRule:",
                                             "saveEvent:span:commit:error:",
                                         }));
}

TEST_F(EventAnswers, TheActivityEndsWithoutWaitingForTheAnswer) {
    startTyped();

    done();

    Texts order;
    for (const auto& entry : log()) {
        const std::string what = entry.at("what");
        const std::string message = what == "store" ? entry.at("message").get<std::string>() : what;
        if (message == "finish") {
            EXPECT_EQ(entry.at("class"), "EventCreate");
            EXPECT_EQ(entry.at("completed"), true);
        }
        if (message == "finish" || message.starts_with("requestAccess") || message.starts_with("saveEvent")) {
            order.push_back(message.substr(0, 7));
        }
    }
    EXPECT_EQ(order, (Texts{"request", "finish", "saveEve"}));
}

TEST_F(EventAnswers, AnEarlyAnswerSavesBeforeTheActivityEnds) {
    startTyped();
    boot().setStoreAnswers("early");

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", opened, hourLater, ""}));
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventAnswers, TheFirstEventEverIsSavedWhenThePersonAllowsIt) {
    useEvents(Access::Ask);
    startTyped();

    done();
    EXPECT_TRUE(events().empty());
    touchAndWait("OK");

    EXPECT_EQ(saved().title, "Lunch");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventAnswers, IsSilentWhenThePersonDoesNotAllowIt) {
    useEvents(Access::Ask);
    startTyped();

    done();
    touchAndWait("Don’t Allow");

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(savingMessages().back(), "requestAccessToEntityType:completion:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventAnswers, IsSilentWhereAccessIsDenied) {
    useEvents(Access::Deny);
    startTyped();

    done();

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventAnswers, AnEventOutlivesTheCallWhileThePersonIsAsked) {
    useEvents(Access::Ask);
    startTyped();
    done();

    phoneCall("cancel");
    advance(5);
    touchAndWait("OK");

    EXPECT_EQ(events().size(), 1U);
}

TEST_F(EventAnswers, TheCalendarChooserOutlivesTheCallWhileThePersonIsAsked) {
    useEvents(Access::Ask);
    startTyped();
    touchAndWait("Calendar");

    phoneCall("cancel");
    advance(5);
    touchAndWait("OK");
    goBack();
    done();

    EXPECT_EQ(events().size(), 1U);
}

TEST_F(EventAnswers, TheStartIsFirstSetToThePresent) {
    startTyped();
    setClock("2026-03-05T16:00:00");

    done();

    std::vector<std::string> starts;
    for (const auto& entry : log("store")) {
        if (entry.at("message") == "setStartDate:") {
            starts.push_back(entry.at("arguments").at(0));
        }
    }
    EXPECT_EQ(starts, (std::vector<std::string>{"2026-03-05T16:00:00Z", "2026-03-05T14:37:12Z"}));
}
