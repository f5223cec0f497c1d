#include "tests/quorvan/EventTest.h"

namespace {

using Texts = std::vector<std::string>;

class EventCalendar : public EventTest {
protected:
    /// Access has been granted before, and the titles of an earlier opening are there to be shown.
    void startWithTitles(const Texts& titles = {"Home", "Work", "Holidays"}) {
        useEvents(phone::Access::Allow);
        writeTitles(titles);
        startAt({"Calendar"});
    }
    void writeTitles(const Texts& titles) {
        std::string list;
        for (const auto& title : titles) {
            list += "<string>" + title + "</string>";
        }
        writeFile("<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><array>" + list +
                  "</array></plist>");
    }
    void writeFile(const std::string& content) { write(resource("Events.plist"), content); }
    void openAgain() {
        goBack();
        touchAndWait("Calendar");
    }
    /// The store messages so far: "MESSAGE ARGUMENTS".
    Texts messages() {
        Texts lines;
        for (const auto& entry : log("store")) {
            lines.push_back(entry.at("message").get<std::string>() + " " + entry.at("arguments").dump());
        }
        return lines;
    }
    /// What was read and written of the chooser's files: "ACTION NAME OK".
    Texts files() {
        Texts lines;
        for (const auto& entry : log("file")) {
            const std::string path = entry.at("path");
            if (path.find("Events") != std::string::npos && path.ends_with(".plist")) {
                lines.push_back(entry.at("action").get<std::string>() + " " + path.substr(path.rfind('/') + 1) + " " +
                                entry.at("ok").dump());
            }
        }
        return lines;
    }
};

} // namespace

TEST_F(EventCalendar, HasItsPartsInOrder) {
    startWithTitles();

    EXPECT_EQ(screen(), "EventCalendar");
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(layout(shown()),
              (Texts{"UINavigationBar 0 0 290 44", "UITableView 0 44 290 226", "LineCreator 0 44 290 0.5"}));
    EXPECT_EQ(attribute(shown().child("UITableView"), "style"), "plain");
    EXPECT_EQ(attribute(shown().child("LineCreator"), "background"), "#c0c0c0ff");
    EXPECT_TRUE(shown().select_node("UINavigationBar//UILabel[@text='Calendar']"));
    EXPECT_EQ(attribute(shown().parent(), "title"), "Event");
    EXPECT_EQ(rows(), (Texts{"Home", "Work", "Holidays"}));
    EXPECT_EQ(attribute(shown().select_node(".//*[@row]").node(), "reuse"), "Cell");
}

TEST_F(EventCalendar, SpeaksGerman) {
    useEvents(phone::Access::Allow);
    startEvent({.language = "de"});

    touchAndWait("Kalender");

    EXPECT_TRUE(shown().select_node("UINavigationBar//UILabel[@text='Kalender']"));
    EXPECT_TRUE(shown().select_node("UINavigationBar//UIButton[@text='Zurück']"));
    EXPECT_EQ(attribute(shown().parent(), "title"), "Ereignis");
}

TEST_F(EventCalendar, TheFirstOpeningAsksThePersonAndShowsNothingUntilTheNext) {
    startCalendar();
    EXPECT_TRUE(isVisible("“Phone” Would Like to Access Your Calendar"));
    touchAndWait("OK");
    EXPECT_EQ(rows(), Texts{});

    openAgain();

    EXPECT_EQ(rows(), (Texts{"Home", "Work", "Holidays"}));
    EXPECT_FALSE(isVisible("OK"));
}

TEST_F(EventCalendar, ALateAnswerIsShownAtTheNextOpening) {
    useEvents(phone::Access::Allow);
    startCalendar();
    EXPECT_EQ(rows(), Texts{});

    openAgain();

    EXPECT_EQ(rows(), (Texts{"Home", "Work", "Holidays"}));
}

TEST_F(EventCalendar, AnEarlyAnswerIsShownAtOnce) {
    useEvents(phone::Access::Allow);
    startEvent();
    boot().setStoreAnswers("early");

    touchAndWait("Calendar");

    EXPECT_EQ(rows(), (Texts{"Home", "Work", "Holidays"}));
}

TEST_F(EventCalendar, ADeniedAccessWritesNothingAndShowsWhatWasThere) {
    useEvents(phone::Access::Deny);
    writeTitles({"Old"});
    startCalendar();
    EXPECT_EQ(rows(), (Texts{"Old"}));

    openAgain();

    EXPECT_EQ(rows(), (Texts{"Old"}));
    for (const auto& line : files()) {
        EXPECT_FALSE(line.starts_with("write")) << line;
    }
}

TEST_F(EventCalendar, ARefusalAtThePromptIsRemembered) {
    startCalendar();
    touchAndWait("Don’t Allow");

    openAgain();

    EXPECT_EQ(rows(), Texts{});
    EXPECT_FALSE(isVisible("Don’t Allow"));
}

