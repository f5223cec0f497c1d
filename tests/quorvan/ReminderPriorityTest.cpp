#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

class ReminderPriorityChooser : public CallTest {
protected:
    void open() { touchAndWait(panel().select_node(".//*[@row='0,2']").node()); }
    pugi::xml_node chooser() { return CallTest::chooser("ReminderPriority"); }
    Texts rows() { return CallTest::rows(chooser()); }
    Texts marked() { return CallTest::marked(chooser()); }
    std::string shownPriority() { return shownValue(2); }
};

} // namespace

TEST_F(ReminderPriorityChooser, HasItsPartsInOrder) {
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
    EXPECT_EQ(attribute(shown.child("UITableView"), "style"), "plain");
    EXPECT_TRUE(shown.select_node("UINavigationBar/UILabel[@text='Priority']"));
    EXPECT_EQ(layout(shown.parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
}

TEST_F(ReminderPriorityChooser, ListsFourPrioritiesWithNoneMarked) {
    start();
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"None", "!", "!!", "!!!"}));
    EXPECT_TRUE(marked().empty());
}

TEST_F(ReminderPriorityChooser, SpeaksThePersonsLanguageButForItsUnseenTitle) {
    start({.language = "de"});
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"Keine", "!", "!!", "!!!"}));
    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='Priorität']"));
    EXPECT_EQ(attribute(chooser().parent(), "title"), "Reminder");
}

TEST_F(ReminderPriorityChooser, LooksItsTitleUpTwice) {
    write(resource("Translations.bundle/en.lproj/Localizable.strings"),
          "\"Priority\" = \"Urgency\";\n\"Urgency\" = \"How urgent\";\n");
    start();
    startReminder();

    open();

    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='How urgent']"));
}

TEST_F(ReminderPriorityChooser, ShowsTheTappedPriorityOnTheScreenBelow) {
    start();
    startReminder();
    open();

    touchAndWait("!!");
    EXPECT_EQ(marked(), (Texts{"!!"}));
    EXPECT_TRUE(chooser().select_nodes(".//*[@selected='true']").empty());
    goBack();

    EXPECT_EQ(shownPriority(), "!!");
}

TEST_F(ReminderPriorityChooser, MovesTheCheckmarkToTheRowTappedLast) {
    start();
    startReminder();
    open();

    touchAndWait("!!!");
    touchAndWait("!");

    EXPECT_EQ(marked(), (Texts{"!"}));
    goBack();
    EXPECT_EQ(shownPriority(), "!");
}

TEST_F(ReminderPriorityChooser, OpenedAgainForgetsTheRowsTextButNotThePriority) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();
    typeNote("milk");
    open();
    touchAndWait("!!");
    goBack();

    open();
    EXPECT_TRUE(marked().empty());
    goBack();

    EXPECT_EQ(shownPriority(), "None");
    done();
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].item.priority, 5);
}

TEST_F(ReminderPriorityChooser, OpenedAgainUnmarksTheRowChosenBefore) {
    start();
    startReminder();
    open();
    touchAndWait("!!");
    goBack();
    open();

    touchAndWait("!!!");

    EXPECT_EQ(marked(), (Texts{"!!!"}));
}

TEST_F(ReminderPriorityChooser, GoesBackByItsArrowToo) {
    start();
    startReminder();
    open();

    touchAndWait(chooser().select_node(".//UIButton[@frame='-8 1 23 42']").node());

    EXPECT_TRUE(panel());
    EXPECT_FALSE(chooser());
}
