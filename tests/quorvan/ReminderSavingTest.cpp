#include "phone/foundation/FileFaults.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderSaving : public CallTest {
protected:
    ReminderSaving() {
        useZone("Europe/Berlin"); // the clock stands at 15:37:12 there
        useReminders(Access::Allow);
    }
    void startTyped(const std::string& text = "milk") {
        start();
        startReminder();
        typeNote(text);
    }
    void openAnother(const std::string& text) {
        openSheet();
        openReminder();
        typeNote(text);
    }
    void openRow(int row) {
        touchAndWait(panel().select_node((".//*[@row='0," + std::to_string(row) + "']").c_str()).node());
    }
    /// The list chooser shows a list from its second opening on.
    void chooseList(const std::string& title) {
        openRow(0);
        goBack();
        openRow(0);
        touchAndWait(title);
        goBack();
    }
    void chooseDate(const std::string& localTime) {
        openRow(1);
        pickDate(localTime);
        goBack();
    }
    void refuseAlarm() {
        openRow(1);
        toggle("Remind Me");
        goBack();
    }
    void choosePriority(const std::string& text) {
        openRow(2);
        touchAndWait(text);
        goBack();
    }
    /// The reminder saved last.
    phone::ReminderRow saved() {
        const auto all = reminders();
        return all.empty() ? phone::ReminderRow() : all.back();
    }
    /// The request, the saving and the activity's end as they came.
    Texts order() {
        Texts steps;
        for (const auto& entry : log()) {
            const bool isStore = entry.at("what") == "store";
            if (entry.at("what") == "finish") {
                steps.emplace_back("finish");
            } else if (isStore && entry.at("message") == "requestAccessToEntityType:completion:") {
                steps.emplace_back("request");
            } else if (isStore && entry.at("message") == "saveReminder:commit:error:") {
                steps.emplace_back("save");
            }
        }
        return steps;
    }
    bool isBackOnTheCallScreen() { return !panel() && isVisible("mute"); }
    /// The messages from the request for saving on.
    Texts savingMessages() {
        const Texts all = logged("store", "message");
        const auto asked = std::find(all.rbegin(), all.rend(), "init");
        return {asked.base() - 1, all.end()};
    }
};

const phone::CalendarDate morning{2026, 3, 6, 9, 0, 0, false, ""};

} // namespace