TEST_F(EventCalendar, AsksForEventsAndReadsTheirCalendarsOnce) {
    useEvents(phone::Access::Allow);
    startCalendar();

    EXPECT_EQ(messages(), (Texts{
                              "init []",
                              "respondsToSelector: [\"requestAccessToEntityType:completion:\"]",
                              "requestAccessToEntityType:completion: [\"0\"]",
                              "calendarsForEntityType: [\"0\"]",
                              "title []",
                              "title []",
                              "title []",
                          }));
}

TEST_F(EventCalendar, TheCalendarsThemselvesAreRefusedAndLeaveNoFile) {
    useEvents(phone::Access::Allow);
    startCalendar();

    EXPECT_EQ(files(), (Texts{
                           "read EventsID.plist false",
                           "read Events.plist true",
                           "write EventsID.plist false",
                           "write Events.plist true",
                       }));
    EXPECT_FALSE(exists(resource("EventsID.plist")));
    const std::string titles = read(resource("Events.plist"));
    EXPECT_LT(titles.find("<string>Home</string>"), titles.find("<string>Work</string>"));
    EXPECT_LT(titles.find("<string>Work</string>"), titles.find("<string>Holidays</string>"));
    EXPECT_EQ(read(resource("Reminders.plist")).find("<string>"), std::string::npos);
}

TEST_F(EventCalendar, WithoutCalendarsTheFileIsAnEmptyList) {
    useEvents(phone::Access::Allow, {});
    writeTitles({"Gone"});
    startCalendar();
    EXPECT_EQ(rows(), (Texts{"Gone"}));

    openAgain();

    EXPECT_EQ(rows(), Texts{});
    EXPECT_EQ(read(resource("Events.plist")).find("<string>"), std::string::npos);
}

TEST_F(EventCalendar, WithoutCalendarsThereIsNoFileOfIdentifiersEither) {
    useEvents(phone::Access::Allow, {});
    startCalendar();

    openAgain();

    EXPECT_FALSE(exists(resource("EventsID.plist")));
}

TEST_F(EventCalendar, AFileThatIsMissingOrUnreadableShowsNoRows) {
    useEvents(phone::Access::Deny);
    startEvent();
    remove(resource("Events.plist"));
    touchAndWait("Calendar");
    EXPECT_EQ(rows(), Texts{});

    for (const char* content : {"", "no property list", "<plist version=\"1.0\"><dict/></plist>"}) {
        writeFile(content);
        openAgain();
        EXPECT_EQ(rows(), Texts{}) << content;
    }
}

TEST_F(EventCalendar, ATapMarksTheRowAndNamesItOnTheEventScreen) {
    startWithTitles();

    touchAndWait("Work");

    EXPECT_EQ(screen(), "EventCalendar");
    EXPECT_EQ(marked(), (Texts{"Work"}));
    EXPECT_EQ(shown().select_nodes(".//*[@selected='true']").size(), 0U);
    goBack();
    EXPECT_EQ(value("Calendar"), "Work");
}

TEST_F(EventCalendar, ASecondTapMovesTheMark) {
    startWithTitles();

    touchAndWait("Holidays");
    touchAndWait("Home");

    EXPECT_EQ(marked(), (Texts{"Home"}));
    goBack();
    EXPECT_EQ(value("Calendar"), "Home");
}

TEST_F(EventCalendar, TheSameRowTwiceStaysMarked) {
    startWithTitles();

    touchAndWait("Work");
    touchAndWait("Work");

    EXPECT_EQ(marked(), (Texts{"Work"}));
}

TEST_F(EventCalendar, OpenedAgainItShowsNoMarkAndKeepsTheChoice) {
    startWithTitles();
    touchAndWait("Work");

    openAgain();

    EXPECT_EQ(marked(), Texts{});
    goBack();
    EXPECT_EQ(value("Calendar"), "Work");
}

TEST_F(EventCalendar, BackWithoutATapChoosesNothing) {
    startWithTitles();

    goBack();

    EXPECT_EQ(screen(), "EventController");
    EXPECT_EQ(value("Calendar"), "Default");
}

// Nothing takes the mark off a cell that is used again.
TEST_F(EventCalendar, AMarkOutOfSightGoesWithItsCellAndTheChoiceStays) {
    Texts titles;
    for (int i = 0; i < 20; ++i) {
        titles.push_back("Calendar " + std::to_string(i));
    }
    startWithTitles(titles);
    touchAndWait("Calendar 0");
    touch(phone::Screen::Phase::Began, 160, 400);
    touch(phone::Screen::Phase::Moved, 160, 100);
    touch(phone::Screen::Phase::Ended, 160, 100);
    settle();
    EXPECT_EQ(marked(), (Texts{"Calendar 11"}));

    goBack();
    EXPECT_EQ(value("Calendar"), "Calendar 0");
}

TEST_F(EventCalendar, TheNextEventsRowReadsDefaultAgain) {
    startWithTitles();
    touchAndWait("Work");
    goBack();
    cancel();

    openAnother();

    EXPECT_EQ(value("Calendar"), "Default");
}
