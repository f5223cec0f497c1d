#include "phone/foundation/FileFaults.h"
#include "tests/quorvan/BrokenFiles.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderListChooser : public CallTest {
protected:
    static std::string titlesFile() { return resource("Reminders.plist"); }
    static std::string identifiersFile() { return resource("RemindersID.plist"); }

    /// The row's name reads as its value does at first.
    void open() { touchAndWait(panel().select_node(".//*[@row='0,0']").node()); }
    /// Once for the file of titles, and once more to see what it holds.
    void openTwice() {
        open();
        goBack();
        open();
    }
    pugi::xml_node chooser() { return CallTest::chooser("ReminderList"); }
    Texts rows() { return CallTest::rows(chooser()); }
    Texts marked() { return CallTest::marked(chooser()); }
    void writeTitles(const Texts& titles) {
        std::string body;
        for (const std::string& title : titles) {
            body += "<string>" + title + "</string>";
        }
        write(titlesFile(), "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>" + body + "</array></plist>");
    }
    /// What the file of titles holds, in order.
    Texts titles() const {
        pugi::xml_document file;
        file.load_string(read(titlesFile()).c_str());
        Texts found;
        for (const auto& title : file.select_nodes("/plist/array/string")) {
            found.emplace_back(title.node().text().get());
        }
        return found;
    }
    /// L0 to L11: more than the panel shows.
    void useTwelveLists() {
        std::vector<phone::CalendarStore> lists;
        for (int i = 0; i < 12; ++i) {
            lists.push_back({"L" + std::to_string(i)});
        }
        useReminders(Access::Allow, lists);
    }
    /// A finger moves the rows up, as far as they go.
    void scrollToTheEnd() {
        for (int i = 0; i < 3; ++i) {
            touch(phone::Screen::Phase::Began, 160, 400);
            touch(phone::Screen::Phase::Moved, 160, 300);
            touch(phone::Screen::Phase::Moved, 160, 200);
            touch(phone::Screen::Phase::Ended, 160, 200);
            settle();
        }
    }
    /// What was done to the two files, in order: "ACTION NAME OK".
    Texts fileActions() {
        Texts actions;
        for (const auto& entry : log("file")) {
            const std::string path = entry.at("path");
            if (path == titlesFile() || path == identifiersFile()) {
                actions.push_back(entry.at("action").get<std::string>() + " " + path.substr(path.rfind('/') + 1) +
                                  (entry.at("ok") == true ? " ok" : " refused"));
            }
        }
        return actions;
    }
};

} // namespace

TEST_F(ReminderListChooser, HasItsPartsInOrder) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    const auto shown = chooser();
    EXPECT_EQ(attribute(shown, "frame"), "15 149 290 270");
    EXPECT_EQ(attribute(shown, "background"), "#ffffffff");
    EXPECT_EQ(attribute(shown, "cornerRadius"), "5");
    EXPECT_EQ(attribute(shown, "clips"), "true");
    EXPECT_EQ(layout(shown), (Texts{
                                 "UINavigationBar 0 0 290 44",
                                 "UITableView 0 44 290 226",
                                 "LineCreator 0 44 290 0.5",
                             }));
    EXPECT_EQ(attribute(shown.child("LineCreator"), "background"), "#c0c0c0ff");
    EXPECT_EQ(attribute(shown.child("UITableView"), "style"), "plain");
    EXPECT_TRUE(shown.select_node("UINavigationBar/UILabel[@text='List']"));
    EXPECT_EQ(attribute(shown.parent(), "title"), "Reminder");
    EXPECT_EQ(layout(shown.parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
}

TEST_F(ReminderListChooser, IsCentredOnTheSmallerPhone) {
    start({.device = "iphone4", .app = "older"});
    startReminder();

    open();

    EXPECT_EQ(attribute(chooser(), "frame"), "15 105 290 270");
}

TEST_F(ReminderListChooser, SpeaksThePersonsLanguage) {
    useReminders(Access::Allow);
    start({.language = "de"});
    startReminder();

    open();

    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='Liste']"));
    EXPECT_TRUE(find("Zurück"));
    EXPECT_EQ(attribute(chooser().parent(), "title"), "Erinnerung");
}

TEST_F(ReminderListChooser, AsksThePersonAtTheFirstOpeningAndIsFilledAtTheNext) {
    start();
    startReminder();

    open();
    EXPECT_TRUE(isVisible("“Phone” Would Like to Access Your Reminders"));
    EXPECT_TRUE(rows().empty());
    touchAndWait("OK");
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(titles(), (Texts{"Tasks", "Shopping", "Work"}));
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    EXPECT_FALSE(find("OK"));
}

