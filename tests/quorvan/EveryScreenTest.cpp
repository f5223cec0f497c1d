// What every screen does when it is told the same: its builder's panel before anybody puts it into its place, the
// number of its rows, a warning of the system's.

#include "platform/uikit/UITableView.h"
#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Messages.h"
#include "tests/quorvan/Screens.h"

#include <algorithm>
#include <functional>
#include <sstream>

namespace {

using Counts = std::vector<objc::Int>;

struct Expected {
    std::vector<std::string> way; // the activity and the rows to be tapped
    std::string builder;
    std::string onAPhone;
    std::string onATablet;
    Counts rows; // of each section; none where there is no table
};

// Some lie a quarter of the space beside them down: of 568 or 1024 points less their height.
const std::vector<Expected> panels = {
    {{"Note"}, "createNote", "15 20.6 290 225", "15 20.6 538 250", {1}},
    {{"Note", "Account"}, "createNote", "15 20.6 290 225", "15 20.6 538 250", {2}},
    {{"Reminder"}, "createReminder", "15 20.6 290 270", "15 20.6 290 270", {3}},
    {{"Reminder", "List"}, "reminderList", "15 20.6 290 270", "15 20.6 290 270", {0}},
    {{"Reminder", "Remind me"}, "reminderList", "15 20.6 290 270", "15 20.6 290 270", {}},
    {{"Reminder", "Priority"}, "reminderList", "15 20.6 290 270", "15 20.6 290 270", {4}},
    {{"Event"}, "createReminder", "15 74.5 290 270", "15 188.5 290 270", {3}},
    {{"Event", "Calendar"}, "reminderList", "15 20.6 290 270", "15 20.6 290 270", {0}},
    {{"Event", "Date"}, "createReminder", "15 20.6 290 270", "15 20.6 290 270", {2}},
    {{"Event", "Date", "Start"}, "reminderList", "15 20.6 290 184", "15 20.6 290 184", {}},
    {{"Event", "Date", "End"}, "reminderList", "15 20.6 290 184", "15 20.6 290 184", {}},
    {{"Event", "Repeat"}, "reminderList", "15 20.6 290 270", "15 20.6 290 270", {1, 6}},
    {{"Event", "Repeat", "End Date"}, "reminderList", "15 74.5 290 270", "15 188.5 290 270", {}},
};

class EveryScreen : public EventTest {
protected:
    EveryScreen() {
        useReminders(phone::Access::Allow);
        useEvents(phone::Access::Allow);
    }
    /// Goes to every screen and back to the call.
    void visitEach(const std::function<void(const UIViewController&, const Expected&)>& look) {
        startCall();
        for (const Expected& expected : panels) {
            visit(expected.way, [&](const UIViewController& screen) { look(screen, expected); });
        }
    }
    /// By the activity and the rows to be tapped.
    void visit(const std::vector<std::string>& way, const std::function<void(const UIViewController&)>& look) {
        SCOPED_TRACE(way.back());
        openSheet();
        for (const auto& step : way) {
            touchAndWait(step);
        }
        run([&] { look(screenAt(way.size() - 1)); });
        for (std::size_t i = 1; i < way.size(); ++i) {
            goBack();
        }
        cancel();
    }
    static std::string builtFrame(const UIViewController& screen, const std::string& builder) {
        const id made = objc::detail::call<id>(screen.raw(), sel_registerName(builder.c_str()));
        const CGRect frame = objc::borrow<UIView>(made).frame();
        std::ostringstream text;
        text << frame.origin.x << ' ' << frame.origin.y << ' ' << frame.size.width << ' ' << frame.size.height;
        return text.str();
    }
    /// How many rows with an arrow have been drawn so far: each reads its picture.
    long arrowsRead() {
        const auto files = log("file");
        return std::count_if(files.begin(), files.end(), [](const auto& entry) {
            return entry.at("path").template get<std::string>().find("/arrow") != std::string::npos;
        });
    }
    static Counts rows(const UIViewController& screen) {
        Counts counts;
        if (objc::responds<"numberOfSectionsInTableView:">(screen)) {
            const auto sections = screen.send<"numberOfSectionsInTableView:", objc::Int>(UITableView());
            for (objc::Int section = 0; section < sections; ++section) {
                counts.push_back(screen.send<"tableView:numberOfRowsInSection:", objc::Int>(UITableView(), section));
            }
        }
        return counts;
    }
};

} // namespace