TEST_F(ReminderSaving, ATypedReminderGoesIntoTheDefaultList) {
    startTyped();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Tasks");
    EXPECT_EQ(saved().item.title, "milk");
    EXPECT_EQ(saved().item.priority, 0);
    EXPECT_EQ(saved().item.start, std::nullopt);
    EXPECT_EQ(saved().item.due, std::nullopt);
    EXPECT_TRUE(saved().item.alarms.empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, WithEverythingChosenSavesAllOfIt) {
    startTyped();
    chooseList("Work");
    chooseDate("2026-03-06T09:00");
    choosePriority("!!!");
    EXPECT_EQ((Texts{shownValue(0), shownValue(1), shownValue(2)}), (Texts{"Work", "06/03 09:00", "!!!"}));

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Work");
    EXPECT_EQ(saved().item.title, "milk");
    EXPECT_EQ(saved().item.priority, 1);
    EXPECT_EQ(saved().item.start, (phone::CalendarDate{2026, 3, 5, 15, 37, 0, false, ""}));
    EXPECT_EQ(saved().item.due, morning);
    ASSERT_EQ(saved().item.alarms.size(), 1U);
    EXPECT_EQ(saved().item.alarms[0].moment, 1772784000); // 08:00 UTC
}

TEST_F(ReminderSaving, SendsTheStoreItsMessagesInOrder) {
    startTyped();

    done();

    EXPECT_EQ(savingMessages(), (Texts{
                                    "init",
                                    "respondsToSelector:",
                                    "requestAccessToEntityType:completion:",
                                    "calendarsForEntityType:",
                                    "reminderWithEventStore:",
                                    "defaultCalendarForNewReminders",
                                    "setCalendar:",
                                    "setTitle:",
                                    "setPriority:",
                                    "saveReminder:commit:error:",
                                }));
}

TEST_F(ReminderSaving, SendsTheStoreTheDatesAndTheAlarmInOrder) {
    startTyped();
    chooseDate("2026-03-06T09:00");

    done();

    EXPECT_EQ(savingMessages(), (Texts{
                                    "init",
                                    "respondsToSelector:",
                                    "requestAccessToEntityType:completion:",
                                    "calendarsForEntityType:",
                                    "reminderWithEventStore:",
                                    "defaultCalendarForNewReminders",
                                    "setCalendar:",
                                    "setTitle:",
                                    "setPriority:",
                                    "setStartDateComponents:",
                                    "setDueDateComponents:",
                                    "alarmWithAbsoluteDate:",
                                    "setAlarms:",
                                    "saveReminder:commit:error:",
                                }));
}

TEST_F(ReminderSaving, TheActivityEndsWithoutWaitingForTheAnswer) {
    startTyped();

    done();

    EXPECT_EQ(order(), (Texts{"request", "finish", "save"}));
    EXPECT_EQ(logged("finish", "class"), (Texts{"ReminderMake"}));
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
}

TEST_F(ReminderSaving, TheScreenDoesNotFadeOut) {
    startTyped();
    const auto before = log("animation").size();

    done();

    const auto animations = log("animation");
    for (std::size_t i = before; i < animations.size(); ++i) {
        EXPECT_NE(animations[i].at("duration"), 0.3) << animations[i].dump();
    }
}

TEST_F(ReminderSaving, TheFirstReminderEverIsSavedWhenThePersonAllowsIt) {
    useReminders(Access::Ask);
    startTyped();

    done();
    EXPECT_TRUE(reminders().empty());
    touchAndWait("OK");

    EXPECT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "milk");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, IsSilentWhenThePersonDoesNotAllowIt) {
    useReminders(Access::Ask);
    startTyped();

    done();
    touchAndWait("Don't Allow");

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(savingMessages().back(), "requestAccessToEntityType:completion:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, IsSilentWhereAccessIsDenied) {
    useReminders(Access::Deny);
    startTyped();

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, AnEarlyAnswerSavesBeforeTheActivityEnds) {
    start();
    boot().setStoreAnswers("early");
    startReminder();
    typeNote("milk");

    done();

    EXPECT_EQ(order(), (Texts{"request", "save", "finish"}));
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "milk");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, AStoreThatCannotBeAskedSavesNothing) {
    startTyped();
    withholdRequests();

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(logged("store", "message"), (Texts{"init"}));
    EXPECT_EQ(order(), (Texts{"finish"}));
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, TheFirstReminderEverOutlivesTheCall) {
    useReminders(Access::Ask);
    startTyped();
    done();

    phoneCall("cancel");
    advance(5);
    touchAndWait("OK");

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "milk");
}

TEST_F(ReminderSaving, WhatWasDeniedMayBeAllowedLater) {
    useReminders(Access::Deny);
    startTyped();
    done();
    calendarFolder(phone::EntityType::Reminder).setAccess(Access::Allow);

    openAnother("eggs");
    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "eggs");
}

TEST_F(ReminderSaving, AFullDiskFailsInSilence) {
    startTyped();
    {
        const phone::FileFaults full(phone::FileFaults::Disk::Full, "/var/mobile/Library/Calendar");
        done();
    }

    EXPECT_TRUE(reminders().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
    openAnother("eggs");
    done();
    EXPECT_EQ(reminders().size(), 1U);
}

TEST_F(ReminderSaving, TheUntouchedPlaceholderIsNotSaved) {
    start();
    startReminder();

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_EQ(savingMessages().back(), "setPriority:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, ATypedTextEqualToThePlaceholderIsNotSaved) {
    startTyped("  Description");

    done();

    EXPECT_TRUE(reminders().empty());
}

TEST_F(ReminderSaving, ThePlaceholderOfAnotherLanguageIsSaved) {
    start({.language = "de"});
    startReminder();
    typeNote("  Description");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "  Description");
}

TEST_F(ReminderSaving, ATextEmptiedWhileItIsEditedIsSavedEmptyByAnEarlyAnswer) {
    start();
    boot().setStoreAnswers("early");
    startReminder();
    typeNote("a");
    key("backspace");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "");
}

// The editing ends with the screen, which brings the placeholder back before the answer.
TEST_F(ReminderSaving, ATextEmptiedWhileItIsEditedIsNotSavedByALateAnswer) {
    startTyped("a");
    key("backspace");

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, TextOfEveryScriptIsSavedAsTyped) {
    startTyped("Grüße; a,b \\n 你好 👩‍👩‍👧");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "Grüße; a,b \\n 你好 👩‍👩‍👧");
}