TEST_F(ReminderListChooser, CannotBeLeftWhileThePersonIsAsked) {
    start();
    startReminder();

    open();

    EXPECT_FALSE(find("Back").attribute("touch"));
    touchAndWait("OK");
    EXPECT_TRUE(find("Back").attribute("touch"));
}

TEST_F(ReminderListChooser, OutlivesTheCallWhileThePersonIsAsked) {
    start();
    startReminder();
    typeNote("milk");
    open();

    phoneCall("cancel");
    advance(5);
    touchAndWait("Don't Allow");
    goBack();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_FALSE(exists(identifiersFile()));
}

TEST_F(ReminderListChooser, WritesNothingWhereTheStoreCannotBeAsked) {
    writeTitles({"Garden"});
    useReminders(Access::Allow);
    start();
    startReminder();
    withholdRequests();

    openTwice();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
    EXPECT_EQ(logged("store", "message"), (Texts{"init", "init"}));
}

TEST_F(ReminderListChooser, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    start();
    startReminder();

    open();

    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='List']"));
    EXPECT_TRUE(find("Back"));
}

TEST_F(ReminderListChooser, KeepsTheOldFileWhereItCannotBeWritten) {
    writeTitles({"Garden"});
    useReminders(Access::Allow);
    start();
    startReminder();
    const phone::FileFaults readOnly(phone::FileFaults::Disk::ReadOnly, "/Library/Quorvan");

    openTwice();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
}

// The cells are the platform's to reuse, and nothing takes their checkmarks off.
TEST_F(ReminderListChooser, ShowsTheCheckmarkOfAReusedCellOnAnotherRow) {
    useTwelveLists();
    start();
    startReminder();
    openTwice();
    touchAndWait("L0");

    scrollToTheEnd();

    EXPECT_EQ(marked().size(), 1U);
    EXPECT_NE(marked(), (Texts{"L0"}));
}

TEST_F(ReminderListChooser, TakesATapWhileTheRowMarkedBeforeIsOutOfSight) {
    useTwelveLists();
    start();
    startReminder();
    openTwice();
    touchAndWait("L0");
    scrollToTheEnd();

    touchAndWait("L11");
    goBack();

    EXPECT_EQ(shownValue(0), "L11");
}

TEST_F(ReminderListChooser, DeniedWritesNothingAndShowsWhatTheFileHeld) {
    writeTitles({"Garden"});
    start();
    startReminder();

    open();
    touchAndWait("Don't Allow");
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
    EXPECT_EQ(fileActions(), (Texts{
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                             }));
}

TEST_F(ReminderListChooser, ALateAnswerIsSeenAtTheNextOpening) {
    remove(titlesFile());
    useReminders(Access::Allow);
    start();
    startReminder();

    open();
    EXPECT_TRUE(rows().empty());
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
}

TEST_F(ReminderListChooser, AnEarlyAnswerIsSeenAtOnce) {
    useReminders(Access::Allow);
    start();
    boot().setStoreAnswers("early");
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    EXPECT_EQ(fileActions(), (Texts{
                                 "write RemindersID.plist refused",
                                 "write Reminders.plist ok",
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                             }));
}

TEST_F(ReminderListChooser, ALateAnswerComesAfterTheFilesWereRead) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    EXPECT_EQ(fileActions(), (Texts{
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                                 "write RemindersID.plist refused",
                                 "write Reminders.plist ok",
                             }));
}

TEST_F(ReminderListChooser, NeverLeavesAFileOfIdentifiers) {
    useReminders(Access::Allow);
    start();
    boot().setStoreAnswers("early");
    startReminder();

    openTwice();

    EXPECT_FALSE(exists(identifiersFile()));
}

TEST_F(ReminderListChooser, LeavesAFileOfIdentifiersOfAnotherProgramAlone) {
    const std::string foreign =
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>A</string></array></plist>";
    write(identifiersFile(), foreign);
    useReminders(Access::Allow);
    start();
    startReminder();
    typeNote("milk");

    openTwice();
    touchAndWait("Shopping");
    goBack();
    done();

    EXPECT_EQ(read(identifiersFile()), foreign);
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Shopping");
}

TEST_F(ReminderListChooser, SendsTheStoreItsMessagesInOrder) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    EXPECT_EQ(logged("store", "message"), (Texts{"init", "respondsToSelector:", "requestAccessToEntityType:completion:",
                                                 "calendarsForEntityType:", "title", "title", "title"}));
}

