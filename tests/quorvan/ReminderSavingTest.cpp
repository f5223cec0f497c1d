#include "tests/quorvan/ReminderSavingTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderSaving : public ReminderSavingTest {};

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
    touchAndWait("Don’t Allow");

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

TEST_F(ReminderSaving, ReadsItsTextAgainToKnowWhetherThereIsAny) {
    startTyped();
    overhear<"UITextView", "text", id>();
    overhear<"EKCalendarItem", "setTitle:", void, id>();
    overhear<"EKEventStore", "saveReminder:commit:error:", unsigned char, id, objc::UInt, id*>();

    done();

    const auto title = std::find(heard().begin(), heard().end(), "EKReminder setTitle: milk");
    ASSERT_NE(title, heard().end());
    EXPECT_EQ(Texts(title, heard().end()), (Texts{"EKReminder setTitle: milk", "UITextView text",
                                                  "EKEventStore saveReminder:commit:error: EKReminder 1 set"}));
}

TEST_F(ReminderSaving, TakesTheFieldsOfBothDatesBeforeThePriority) {
    startTyped();
    chooseDate("2026-03-06T09:00");
    overhear<"NSCalendar", "components:fromDate:", id, objc::UInt, id>();
    overhear<"EKReminder", "setPriority:", void, objc::Int>();

    done();

    EXPECT_EQ(heardOf({"EKReminder"}).size(), 1U);
    ASSERT_GE(heard().size(), 3U);
    EXPECT_TRUE(heard()[0].ends_with("components:fromDate: 124 NSGDate")) << heard()[0];
    EXPECT_TRUE(heard()[1].ends_with("components:fromDate: 124 NSGDate")) << heard()[1];
    EXPECT_EQ(heard()[2], "EKReminder setPriority: 0");
}
