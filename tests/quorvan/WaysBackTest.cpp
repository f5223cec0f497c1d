// When a chooser reloads the rows of the screens below it: at each choice, and in which order when it is left.

#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Messages.h"

#include <algorithm>
#include <functional>

namespace {

using Texts = std::vector<std::string>;

class WaysBack : public EventTest {
protected:
    WaysBack() {
        useReminders(phone::Access::Allow);
        useEvents(phone::Access::Allow);
    }
    void listen() {
        messages.watch<"UITableView", "reloadData">();
        messages.watch<"UINavigationController", "popToRootViewControllerAnimated:", id, objc::UInt>();
        messages.watch<"UINavigationController", "popToViewController:animated:", id, id, objc::UInt>();
    }
    /// What a touch of Back sets off at once.
    Texts leave() {
        listen();
        messages.take();
        tapOn("Back");
        const Texts heard = messages.take();
        settle();
        return heard;
    }
    /// What a choice sets off, each once.
    Texts heardWhile(const std::function<void()>& choose) {
        listen();
        messages.take();
        choose();
        settle();
        Texts heard = messages.take();
        heard.erase(std::unique(heard.begin(), heard.end()), heard.end());
        return heard;
    }

    Messages messages;
};

const std::string toRoot = "UINavigationController popToRootViewControllerAnimated: 1";

} // namespace

TEST_F(WaysBack, TheNotesAccountChooserGoesAndThenReloads) {
    start();
    startNote();
    touchAndWait("Account");

    EXPECT_EQ(leave(), (Texts{toRoot, "rows of NoteController reloadData"}));
}

TEST_F(WaysBack, TheReminderListChooserGoesAndThenReloads) {
    start();
    startReminder();
    touchAndWait("List");

    EXPECT_EQ(leave(), (Texts{toRoot, "rows of ReminderController reloadData"}));
}

TEST_F(WaysBack, TheAlarmDateChooserReloadsAndThenGoes) {
    start();
    startReminder();
    touchAndWait("Remind me");

    EXPECT_EQ(leave(), (Texts{"rows of ReminderController reloadData", toRoot}));
}

TEST_F(WaysBack, ThePriorityChooserReloadsAndThenGoes) {
    start();
    startReminder();
    touchAndWait("Priority");

    EXPECT_EQ(leave(), (Texts{"rows of ReminderController reloadData", toRoot}));
}

TEST_F(WaysBack, TheEventCalendarChooserReloadsAndThenGoes) {
    startCalendar();

    EXPECT_EQ(leave(), (Texts{"rows of EventController reloadData", toRoot}));
}

TEST_F(WaysBack, TheDateFormGoesWithoutReloading) {
    startDate();

    EXPECT_EQ(leave(), (Texts{toRoot}));
}

TEST_F(WaysBack, TheStartAndEndChoosersReloadBothScreensBelowAndThenGoToTheForm) {
    startDate();
    for (const char* row : {"Start", "End"}) {
        touchAndWait(row);

        Texts heard = leave();

        ASSERT_GE(heard.size(), 3U) << row;
        heard.resize(3); // the form's rows reload those of the event again as they are drawn
        EXPECT_EQ(heard, (Texts{"rows of EventController reloadData", "rows of EventDate reloadData",
                                "UINavigationController popToViewController:animated: EventDate 1"}))
            << row;
    }
}

TEST_F(WaysBack, TheRepeatChooserGoesWithoutReloading) {
    startRepeat();

    EXPECT_EQ(leave(), (Texts{toRoot}));
}

TEST_F(WaysBack, TheRepeatEndChooserReloadsTheRepeatChooserAndThenGoesThere) {
    startRepeatEnd();

    EXPECT_EQ(leave(), (Texts{"rows of EventRemind reloadData",
                              "UINavigationController popToViewController:animated: EventRemind 1"}));
}

TEST_F(WaysBack, ATurnOfTheAlarmsWheelsReloadsTheReminder) {
    start();
    startReminder();
    touchAndWait("Remind me");

    EXPECT_EQ(heardWhile([&] { pickDate("2026-03-06T09:00"); }), (Texts{"rows of ReminderController reloadData"}));
}

TEST_F(WaysBack, ATurnOfTheEventsWheelsReloadsBothScreensBelow) {
    startDate();
    for (const char* row : {"Start", "End"}) {
        touchAndWait(row);

        const Texts heard = heardWhile([&] { pickDate("2026-05-16T09:00"); });

        ASSERT_GE(heard.size(), 2U) << row;
        EXPECT_EQ(Texts(heard.begin(), heard.begin() + 2),
                  (Texts{"rows of EventController reloadData", "rows of EventDate reloadData"}))
            << row;
        goBack();
    }
}

TEST_F(WaysBack, ATurnOfTheRepetitionsWheelsReloadsNothing) {
    startRepeatEnd();

    EXPECT_EQ(heardWhile([&] { pickDate("2026-12-24T14:37"); }), Texts{});
}

TEST_F(WaysBack, AChosenRowReloadsTheComposeScreen) {
    const std::vector<std::pair<Texts, std::string>> choices = {
        {{"Note", "Account", "Mail"}, "NoteController"},
        {{"Reminder", "Priority", "!!"}, "ReminderController"},
        {{"Event", "Repeat", "Every Week"}, "EventController"},
    };
    start();
    startCall();
    for (const auto& [way, screen] : choices) {
        openSheet();
        touchAndWait(way[0]);
        touchAndWait(way[1]);

        EXPECT_EQ(heardWhile([&, row = way[2]] { tapOn(row); }), (Texts{"rows of " + screen + " reloadData"}));

        goBack();
        cancel();
    }
}

TEST_F(WaysBack, AChosenListOrCalendarReloadsTheComposeScreen) {
    start();
    startReminder();
    touchAndWait("List");
    goBack();
    touchAndWait("List");
    EXPECT_EQ(heardWhile([&] { tapOn("Work"); }), (Texts{"rows of ReminderController reloadData"}));
    goBack();
    cancel();
    openAnother();
    touchAndWait("Calendar");
    goBack();
    touchAndWait("Calendar");

    EXPECT_EQ(heardWhile([&] { tapOn("Work"); }), (Texts{"rows of EventController reloadData"}));
}
