#include "tests/quorvan/CallTest.h"
#include "tests/quorvan/Overhear.h"
#include "tests/quorvan/Screens.h"

#include <gtest/gtest.h>

namespace {

class NoteScreen : public CallTest {
protected:
    /// "Class frame" of every view of the panel, in order.
    std::vector<std::string> layout() {
        std::vector<std::string> lines;
        for (const auto& child : panel().children()) {
            lines.push_back(std::string(child.name()) + " " + child.attribute("frame").value());
        }
        return lines;
    }
    std::string panelFrame() { return panel().attribute("frame").value(); }
};

TEST_F(NoteScreen, HasItsPartsInOrderWithoutATitle) {
    start();
    startNote();

    EXPECT_EQ(layout(), (std::vector<std::string>{
                            "UINavigationBar 0 0 290 44",
                            "UITextView 0 44.5 290 137.5",
                            "UITableView 0 181.5 290 43.5",
                            "LineCreator 0 181 290 0.5",
                            "LineCreator 0 44 290 0.5",
                        }));
}

TEST_F(NoteScreen, HasItsPartsInOrderWithATitle) {
    turnOn({3});
    start();
    startNote();

    EXPECT_EQ(layout(), (std::vector<std::string>{
                            "UINavigationBar 0 0 290 44",
                            "LineCreator 14 79.9375 276 0.5",
                            "UITextField 15 55.3125 275 23.625",
                            "UITextView 0 80.4375 290 137.5",
                            "UITableView 0 181.5 290 43.5",
                            "LineCreator 0 181 290 0.5",
                            "LineCreator 0 44 290 0.5",
                        }));
}

TEST_F(NoteScreen, IsCentredOnTheFourInchPhone) {
    start();
    startNote();

    expectPanel(panel(), "15 171.5 290 225");
}

TEST_F(NoteScreen, IsCentredOnTheThreeAndAHalfInchPhone) {
    start({.device = "iphone4", .app = "older"});
    startNote();

    EXPECT_EQ(panelFrame(), "15 127.5 290 225");
}

TEST_F(NoteScreen, LiesOverTheBackdropWithTheOwnBarHidden) {
    start();
    startNote();

    const auto shown = panel();
    const auto screen = shown.parent();
    const auto backdrop = shown.previous_sibling();

    EXPECT_EQ(attribute(screen, "controller"), "NoteController");
    EXPECT_EQ(attribute(screen, "title"), "Note");
    EXPECT_STREQ(backdrop.name(), "UIImageView");
    EXPECT_EQ(attribute(backdrop, "frame"), "0 0 320 568");
    EXPECT_EQ(attribute(backdrop, "image"), "/Library/Quorvan/bg.png");
    for (const auto& bar : tree().select_nodes("//UINavigationBar[@visible='true']")) {
        EXPECT_EQ(attribute(bar.node(), "frame"), "0 0 290 44");
    }
}

TEST_F(NoteScreen, FadesInWhileItTakesTouches) {
    start();
    startCall();
    openSheet();
    openNote();

    const auto animations = log("animation");
    const auto fade = std::find_if(animations.begin(), animations.end(), [](const auto& entry) {
        return entry.at("duration") == 0.3 && entry.at("options") == 2 && entry.at("view") == "UIView";
    });
    ASSERT_NE(fade, animations.end());
    EXPECT_EQ(fade->at("delay"), 0.0);
    EXPECT_TRUE(fade->at("name").is_null());
}

TEST_F(NoteScreen, ShowsTheTextInSystem17AndThePlaceholderInGrey) {
    start();
    startNote();

    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
    EXPECT_EQ(attribute(noteText(), "font"), "system 17");
    EXPECT_EQ(attribute(noteText(), "returnKey"), "default");
}

TEST_F(NoteScreen, ShowsTheTitleFieldEmptyWithItsPlaceholder) {
    turnOn({3});
    start();
    startNote();

    EXPECT_EQ(attribute(titleField(), "text"), "");
    EXPECT_EQ(attribute(titleField(), "placeholder"), "Title");
    EXPECT_EQ(attribute(titleField(), "returnKey"), "done");
}

TEST_F(NoteScreen, ShowsTheAccountRow) {
    start();
    startNote();

    const auto table = panel().child("UITableView");
    const auto cell = table.select_node(".//*[@reuse='Cell']").node();
    const auto value = cell.select_node(".//UILabel[@text='Default']").node();
    const auto arrow = cell.select_node(".//UIImageView[@image='/Library/Quorvan/arrow.png']").node();

    EXPECT_EQ(attribute(table, "style"), "plain");
    EXPECT_EQ(attribute(table, "scrollEnabled"), "false");
    EXPECT_EQ(attribute(cell, "row"), "0,0");
    EXPECT_TRUE(cell.select_node(".//UILabel[@text='Account']"));
    EXPECT_EQ(attribute(value, "frame"), "0 5 139.5 17");
    EXPECT_EQ(attribute(value, "align"), "right");
    EXPECT_EQ(attribute(value, "font"), "system 14");
    EXPECT_EQ(attribute(value, "textColor"), "#c0c0c0ff");
    EXPECT_EQ(attribute(arrow, "frame"), "141.5 8.5 7 10.5");
    EXPECT_EQ(attribute(value.parent(), "frame"), "125 8 150 28");
}

TEST_F(NoteScreen, TheAccountRowsNameIsTheOnlyOneToReadAccount) {
    start();
    startCall();
    openSheet();
    overhear<"UILabel", "setText:", void, id>();

    openNote();

    const auto names = heardOf({"UILabel setText: Account"});
    EXPECT_EQ(names.size(), heardOf({"UILabel setText: Default"}).size());
    EXPECT_FALSE(names.empty());
}

TEST_F(NoteScreen, ClearsThePlaceholderWhenTheTextIsTouched) {
    start();
    startNote();

    touchAndWait(noteText());

    EXPECT_EQ(attribute(noteText(), "text"), "");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
}

TEST_F(NoteScreen, PutsThePlaceholderBackWhenAnEmptyTextIsLeft) {
    turnOn({3});
    start();
    startNote();
    touchAndWait(noteText());

    touchAndWait(titleField());

    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
}

TEST_F(NoteScreen, RisesAboveTheKeyboardWhenTheTextIsTouched) {
    start();
    startNote();

    touchAndWait(noteText());

    EXPECT_EQ(panelFrame(), "15 63.5 290 225"); // the centre of 320 × (568 − 216)
    const auto moves = log("animation");
    const auto move =
        std::find_if(moves.begin(), moves.end(), [](const auto& e) { return e.at("name") == "noteView"; });
    ASSERT_NE(move, moves.end());
    EXPECT_EQ(move->at("duration"), 0.27);
    EXPECT_EQ(move->at("curve"), 1);
}

TEST_F(NoteScreen, FollowsAKeyboardWhenItWasToldTo) {
    start();
    startNote();
    overhear<"NoteController", "keyboardWasShown:", void, id>();
    touchAndWait(noteText());
    EXPECT_TRUE(heard().empty());
    touchAndWait("Account");
    goBack();
    run([] { screenAt(0).send<"registerForKeyboardNotifications">(); });

    touchAndWait(noteText());

    EXPECT_EQ(heard().size(), 1U);
}

TEST_F(NoteScreen, RisesOnTheSmallerPhoneToo) {
    start({.device = "iphone4", .app = "older"});
    startNote();

    touchAndWait(noteText());

    EXPECT_EQ(panelFrame(), "15 19.5 290 225");
}

TEST_F(NoteScreen, RisesWhenTheTitleIsTouchedAndSinksWithItsDoneKey) {
    turnOn({3});
    start();
    startNote();

    touchAndWait(titleField());
    EXPECT_EQ(panelFrame(), "15 63.5 290 225");
    key("enter");
    settle();

    EXPECT_EQ(panelFrame(), "15 171.5 290 225");
    EXPECT_EQ(attribute(titleField(), "firstResponder"), "false");
    const auto moves = log("animation");
    const auto move = std::find_if(moves.begin(), moves.end(), [](const auto& e) { return e.at("name") == "theBox"; });
    ASSERT_NE(move, moves.end());
    EXPECT_EQ(move->at("duration"), 0.27);
    EXPECT_EQ(move->at("curve"), 1);
}

TEST_F(NoteScreen, TakesLineBreaksInTheText) {
    start();
    startNote();

    typeNote("milk\neggs");

    EXPECT_EQ(attribute(noteText(), "text"), "milk\neggs");
}

TEST_F(NoteScreen, KeepsTypedTextAcrossTheAccountChooser) {
    start();
    startNote();
    typeNote("milk\n  eggs & <bread>");

    touchAndWait("Account");
    EXPECT_EQ(attribute(tree().select_node("//*[@controller='NoteAccountController']").node(), "title"), "Note");
    touchAndWait("Back");

    EXPECT_EQ(attribute(noteText(), "text"), "milk\n  eggs & <bread>");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");
}

TEST_F(NoteScreen, KeepsTheTitleAcrossTheAccountChooser) {
    turnOn({3});
    start();
    startNote();
    typeTitle("Shopping");

    touchAndWait("Account");
    touchAndWait("Back");

    EXPECT_EQ(attribute(titleField(), "text"), "Shopping");
    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
}

TEST_F(NoteScreen, WithoutATitleFieldARebuildForgetsTheKeptTitle) {
    turnOn({2});
    keepText("<string>milk</string>", "<string>Shopping</string>");
    start();
    startNote();
    touchAndWait("Account");
    turnOn({2, 3});

    touchAndWait("Back");

    EXPECT_EQ(attribute(titleField(), "text"), "");
    EXPECT_EQ(attribute(noteText(), "text"), "milk");
}

TEST_F(NoteScreen, StaysUsableWithoutPictures) {
    for (const std::string name : {"bg", "arrow", "back"}) {
        remove(resource(name + ".png"));
        remove(resource(name + "@2x.png"));
    }
    start();
    startNote();
    typeNote("milk");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].content, "milk");
}

