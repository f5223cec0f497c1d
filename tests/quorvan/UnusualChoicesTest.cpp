// Choices that no row offers, told to the choosers by themselves, and choices that are made twice.

#include "platform/uikit/UITableView.h"
#include "tests/quorvan/EventSavingTest.h"
#include "tests/quorvan/Screens.h"

namespace {

using phone::Access;

class UnusualChoices : public EventSavingTest {
protected:
    /// The chooser on the screen is told that a row was tapped which it does not show.
    void choose(objc::Int row, objc::Int section = 0) {
        run([&] {
            const auto chooser = screenAt(1);
            chooser.send<"tableView:didSelectRowAtIndexPath:">(UITableView(), NSIndexPath::forRow(row, section));
        });
    }
    void startTypedReminder() {
        start();
        startReminder();
        typeNote("milk");
    }
    /// Shows the lists from the second opening on.
    void openLists(const char* row = "List") {
        touchAndWait(row);
        goBack();
        touchAndWait(row);
    }
};

} // namespace

TEST_F(UnusualChoices, APriorityPastTheRowsIsNone) {
    for (const objc::Int row : {4, 5, -1, 1000}) {
        SCOPED_TRACE(row);
        if (!isStarted()) {
            start();
            startCall();
        }
        openSheet();
        openReminder();
        typeNote("milk");
        touchAndWait("Priority");
        choose(row);
        goBack();

        done();

        ASSERT_FALSE(reminders().empty());
        EXPECT_EQ(reminders().back().item.priority, 0);
    }
    EXPECT_EQ(reminders().size(), 4U);
}

TEST_F(UnusualChoices, AnIntervalPastTheRowsRepeatsNothing) {
    for (const objc::Int row : {6, 7, -1, -2, 1000}) {
        SCOPED_TRACE(row);
        if (!isStarted()) {
            start();
            startCall();
        }
        openAnother();
        describe("Lunch");
        touchAndWait("Repeat");
        choose(row, 1);
        goBack();

        done();

        ASSERT_FALSE(events().empty());
        EXPECT_EQ(events().back().item.recurrence, std::nullopt);
    }
    EXPECT_EQ(events().size(), 5U);
}

TEST_F(UnusualChoices, AReminderGoesIntoTheListThatWasChosenLast) {
    startTypedReminder();
    openLists();
    touchAndWait("Work");
    touchAndWait("Shopping");
    goBack();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Shopping");
}

TEST_F(UnusualChoices, AReminderGoesIntoTheListThatWasChosenAtTheSecondVisit) {
    startTypedReminder();
    openLists();
    touchAndWait("Work");
    goBack();
    touchAndWait("Work");
    touchAndWait("Tasks");
    goBack();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Tasks");
}

TEST_F(UnusualChoices, TheDefaultListNeedNotBeTheFirst) {
    useReminders(Access::Allow, {{"Tasks"}, {"Shopping"}, {"Work", true}});
    startTypedReminder();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Work");
}

TEST_F(UnusualChoices, TheFirstListIsChosenThoughAnotherIsTheDefault) {
    useReminders(Access::Allow, {{"Tasks"}, {"Shopping"}, {"Work", true}});
    startTypedReminder();
    openLists();
    touchAndWait("Tasks");
    goBack();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Tasks");
}

TEST_F(UnusualChoices, TheDefaultCalendarNeedNotBeTheFirst) {
    useEvents(Access::Allow, {{"Home"}, {"Work"}, {"Club", true}});
    startTyped();

    done();

    EXPECT_EQ(saved().calendar, "Club");
}

TEST_F(UnusualChoices, TheFirstCalendarIsChosenThoughAnotherIsTheDefault) {
    useEvents(Access::Allow, {{"Home"}, {"Work"}, {"Club", true}});
    startTyped();
    chooseCalendar("Home");

    done();

    EXPECT_EQ(saved().calendar, "Home");
}

TEST_F(UnusualChoices, AnEventGoesIntoTheCalendarThatWasChosenLast) {
    startTyped();
    openLists("Calendar");
    touchAndWait("Work");
    touchAndWait("Home");
    goBack();

    done();

    EXPECT_EQ(saved().calendar, "Home");
}

TEST_F(UnusualChoices, TheAlarmsMomentIsTheOneThatWasPicked) {
    startTypedReminder();
    touchAndWait("Remind me");
    pickDate("2026-03-06T09:30");
    goBack();

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].item.alarms, (std::vector{phone::CalendarAlarm{1772789400}}));
    EXPECT_EQ(*phone::momentOf("2026-03-06T09:30", "UTC"), 1772789400);
}

TEST_F(UnusualChoices, AnEventsAlarmIsAtItsStart) {
    startTyped();

    done();

    ASSERT_EQ(events().size(), 1U);
    EXPECT_EQ(events()[0].item.alarms, (std::vector{phone::CalendarAlarm{std::nullopt, 0}}));
}
