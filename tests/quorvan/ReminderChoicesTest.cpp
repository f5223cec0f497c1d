// What the choosers decide about the reminder that is saved, and about the next one.

#include "tests/quorvan/ReminderSavingTest.h"

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderChoices : public ReminderSavingTest {};

const phone::CalendarDate morning{2026, 3, 6, 9, 0, 0, false, ""};

} // namespace

TEST_F(ReminderChoices, MapsThePrioritiesOfTheRows) {
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

TEST_F(ReminderChoices, AnAlarmThatWasRefusedLeavesNoDate) {
    startTyped();
    chooseDate("2026-03-06T09:00");
    refuseAlarm();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().item.due, std::nullopt);
    EXPECT_TRUE(saved().item.alarms.empty());
}

TEST_F(ReminderChoices, WithoutADefaultListFailsInSilence) {
    useReminders(Access::Allow, {{"Tasks"}, {"Work"}});
    startTyped();

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_EQ(savingMessages().back(), "saveReminder:commit:error:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderChoices, AChosenListIsSavedIntoWithoutADefaultOne) {
    useReminders(Access::Allow, {{"Tasks"}, {"Work"}});
    startTyped();
    chooseList("Work");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(saved().list, "Work");
}

TEST_F(ReminderChoices, AReadOnlyListFailsInSilence) {
    useReminders(Access::Allow, {{"Tasks", true}, {"Anna", false, true}});
    startTyped();
    chooseList("Anna");

    done();

    EXPECT_TRUE(reminders().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(ReminderChoices, APlaceThatIsNotThereAnyMoreGoesIntoTheDefaultList) {
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

TEST_F(ReminderChoices, CountsThePlaceInTheStoresOrderAndNotByTitle) {
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

TEST_F(ReminderChoices, TheNextReminderUsesWhatWasChosenWhileItsRowsShowTheDefaults) {
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

TEST_F(ReminderChoices, TheNextReminderIsNotRemindedWhereTheLastOneWasNot) {
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

TEST_F(ReminderChoices, WhatACancelledReminderChoseIsUsedByTheNext) {
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