TEST_F(ReminderListChooser, ShowsAStaleFileUntilTheNextOpening) {
    writeTitles({"Garden", "House", "Car", "Tasks"});
    useReminders(Access::Allow);
    start();
    startReminder();

    open();
    EXPECT_EQ(rows(), (Texts{"Garden", "House", "Car", "Tasks"}));
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
}

TEST_F(ReminderListChooser, WithoutAnyListWritesAnEmptyFileAndKeepsTheChoice) {
    writeTitles({"Garden"});
    useReminders(Access::Allow, {});
    start();
    startReminder();
    open();
    touchAndWait("Garden");
    goBack();

    open();

    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(exists(titlesFile()));
    EXPECT_TRUE(titles().empty());
    EXPECT_EQ((goBack(), shownValue(0)), "Garden");
}

TEST_F(ReminderListChooser, HasNoRowsWithoutAReadableFile) {
    for (const char* content :
         {"", "no property list", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>"}) {
        SCOPED_TRACE(content);
        write(titlesFile(), content);
        if (!isStarted()) {
            useReminders(Access::Deny);
            start();
            startReminder();
        }

        open();

        EXPECT_TRUE(rows().empty());
        goBack();
    }
    remove(titlesFile());

    open();

    EXPECT_TRUE(rows().empty());
}

TEST_F(ReminderListChooser, SurvivesWhateverStandsInThePlaceOfItsFile) {
    useReminders(Access::Allow);
    start();
    startCall();
    std::size_t saved = 0;

    for (const BrokenFile& broken : brokenFiles()) {
        SCOPED_TRACE(broken.name);
        broken.put(hostPath(titlesFile()));
        openSheet();
        openReminder();
        typeNote("milk");
        open();
        goBack();
        done();

        EXPECT_EQ(reminders().size(), ++saved);
        remove(titlesFile());
    }
}

TEST_F(ReminderListChooser, ShowsARowThatIsNoTextEmpty) {
    write(titlesFile(), "<?xml version=\"1.0\"?><plist "
                        "version=\"1.0\"><array><integer>7</integer><string>Garden</string></array></plist>");
    useReminders(Access::Deny);
    start();
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"", "Garden"}));
    EXPECT_TRUE(log("exception").empty());
}

TEST_F(ReminderListChooser, ShowsTheListsInTheStoresOrderReadOnlyOnesToo) {
    useReminders(Access::Allow, {{"Work"}, {"Anna", false, true}, {"Milk & Eggs", true}});
    start();
    startReminder();

    openTwice();

    EXPECT_EQ(rows(), (Texts{"Work", "Anna", "Milk & Eggs"}));
}

TEST_F(ReminderListChooser, MovesTheCheckmarkToTheRowTappedLast) {
    useReminders(Access::Allow);
    start();
    startReminder();
    openTwice();

    touchAndWait("Work");
    EXPECT_EQ(marked(), (Texts{"Work"}));
    touchAndWait("Tasks");

    EXPECT_EQ(marked(), (Texts{"Tasks"}));
    EXPECT_TRUE(chooser().select_nodes(".//*[@selected='true']").empty());
    goBack();
    EXPECT_EQ(shownValue(0), "Tasks");
}

TEST_F(ReminderListChooser, ShowsNoCheckmarkWhenItIsOpenedAgain) {
    useReminders(Access::Allow);
    start();
    startReminder();
    openTwice();
    touchAndWait("Work");
    goBack();

    open();

    EXPECT_TRUE(marked().empty());
    touchAndWait("Shopping");
    EXPECT_EQ(marked(), (Texts{"Shopping"}));
}

TEST_F(ReminderListChooser, LeftWithoutATapChangesNothing) {
    useReminders(Access::Allow);
    start();
    startReminder();
    openTwice();

    goBack();
    EXPECT_EQ(shownValue(0), "List");
    open();
    touchAndWait("Work");
    goBack();
    open();
    goBack();

    EXPECT_EQ(shownValue(0), "Work");
}

TEST_F(ReminderListChooser, StaysOpenAfterATap) {
    useReminders(Access::Allow);
    start();
    startReminder();
    openTwice();

    touchAndWait("Work");

    EXPECT_TRUE(chooser());
}

TEST_F(ReminderListChooser, WithoutTheBackPictureCannotBeLeft) {
    remove(resource("back.png"));
    remove(resource("back@2x.png"));
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    const auto container = chooser().select_node(".//UIView[UIButton]").node();
    EXPECT_EQ(layout(container), (Texts{"UIButton -8 1 0 0", "UIButton -5 2 75 0"}));
    EXPECT_FALSE(find("Back").attribute("touch"));
}
