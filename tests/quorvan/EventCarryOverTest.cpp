// What one event or reminder leaves to the next: the screens talk through variables that nobody resets.

#include "tests/quorvan/EventSavingTest.h"

namespace {

using Saved = SavedEvent;
using Texts = std::vector<std::string>;

class EventCarryOver : public EventSavingTest {};

const std::string opened = "2026-03-05T14:37:12+00:00";
const std::string hourLater = "2026-03-05T15:37:12+00:00";

} // namespace

TEST_F(EventCarryOver, TheEndStaysWhenItsRowReadsNeverAgain) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("2026-12-24T14:37");
    touchAndWait("Repeat");
    EXPECT_EQ(value("End Date"), "Never");
    goBack();

    done();

    EXPECT_EQ(saved().repeats, "weekly 1 until 2026-12-24T14:37:00+00:00");
}

TEST_F(EventCarryOver, TheNextEventTakesOverWhatItsRowsDoNotShow) {
    startTyped();
    chooseCalendar("Work");
    chooseDates("2026-05-16T14:37", "2026-05-18T15:37", true);
    chooseInterval("Every Month");
    chooseRepeatEnd("2026-12-24T14:37");
    done();
    setClock("2026-03-06T09:15:00");

    openTyped("Second");
    EXPECT_EQ(value("Calendar"), "Default");
    EXPECT_EQ(value("Date"), "09:15 - 10:15");
    EXPECT_EQ(value("Repeat"), "Never");
    done();

    EXPECT_EQ(saved(),
              (Saved{"Work", "Second", "", "2026-03-06", "2026-03-06", "monthly 1 until 2026-12-24T14:37:00+00:00"}));
}

TEST_F(EventCarryOver, TheNextEventsTimesAreItsOwnWhateverItsFormShows) {
    startTyped();
    chooseDates("2026-05-16T09:00", "2026-05-16T10:00");
    done();

    openTyped("Second");
    touchAndWait("Date");
    EXPECT_EQ(value("Start"), "16/05 09:00");
    EXPECT_EQ(value("End"), "16/05 10:00");
    goBack();
    EXPECT_EQ(value("Date"), "16/05 09:00 - 16/05 10:00");
    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Second", "", opened, hourLater, ""}));
}

TEST_F(EventCarryOver, ACancelledEventLeavesItsChoicesToTheNext) {
    startTyped();
    chooseCalendar("Work");
    chooseInterval("Every Day");
    cancel();

    openTyped("Second");
    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Work", "Second", "", opened, hourLater, "daily 1"}}));
}

TEST_F(EventCarryOver, ACalendarThatHasGoneSinceItWasChosenEndsTheApplication) {
    expectLogged("exception");
    startTyped();
    chooseCalendar("Holidays");
    done();
    openTyped("Second");
    remove("/var/mobile/Library/Calendar/events/" + calendarFolder(phone::EntityType::Event).calendars().back().id);

    EXPECT_THROW(done(), phone::ScreenError);

    ASSERT_EQ(log("exception").size(), 1U);
    EXPECT_EQ(log("exception")[0].at("name"), "NSRangeException");
    EXPECT_TRUE(boot().isDead());
    EXPECT_TRUE(events().empty());
}

TEST_F(EventCarryOver, ARefusedAlarmOfAReminderEndsALaterRepetitionAtTheEndKeptFromBefore) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("");
    done();
    EXPECT_EQ(saved().repeats, "weekly 1");

    writeReminder("off");
    openTyped("Second");
    done();

    EXPECT_EQ(saved().title, "Second");
    EXPECT_EQ(saved().repeats, "weekly 1 until " + opened);
}

TEST_F(EventCarryOver, ARefusedAlarmOfAReminderEndsNoRepetitionWhereNoEndWasEverPicked) {
    start();
    startCall();
    writeReminder("off");

    openTyped();
    chooseInterval("Every Week");
    done();

    EXPECT_EQ(saved().repeats, "weekly 1");
}

TEST_F(EventCarryOver, AnAlarmOfAReminderMakesALaterRepetitionEndless) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("2026-12-24T14:37");
    done();

    writeReminder("2026-03-06T09:00");
    openTyped("Second");
    done();

    EXPECT_EQ(saved().repeats, "weekly 1");
}

TEST_F(EventCarryOver, ARepetitionThatNeverEndsGivesALaterReminderTheAlarmKeptFromBefore) {
    start();
    startCall();
    writeReminder("2026-03-06T09:00");
    writeReminder("off");
    ASSERT_EQ(reminders().size(), 2U);
    EXPECT_TRUE(reminders()[1].item.alarms.empty());

    openTyped();
    chooseRepeatEnd("");
    done();
    writeReminder("");

    ASSERT_EQ(reminders().size(), 3U);
    ASSERT_EQ(reminders()[2].item.alarms.size(), 1U);
}

TEST_F(EventCarryOver, ARepetitionThatEndsTakesALaterRemindersAlarm) {
    start();
    startCall();
    writeReminder("2026-03-06T09:00");
    ASSERT_EQ(reminders()[0].item.alarms.size(), 1U);

    openTyped();
    chooseRepeatEnd("2026-12-24T14:37");
    done();
    writeReminder("");

    ASSERT_EQ(reminders().size(), 2U);
    EXPECT_TRUE(reminders()[1].item.alarms.empty());
}

TEST_F(EventCarryOver, TheListsOfRemindersAndTheCalendarsOfEventsDoNotMix) {
    startTyped();
    chooseCalendar("Work");
    done();
    openSheet();
    openReminder();
    touchAndWait("List");
    goBack();
    touchAndWait("List");
    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    touchAndWait("Work"); // another place than the calendar's
    goBack();
    cancel();

    openTyped("Second");
    touchAndWait("Calendar");
    EXPECT_EQ(rows(), (Texts{"Home", "Work", "Holidays"}));
    goBack();
    EXPECT_EQ(value("Calendar"), "Default");
    done();
    writeReminder("");

    EXPECT_EQ(saved().calendar, "Work");
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Work");
}
