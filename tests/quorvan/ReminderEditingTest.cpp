// The reminder's text and the keyboard.

#include "tests/quorvan/ReminderScreenTest.h"

namespace {

class ReminderEditing : public ReminderScreenTest {};

} // namespace

TEST_F(ReminderEditing, EditingClearsThePlaceholderAndMovesThePanelAboveTheKeyboard) {
    start();
    startReminder();

    touchAndWait(noteText());

    EXPECT_EQ(shownText(), "");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(panel(), "frame"), "15 41 290 270"); // the middle of 568 - 216 points
    ASSERT_EQ(moves().size(), 1U);
    EXPECT_EQ(moves()[0].at("curve"), 1);
    EXPECT_EQ(moves()[0].at("duration"), 0.27);
    EXPECT_EQ(moves()[0].at("view"), "UIView");
}

TEST_F(ReminderEditing, AllowsForTheSameKeyboardOnATablet) {
    start({.device = "ipad"});
    startReminder();

    touchAndWait(noteText());

    EXPECT_EQ(attribute(panel(), "frame"), "239 269 290 270"); // the middle of 1024 - 216 points
}

TEST_F(ReminderEditing, ReturnEndsTheEditingAndAddsNoLineBreak) {
    start();
    startReminder();
    typeNote("milk");

    type("\n");
    settle();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");
    EXPECT_NE(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(panel(), "frame"), "15 149 290 270");
    EXPECT_EQ(moves().size(), 2U);
}

TEST_F(ReminderEditing, ReturnOnAnEmptyTextBringsThePlaceholderBack) {
    start();
    startReminder();
    typeNote("a");
    key("backspace");

    key("enter");
    settle();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
}

TEST_F(ReminderEditing, APastedTextWithALineBreakIsRefusedWhole) {
    const std::string breaks[] = {"\n", "\r", "\r\n", "\v", "\f", "\u0085", "\u2028", "\u2029"};
    start();
    startReminder();
    typeNote("milk");

    for (const std::string& lineBreak : breaks) {
        SCOPED_TRACE(testing::PrintToString(lineBreak));
        boot().setClipboard("eggs" + lineBreak + "bread");
        boot().pasteText();
        settle();

        EXPECT_EQ(shownText(), "milk");
        EXPECT_NE(attribute(noteText(), "firstResponder"), "true");
        touchAndWait(noteText());
    }
}

TEST_F(ReminderEditing, APastedTextWithoutALineBreakIsTaken) {
    start();
    startReminder();
    typeNote("milk");

    boot().setClipboard(" and\teggs");
    boot().pasteText();
    settle();

    EXPECT_EQ(shownText(), "milk and\teggs");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
}

TEST_F(ReminderEditing, ATypedTextStaysWhenItIsEditedAgain) {
    start();
    startReminder();
    typeNote("milk");
    key("enter");
    settle();

    touchAndWait(noteText());

    EXPECT_EQ(shownText(), "milk");
}

TEST_F(ReminderEditing, ATypedTextEqualToThePlaceholderIsClearedWhenItIsEditedAgain) {
    start();
    startReminder();
    typeNote("  Description");
    key("enter");
    settle();
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");

    touchAndWait(noteText());

    EXPECT_EQ(shownText(), "");
}

TEST_F(ReminderEditing, OpensTheKeyboardAtOnceWhenThePersonWantsIt) {
    turnOn({1});
    start();

    startReminder();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(panel(), "frame"), "15 41 290 270");
}

TEST_F(ReminderEditing, LeavesTheKeyboardClosedWithoutPreferences) {
    start();

    startReminder();

    EXPECT_NE(attribute(noteText(), "firstResponder"), "true");
    EXPECT_FALSE(exists("/var/mobile/Library/Preferences/Mirelda.Quorvan.plist"));
}

TEST_F(ReminderEditing, OpensTheKeyboardAgainAfterAChooser) {
    turnOn({1});
    start();
    startReminder();
    touchAndWait("Priority");

    goBack();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
}

TEST_F(ReminderEditing, KeepsTheTextAcrossAChooserAndPutsTheKeyboardAway) {
    start();
    startReminder();
    typeNote("milk");

    touchAndWait("Priority");
    EXPECT_EQ(tree().select_nodes("//*[@firstResponder='true']").size(), 0U);
    goBack();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(attribute(panel(), "frame"), "15 149 290 270");
}
