#include "tests/quorvan/EventSavingTest.h"

namespace {

using phone::Access;
using Saved = SavedEvent;
using Texts = std::vector<std::string>;

class EventSaving : public EventSavingTest {};

const std::string opened = "2026-03-05T14:37:12+00:00";
const std::string hourLater = "2026-03-05T15:37:12+00:00";

} // namespace

TEST_F(EventSaving, WhatIsTypedGoesIntoTheDefaultCalendarFromNowForAnHour) {
    startTyped();
    setClock("2026-03-05T14:50:00");

    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Home", "Lunch", "", opened, hourLater, ""}}));
    ASSERT_EQ(events()[0].item.alarms.size(), 1U);
    EXPECT_EQ(events()[0].item.alarms[0], (phone::CalendarAlarm{std::nullopt, 0}));
    EXPECT_FALSE(events()[0].item.isAllDay());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, WithEverythingChosenSavesAllOfIt) {
    startTyped();
    locate("Canteen");
    chooseCalendar("Work");
    chooseDates("2026-05-16T09:00", "2026-05-16T10:30");
    chooseInterval("Every 2 Weeks");
    chooseRepeatEnd("2026-12-24T14:37");

    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Work", "Lunch", "Canteen", "2026-05-16T09:00:00+00:00",
                                          "2026-05-16T10:30:00+00:00", "weekly 2 until 2026-12-24T14:37:00+00:00"}}));
}

TEST_F(EventSaving, TheAfternoonIsTheAfternoonInEveryLanguage) {
    startEvent({.language = "ar"});
    describe("Lunch");

    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Home", "Lunch", "", opened, hourLater, ""}}));
}

TEST_F(EventSaving, TheAfternoonIsTheAfternoonOnAClockOfTwelveHours) {
    useTwelveHoursAgainstTheRegion();
    startTyped();

    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Home", "Lunch", "", opened, hourLater, ""}}));
}

TEST_F(EventSaving, AnHourLaterMayBeTheNextDay) {
    startTypedAt("2026-12-31T23:40:30", "Europe/Berlin");

    done();

    EXPECT_EQ(saved().start, "2026-12-31T23:40:30+01:00");
    EXPECT_EQ(saved().end, "2027-01-01T00:40:30+01:00");
}

TEST_F(EventSaving, AnHourLaterMayBeTheNextMonth) {
    startTypedAt("2026-02-28T23:40:00", "Europe/Berlin");

    done();

    EXPECT_EQ(saved().end, "2026-03-01T00:40:00+01:00");
}

TEST_F(EventSaving, AnHourLaterByAClockThatSkipsTheHourIsTheOneAfter) {
    startTypedAt("2026-03-29T01:30:00", "Europe/Berlin");

    done();

    EXPECT_EQ(saved().start, "2026-03-29T01:30:00+01:00");
    EXPECT_EQ(saved().end, "2026-03-29T03:30:00+02:00");
}

TEST_F(EventSaving, AnHourLaterByAClockThatRepeatsTheHourIsTwoHoursAway) {
    startTypedAt("2026-10-25T02:30:00", "Europe/Berlin"); // the first of two

    done();

    EXPECT_EQ(saved().start, "2026-10-25T02:30:00+02:00");
    EXPECT_EQ(saved().end, "2026-10-25T03:30:00+01:00");
}

