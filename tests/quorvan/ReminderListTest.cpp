#include "tests/quorvan/ReminderListTest.h"
#include "platform/uikit/UITableView.h"

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderListChooser : public ReminderListTest {};

} // namespace

TEST_F(ReminderListChooser, HasItsPartsInOrder) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    const auto shown = chooser();
    expectPanel(shown, "15 149 290 270");
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
    touchAndWait("Don’t Allow");
    goBack();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_FALSE(exists(identifiersFile()));
}

TEST_F(ReminderListChooser, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    start();
    startReminder();

    open();

    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='List']"));
    EXPECT_TRUE(find("Back"));
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

TEST_F(ReminderListChooser, MarksTheRowInItsOwnTable) {
    writeTitles({"Tasks", "Shopping", "Work"});
    useReminders(Access::Allow);
    start();
    startReminder();
    open();

    const auto table = liveView<UITableView>();
    run([&] { table.delegate().send<"tableView:didSelectRowAtIndexPath:">(UITableView(), NSIndexPath::forRow(1, 0)); });

    EXPECT_EQ(marked(), Texts{"Shopping"});
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
