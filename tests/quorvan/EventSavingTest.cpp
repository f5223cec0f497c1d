#include "phone/flow/LocalTime.h"
#include "tests/quorvan/EventTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

namespace {

using phone::Access;
using phone::Frequency;
using Texts = std::vector<std::string>;

/// One event as a line that can be read.
struct Saved {
    std::string calendar;
    std::string title;
    std::string location;
    std::string start; // with its zone; only the day of an event of whole days
    std::string end;
    std::string repeats; // "" or "FREQUENCY INTERVAL", with " until MOMENT"

    friend bool operator==(const Saved&, const Saved&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Saved& event) {
        return out << event.calendar << " | " << event.title << " | " << event.location << " | " << event.start << " | "
                   << event.end << " | " << event.repeats;
    }
};

class EventSaving : public EventTest {
protected:
    EventSaving() {
        useEvents(Access::Allow);
        useReminders(Access::Allow);
    }
    void startTyped(const std::string& description = "Lunch") {
        startEvent();
        describe(description);
    }
    void startTypedAt(const std::string& localTime, const std::string& zone) {
        _zone = zone;
        startEventAt(localTime, zone);
        describe("Lunch");
    }
    void openTyped(const std::string& description = "Lunch") {
        openAnother();
        describe(description);
    }
    void describe(const std::string& text) { typeInto(0, text); }
    void locate(const std::string& text) { typeInto(1, text); }

    /// The calendar chooser shows a calendar from its second opening on.
    void chooseCalendar(const std::string& title) {
        touchAndWait("Calendar");
        goBack();
        touchAndWait("Calendar");
        touchAndWait(title);
        goBack();
    }
    void chooseDates(const std::string& start, const std::string& end, bool turnAllDay = false) {
        touchAndWait("Date");
        if (turnAllDay) {
            toggle("All-day");
        }
        for (const auto& [row, time] : {std::pair{"Start", start}, {"End", end}}) {
            if (!time.empty()) {
                touchAndWait(row);
                pickDate(time);
                goBack();
            }
        }
        goBack();
    }
    void chooseInterval(const std::string& text) {
        const std::string row = ".//*[starts-with(@row, '1,')][.//UILabel[@text='" + text + "']]";
        touchAndWait("Repeat");
        if (!shown().select_node(row.c_str())) {
            touch(phone::Screen::Phase::Began, 160, 400);
            touch(phone::Screen::Phase::Moved, 160, 300);
            touch(phone::Screen::Phase::Moved, 160, 230);
            touch(phone::Screen::Phase::Ended, 160, 230);
            settle();
        }
        touchAndWait(shown().select_node(row.c_str()).node());
        goBack();
    }
    /// "" for never.
    void chooseRepeatEnd(const std::string& day) {
        touchAndWait("Repeat");
        touchAndWait("End Date");
        if (day.empty()) {
            toggle("Never");
        } else {
            pickDate(day);
        }
        goBack();
        goBack();
    }
    /// A reminder from the call screen on; "" leaves its alarm alone, "off" refuses one.
    void writeReminder(const std::string& alarm) {
        openSheet();
        openReminder();
        typeNote("milk");
        if (!alarm.empty()) {
            touchAndWait("Remind me");
            if (alarm == "off") {
                toggle("Remind Me");
            } else {
                pickDate(alarm);
            }
            goBack();
        }
        done();
    }

    std::vector<Saved> all() {
        std::vector<Saved> found;
        for (const auto& [calendar, item] : events()) {
            found.push_back({calendar, item.title, item.location.value_or(""), text(item.start), text(item.end),
                             text(item.recurrence)});
        }
        return found;
    }
    /// The event saved last.
    Saved saved() { return events().empty() ? Saved() : all().back(); }
    bool isBackOnTheCallScreen() { return !shown() && isVisible("mute"); }
    /// The messages of the last saving, from the making of its store on.
    Texts savingMessages() {
        const Texts sent = logged("store", "message");
        const auto made = std::find(sent.rbegin(), sent.rend(), "init");
        return {made.base() - 1, sent.end()};
    }

private:
    void typeInto(int index, const std::string& text) {
        touchAndWait(field(index));
        type(text);
        key("enter");
        settle();
    }
    std::string text(const std::optional<phone::CalendarDate>& date) {
        if (!date) {
            return "";
        }
        const std::string moment = phone::iso8601(phone::momentOf(*date, _zone), _zone);
        return date->isDay ? moment.substr(0, 10) : moment;
    }
    std::string text(const std::optional<phone::Recurrence>& repeats) {
        if (!repeats) {
            return "";
        }
        constexpr const char* names[] = {"daily", "weekly", "monthly", "yearly"};
        return names[static_cast<int>(repeats->frequency)] + (" " + std::to_string(repeats->interval)) +
               (repeats->until ? " until " + text(repeats->until) : "");
    }