TEST_F(EventSaving, WithoutADescriptionNothingIsSaved) {
    startEvent();
    locate("Canteen");

    done();

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(savingMessages().back(), "setAlarms:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, ADescriptionOfABlankIsSaved) {
    startTyped(" ");

    done();

    EXPECT_EQ(saved().title, " ");
}

TEST_F(EventSaving, WhatIsStillBeingTypedIsSaved) {
    startEvent();
    touchAndWait(field(0));
    type("Lunch");

    done();

    EXPECT_EQ(saved().title, "Lunch");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, TextOfEveryScriptIsSavedAsTyped) {
    startTyped("Grüße; a,b \\n 你好 👩‍👩‍👧");
    locate("Café, 2. Stock; \"links\"");

    done();

    EXPECT_EQ(saved().title, "Grüße; a,b \\n 你好 👩‍👩‍👧");
    EXPECT_EQ(saved().location, "Café, 2. Stock; \"links\"");
}

TEST_F(EventSaving, MapsTheIntervalsOfTheRows) {
    const std::pair<const char*, const char*> intervals[] = {
        {"Every Day", "daily 1"},     {"Every Week", "weekly 1"}, {"Every 2 Weeks", "weekly 2"},
        {"Every Month", "monthly 1"}, {"Every Year", "yearly 1"}, {"Never", ""},
    };
    start();
    startCall();

    for (const auto& [text, repeats] : intervals) {
        openTyped(text);
        chooseInterval(text);

        done();

        EXPECT_EQ(saved().title, text);
        EXPECT_EQ(saved().repeats, repeats);
    }
    EXPECT_EQ(events().size(), 6U);
}

TEST_F(EventSaving, AnEndWithoutAnIntervalRepeatsNothing) {
    startTyped();
    chooseRepeatEnd("2026-12-24T14:37");

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", opened, hourLater, ""}));
}

TEST_F(EventSaving, ARepetitionThatNeverEndsHasNoEndThoughADateWasPicked) {
    startTyped();
    chooseInterval("Every Year");
    chooseRepeatEnd("");

    done();

    EXPECT_EQ(saved().repeats, "yearly 1");
}

TEST_F(EventSaving, AnEndBeforeTheStartIsSavedNowhere) {
    startTyped();
    chooseDates("", "2026-03-04T09:00");

    done();

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(savingMessages().back(), "saveEvent:span:commit:error:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, AReadOnlyCalendarTakesNothing) {
    startTyped();
    chooseCalendar("Holidays");

    done();

    EXPECT_EQ(savingMessages().back(), "saveEvent:span:commit:error:");
    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, WithoutADefaultCalendarFailsInSilence) {
    useEvents(Access::Allow, {{"Home"}, {"Work"}});
    startTyped();

    done();

    EXPECT_EQ(savingMessages().back(), "saveEvent:span:commit:error:");
    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, WholeDaysAreSavedAsTheirDays) {
    startTyped();
    chooseDates("2026-05-16T14:37", "2026-05-18T15:37", true);

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", "2026-05-16", "2026-05-18", ""}));
}

TEST_F(EventSaving, AllDayAloneMakesTodayAWholeDay) {
    startTyped();
    chooseDates("", "", true);

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", "2026-03-05", "2026-03-05", ""}));
}

TEST_F(EventSaving, ACallThatEndsWhileAnyScreenIsOpenLosesNothing) {
    const std::vector<Texts> ways = {{},         {"Calendar"},          {"Date"}, {"Date", "Start"}, {"Date", "End"},
                                     {"Repeat"}, {"Repeat", "End Date"}};
    start();

    for (const auto& way : ways) {
        startCall();
        openTyped();
        for (const auto& row : way) {
            touchAndWait(row);
        }
        phoneCall("cancel");
        advance(5);
        for (std::size_t i = 0; i < way.size(); ++i) {
            goBack();
        }

        done();

        EXPECT_TRUE(isVisible("No call"));
    }
    EXPECT_EQ(events().size(), ways.size());
}

TEST_F(EventSaving, ASecondTapOnDoneSavesNothingMore) {
    startTyped();
    const auto button = find("Done");

    tapOn(button);
    tapOn(button);
    settle();

    EXPECT_EQ(events().size(), 1U);
    EXPECT_EQ(logged("finish", "class").size(), 1U);
}

TEST_F(EventSaving, UntouchedChoosersSaveTheMomentsAtWhichTheyWereOpened) {
    startTyped();
    chooseInterval("Every Week");
    touchAndWait("Date");
    setClock("2026-03-05T15:10:45");
    touchAndWait("Start");
    goBack();
    setClock("2026-03-05T15:20:50");
    touchAndWait("End");
    goBack();
    goBack();
    touchAndWait("Repeat");
    touchAndWait("End Date");
    goBack();
    goBack();

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", "2026-03-05T15:10:45+00:00", "2026-03-05T16:20:50+00:00",
                              "weekly 1 until 2026-03-05T15:20:50+00:00"}));
}

TEST_F(EventSaving, WholeDaysOverMidnightAreTooLongForEveryDay) {
    startTypedAt("2026-03-05T23:40", "UTC");
    touchAndWait("Date");
    toggle("All-day");
    goBack();
    chooseInterval("Every Day");

    done();

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(savingMessages().back(), "saveEvent:span:commit:error:");
}

TEST_F(EventSaving, GermanScreensSaveTheSame) {
    startEvent({.language = "de"});
    describe("Mittagessen");
    touchAndWait("Turnus");
    touchAndWait("Jede Woche");
    touchAndWait("Zurück");

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Mittagessen", "", opened, hourLater, "weekly 1"}));
}