TEST_F(EveryScreen, BuildsItsPanelAtTheTopOfAPhone) {
    start();

    visitEach([](const UIViewController& screen, const Expected& expected) {
        EXPECT_EQ(builtFrame(screen, expected.builder), expected.onAPhone);
    });
}

TEST_F(EveryScreen, BuildsItsPanelAtTheTopOfATablet) {
    start({.device = "ipad"});

    visitEach([](const UIViewController& screen, const Expected& expected) {
        EXPECT_EQ(builtFrame(screen, expected.builder), expected.onATablet);
    });
}

TEST_F(EveryScreen, HasAsManyRowsAsItShows) {
    start();

    visitEach([](const UIViewController& screen, const Expected& expected) { EXPECT_EQ(rows(screen), expected.rows); });
}

TEST_F(EveryScreen, LeavesAWarningOfLittleMemoryToThePlatform) {
    Messages messages;
    start();
    messages.watch<"UIViewController", "didReceiveMemoryWarning">();

    visitEach([&](const UIViewController& screen, const Expected&) {
        screen.send<"didReceiveMemoryWarning">();

        EXPECT_EQ(messages.take(),
                  (std::vector<std::string>{Messages::described(screen.raw()) + " didReceiveMemoryWarning"}));
    });
}

TEST_F(EveryScreen, OfAReminderOrAnEventReloadsItsRowsAndDrawsTheLastWhenAsked) {
    Messages messages;
    start();
    messages.watch<"UITableView", "reloadData">();

    visitEach([&](const UIViewController& screen, const Expected& expected) {
        if (expected.rows != Counts{3}) {
            return;
        }
        messages.take();
        const long before = arrowsRead();

        screen.send<"returnMethod">();

        EXPECT_EQ(messages.take(),
                  (std::vector<std::string>{"rows of " + Messages::described(screen.raw()) + " reloadData"}));
        EXPECT_EQ(arrowsRead() - before, 1);
    });
}

TEST_F(EveryScreen, LetsThePlatformLoadItsViewOnce) {
    Messages messages;
    start();
    messages.watch<"UIViewController", "viewDidLoad">();

    visitEach([&](const UIViewController& screen, const Expected&) {
        const auto heard = messages.take();
        EXPECT_EQ(std::count(heard.begin(), heard.end(), Messages::described(screen.raw()) + " viewDidLoad"), 1);
    });
}

// Nobody sees them, for the bars that would show them are hidden.
TEST_F(EveryScreen, HasATitleInThePersonsLanguageButForThree) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> titles = {
        {{"Notiz"}, "Note"},
        {{"Notiz", "Account"}, "Note"},
        {{"Erinnerung"}, "Erinnerung"},
        {{"Erinnerung", "Liste"}, "Erinnerung"},
        {{"Erinnerung", "Erinnern"}, "Erinnerung"},
        {{"Erinnerung", "Priorität"}, "Reminder"},
        {{"Ereignis"}, "Ereignis"},
        {{"Ereignis", "Kalender"}, "Ereignis"},
        {{"Ereignis", "Datum"}, "Datum"},
        {{"Ereignis", "Datum", "Beginn"}, "Beginn"},
        {{"Ereignis", "Datum", "Ende"}, "Ende"},
        {{"Ereignis", "Turnus"}, "Turnus"},
        {{"Ereignis", "Turnus", "Enddatum"}, "Datum"},
    };
    start({.language = "de"});
    startCall();

    for (const auto& [way, title] : titles) {
        visit(way, [&, expected = title](const UIViewController& screen) {
            EXPECT_EQ(phone::text(screen.send<"title", NSString>()), expected);
        });
    }
}