    std::string _zone = "UTC";
};

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

TEST_F(EventSaving, SendsTheStoreItsMessagesInOrder) {
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

TEST_F(EventSaving, SavesThisAndFutureEventsAtOnce) {
    startTyped();

    done();

    const auto save = log("store").back();
    ASSERT_EQ(save.at("message"), "saveEvent:span:commit:error:");
    EXPECT_EQ(save.at("arguments").at(1), "1");
    EXPECT_EQ(save.at("arguments").at(2), "true");
}

TEST_F(EventSaving, SendsTheStoreTheRepetitionBeforeItSaves) {
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

TEST_F(EventSaving, TheActivityEndsWithoutWaitingForTheAnswer) {
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

TEST_F(EventSaving, AnEarlyAnswerSavesBeforeTheActivityEnds) {
    startTyped();
    boot().setStoreAnswers("early");

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Lunch", "", opened, hourLater, ""}));
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, TheFirstEventEverIsSavedWhenThePersonAllowsIt) {
    useEvents(Access::Ask);
    startTyped();

    done();
    EXPECT_TRUE(events().empty());
    touchAndWait("OK");

    EXPECT_EQ(saved().title, "Lunch");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, IsSilentWhenThePersonDoesNotAllowIt) {
    useEvents(Access::Ask);
    startTyped();

    done();
    touchAndWait("Don't Allow");

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(savingMessages().back(), "requestAccessToEntityType:completion:");
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, IsSilentWhereAccessIsDenied) {
    useEvents(Access::Deny);
    startTyped();

    done();

    EXPECT_TRUE(events().empty());
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_TRUE(isBackOnTheCallScreen());
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

TEST_F(EventSaving, TheEndStaysWhenItsRowReadsNeverAgain) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("2026-12-24T14:37");
    touchAndWait("Repeat");
    EXPECT_EQ(value("End Date"), "Never");
    goBack();

    done();

    EXPECT_EQ(saved().repeats, "weekly 1 until 2026-12-24T14:37:00+00:00");
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

    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(EventSaving, WithoutADefaultCalendarFailsInSilence) {
    useEvents(Access::Allow, {{"Home"}, {"Work"}});
    startTyped();

    done();

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

TEST_F(EventSaving, TheNextEventTakesOverWhatItsRowsDoNotShow) {
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

TEST_F(EventSaving, TheNextEventsTimesAreItsOwnWhateverItsFormShows) {
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

TEST_F(EventSaving, ACancelledEventLeavesItsChoicesToTheNext) {
    startTyped();
    chooseCalendar("Work");
    chooseInterval("Every Day");
    cancel();

    openTyped("Second");
    done();

    EXPECT_EQ(all(), (std::vector<Saved>{{"Work", "Second", "", opened, hourLater, "daily 1"}}));
}

TEST_F(EventSaving, ARestartForgetsEveryChoice) {
    const pid_t before = fork();
    ASSERT_GE(before, 0);
    if (before == 0) { // the first run of the application
        startTyped();
        chooseCalendar("Work");
        chooseDates("2026-05-16T14:37", "2026-05-18T15:37", true);
        chooseInterval("Every Month");
        chooseRepeatEnd("2026-12-24T14:37");
        done();
        _exit(HasFailure() || events().size() != 1 ? 1 : 0);
    }
    int status = 1;
    ASSERT_EQ(waitpid(before, &status, 0), before);
    ASSERT_EQ(status, 0);

    startTyped("Second");
    touchAndWait("Date");
    EXPECT_EQ(value("Start"), "14:37");
    EXPECT_FALSE(isSwitchOn());
    goBack();
    done();

    ASSERT_EQ(events().size(), 2U);
    EXPECT_EQ(saved(), (Saved{"Home", "Second", "", opened, hourLater, ""}));
}

TEST_F(EventSaving, ACalendarThatHasGoneSinceItWasChosenEndsTheApplication) {
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

TEST_F(EventSaving, ARefusedAlarmOfAReminderEndsALaterRepetitionAtTheEndKeptFromBefore) {
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

TEST_F(EventSaving, ARefusedAlarmOfAReminderEndsNoRepetitionWhereNoEndWasEverPicked) {
    start();
    startCall();
    writeReminder("off");

    openTyped();
    chooseInterval("Every Week");
    done();

    EXPECT_EQ(saved().repeats, "weekly 1");
}

TEST_F(EventSaving, AnAlarmOfAReminderMakesALaterRepetitionEndless) {
    startTyped();
    chooseInterval("Every Week");
    chooseRepeatEnd("2026-12-24T14:37");
    done();

    writeReminder("2026-03-06T09:00");
    openTyped("Second");
    done();

    EXPECT_EQ(saved().repeats, "weekly 1");
}

TEST_F(EventSaving, ARepetitionThatNeverEndsGivesALaterReminderTheAlarmKeptFromBefore) {
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

TEST_F(EventSaving, ARepetitionThatEndsTakesALaterRemindersAlarm) {
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

TEST_F(EventSaving, TheListsOfRemindersAndTheCalendarsOfEventsDoNotMix) {
    startTyped();
    chooseCalendar("Work");
    done();
    openSheet();
    openReminder();
    touchAndWait("List");
    goBack();
    touchAndWait("List");
    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    touchAndWait("Shopping");
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
    EXPECT_EQ(reminders()[0].list, "Shopping");
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

TEST_F(EventSaving, GermanScreensSaveTheSame) {
    startEvent({.language = "de"});
    describe("Mittagessen");
    touchAndWait("Turnus");
    touchAndWait("Jede Woche");
    touchAndWait("Zurück");

    done();

    EXPECT_EQ(saved(), (Saved{"Home", "Mittagessen", "", opened, hourLater, "weekly 1"}));
}