TEST_F(NoteScreen, TheTextIsNeverCorrectedOrRefused) {
    start();
    startNote();

    typeNote("teh  TEXT ");

    EXPECT_EQ(attribute(noteText(), "text"), "teh  TEXT ");
}

class KeptTextOnOpening : public NoteScreen {};

TEST_F(KeptTextOnOpening, IsShownWithItsTitle) {
    turnOn({2, 3});
    keepText("<string>milk</string>", "<string>Shopping</string>");
    start();
    startNote();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(shownTitle(), "Shopping");
}

TEST_F(KeptTextOnOpening, IsIgnoredWhileTheSwitchIsOff) {
    turnOn({3});
    keepText("<string>milk</string>", "<string>Shopping</string>");
    start();
    startNote();

    EXPECT_EQ(shownText(), "  Note");
    EXPECT_EQ(shownTitle(), "");
}

TEST_F(KeptTextOnOpening, IsNothingForBothPlaceholdersAndForNoText) {
    turnOn({2, 3});
    start({.language = "de"});
    startCall();

    for (const char* text : {"  Note", "  Notiz", ""}) {
        keepText("<string>" + std::string(text) + "</string>", "<string>Title</string>");
        openSheet();
        openNote();
        EXPECT_EQ(shownText(), "  Notiz") << text;
        EXPECT_EQ(shownTitle(), "");
        cancel();
    }
}

TEST_F(KeptTextOnOpening, AValueOfTheWrongKindCountsAsMissing) {
    turnOn({2, 3});
    start();
    startCall();

    for (const char* value : {"<integer>5</integer>", "<true/>", "<array/>", "<dict/>", "<data>QUJD</data>"}) {
        keepText(value, value);
        openSheet();
        openNote();
        EXPECT_EQ(shownText(), "  Note") << value;
        EXPECT_EQ(shownTitle(), "") << value;
        cancel();
    }
}

TEST_F(KeptTextOnOpening, AMissingOrCorruptFileIsNothing) {
    turnOn({2});
    remove(resource("noteText.plist"));
    start();
    startNote();
    EXPECT_EQ(shownText(), "  Note");
    cancel();
    write(resource("noteText.plist"), "<plist><dict><key>Tit");

    openSheet();
    openNote();

    EXPECT_EQ(shownText(), "  Note");
}

} // namespace