TEST_F(ReminderSaving, MapsThePrioritiesOfTheRows) {
    const std::pair<const char*, int> priorities[] = {{"None", 0}, {"!", 9}, {"!!", 5}, {"!!!", 1}};
    start();
    startCall();

    for (const auto& [text, priority] : priorities) {
        SCOPED_TRACE(text);
        openAnother("milk");
        choosePriority(text);

        done();

        EXPECT_EQ(saved().item.priority, priority);
    }
    EXPECT_EQ(reminders().size(), 4U);
}

TEST_F(ReminderSaving, AnAlarmThatWasRefusedLeavesNoDate) {
    startTyped();
    chooseDate("2026-03-06T09:00");
    refuseAlarm();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.due, std::nullopt);
    EXPECT_TRUE(saved().item.alarms.empty());
}

TEST_F(ReminderSaving, WithoutADefaultListFailsInSilence) {
    useReminders(Access::Allow, {{"Tasks"}, {"Work"}});
    startTyped();

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(savingMessages().back(), "saveReminder:commit:error:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, AChosenListIsSavedIntoWithoutADefaultOne) {
    useReminders(Access::Allow, {{"Tasks"}, {"Work"}});
    startTyped();
    chooseList("Work");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Work");
}

TEST_F(ReminderSaving, AReadOnlyListFailsInSilence) {
    useReminders(Access::Allow, {{"Tasks", true}, {"Anna", false, true}});
    startTyped();
    chooseList("Anna");

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderSaving, APlaceThatIsNotThereAnyMoreGoesIntoTheDefaultList) {
    useReminders(Access::Deny);
    write(resource("Reminders.plist"),
          "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>One</string>"
          "<string>Two</string><string>Three</string><string>Four</string></array></plist>");
    startTyped();
    openRow(0);
    touchAndWait("Four");
    goBack();
    calendarFolder(phone::EntityType::Reminder).setAccess(Access::Allow);

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Tasks");
}

TEST_F(ReminderSaving, CountsThePlaceInTheStoresOrderAndNotByTitle) {
    useReminders(Access::Deny);
    write(resource("Reminders.plist"),
          "<?xml version=\"1.0\"?><plist "
          "version=\"1.0\"><array><string>Work</string><string>Tasks</string></array></plist>");
    startTyped();
    openRow(0);
    touchAndWait("Tasks");
    goBack();
    calendarFolder(phone::EntityType::Reminder).setAccess(Access::Allow);

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Shopping"); // the second in the store
}

TEST_F(ReminderSaving, TheNextReminderUsesWhatWasChosenWhileItsRowsShowTheDefaults) {
    startTyped();
    chooseList("Work");
    chooseDate("2026-03-06T09:00");
    choosePriority("!");
    done();

    openAnother("eggs");
    EXPECT_EQ((Texts{shownValue(0), shownValue(1), shownValue(2)}), (Texts{"List", "Never", "None"}));
    done();

    ASSERT_EQ(reminders().size(), 2U);
    EXPECT_EQ(saved().item.title, "eggs");
    EXPECT_EQ(saved().list, "Work");
    EXPECT_EQ(saved().item.priority, 9);
    EXPECT_EQ(saved().item.due, morning);
    EXPECT_EQ(saved().item.alarms.size(), 1U);
}

TEST_F(ReminderSaving, TheNextReminderIsNotRemindedWhereTheLastOneWasNot) {
    startTyped();
    chooseDate("2026-03-06T09:00");
    refuseAlarm();
    done();

    openAnother("eggs");
    done();

    ASSERT_EQ(reminders().size(), 2U);
    EXPECT_EQ(saved().item.due, std::nullopt);
    EXPECT_TRUE(saved().item.alarms.empty());
}

TEST_F(ReminderSaving, WhatACancelledReminderChoseIsUsedByTheNext) {
    startTyped();
    chooseList("Shopping");
    choosePriority("!!");
    cancel();

    openAnother("eggs");
    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Shopping");
    EXPECT_EQ(saved().item.priority, 5);
}

TEST_F(ReminderSaving, ASecondTapOnDoneSavesNothingMore) {
    startTyped();
    const auto button = find("Done");

    tapOn(button);
    tapOn(button);
    settle();

    EXPECT_EQ(reminders().size(), 1U);
    EXPECT_EQ(logged("finish", "class").size(), 1U);
}

TEST_F(ReminderSaving, WorksOnTheOlderApplication) {
    start({.device = "iphone4", .app = "older", .language = "de"});
    startReminder();
    typeNote("Milch");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.title, "Milch");
    EXPECT_FALSE(panel());
}
