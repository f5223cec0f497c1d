#include "platform/uikit/UINavigationController.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

class ReminderScreen : public CallTest {
protected:
    std::vector<std::string> values() { return {shownValue(0), shownValue(1), shownValue(2)}; }
    pugi::xml_node screen() { return panel().parent(); }
    pugi::xml_node accessory(int row) {
        return panel().select_node((".//*[@row='0," + std::to_string(row) + "']//UIView[UIImageView]").c_str()).node();
    }
    /// The animations of the panel for the keyboard so far.
    std::vector<nlohmann::ordered_json> moves() {
        std::vector<nlohmann::ordered_json> found;
        for (const auto& entry : log("animation")) {
            if (entry.at("name") == "theBox") {
                found.push_back(entry);
            }
        }
        return found;
    }
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(ReminderScreen, HasItsPartsInOrder) {
    start();
    startReminder();

    const auto shown = panel();
    EXPECT_EQ(attribute(shown, "frame"), "15 149 290 270");
    EXPECT_EQ(attribute(shown, "background"), "#ffffffff");
    EXPECT_EQ(attribute(shown, "cornerRadius"), "5");
    EXPECT_EQ(attribute(shown, "clips"), "true");
    EXPECT_EQ(layout(shown), (Texts{
                                 "UINavigationBar 0 0 290 44",
                                 "UITextView 0 44 290 94.5",
                                 "UITableView 0 139.5 290 174.5",
                                 "LineCreator 0 139 290 0.5",
                                 "LineCreator 0 44 290 0.5",
                             }));
    for (const auto& line : shown.children("LineCreator")) {
        EXPECT_EQ(attribute(line, "background"), "#c0c0c0ff");
    }
    EXPECT_EQ(attribute(shown.child("UITableView"), "style"), "plain");
    EXPECT_EQ(attribute(shown.child("UITableView"), "scrollEnabled"), "false");
}

TEST_F(ReminderScreen, ShowsItsTextAsAGreyPlaceholder) {
    start();
    startReminder();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
    EXPECT_EQ(attribute(noteText(), "font"), "system 17");
    EXPECT_EQ(attribute(noteText(), "returnKey"), "done");
}

TEST_F(ReminderScreen, LiesOverTheBackdropAndDoesNotFadeIn) {
    start();
    startCall();
    openSheet();
    const auto before = log("animation").size();

    openReminder();

    EXPECT_EQ(layout(screen()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
    EXPECT_EQ(attribute(screen().child("UIImageView"), "image"), "/Library/Quorvan/bg.png");
    EXPECT_EQ(attribute(screen(), "controller"), "ReminderController");
    EXPECT_EQ(attribute(screen(), "title"), "Reminder");
    const auto animations = log("animation");
    for (std::size_t i = before; i < animations.size(); ++i) {
        EXPECT_NE(animations[i].at("duration"), 0.3) << animations[i].dump();
    }
}

TEST_F(ReminderScreen, IsCentredOnTheSmallerPhone) {
    start({.device = "iphone4", .app = "older"});
    startReminder();

    EXPECT_EQ(attribute(panel(), "frame"), "15 105 290 270");
}

TEST_F(ReminderScreen, IsAsSmallOnATablet) {
    start({.device = "ipad"});
    startReminder();

    EXPECT_EQ(attribute(panel(), "frame"), "239 377 290 270");
    EXPECT_EQ(attribute(panel().child("LineCreator"), "frame"), "0 139 290 0.5");
}

TEST_F(ReminderScreen, HasABarOfItsOwnBetweenCancelAndDone) {
    start();
    startReminder();

    const auto bar = panel().child("UINavigationBar");
    EXPECT_TRUE(bar.select_node("UILabel[@text='Reminder']"));
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Cancel']"));
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Done']"));
    EXPECT_EQ(attribute(tree().select_node("//UINavigationBar[@frame='0 20 320 44']").node(), "hidden"), "true");
}

TEST_F(ReminderScreen, ShowsTheDefaultsOfItsRows) {
    start();
    startReminder();

    EXPECT_EQ(rows(panel()), (Texts{"List", "Remind me", "Priority"}));
    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
}

TEST_F(ReminderScreen, SpeaksThePersonsLanguage) {
    start({.language = "de"});
    startReminder();

    EXPECT_EQ(shownText(), "  Beschreibung");
    EXPECT_EQ(rows(panel()), (Texts{"Liste", "Erinnern", "Priorität"}));
    EXPECT_EQ(values(), (Texts{"Liste", "Nie", "Keine"}));
    EXPECT_TRUE(find("Abbrechen"));
    EXPECT_TRUE(find("Fertig"));
}

TEST_F(ReminderScreen, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    start();
    startReminder();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(rows(panel()), (Texts{"List", "Remind me", "Priority"}));
    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
}

TEST_F(ReminderScreen, MissingPicturesLeaveEmptyOnes) {
    for (const char* name : {"bg", "arrow"}) {
        remove(resource(std::string(name) + ".png"));
        remove(resource(std::string(name) + "@2x.png"));
    }
    start();
    startReminder();

    EXPECT_EQ(attribute(screen().child("UIImageView"), "frame"), "0 0 320 568");
    EXPECT_FALSE(screen().child("UIImageView").attribute("image"));
    EXPECT_EQ(attribute(accessory(0).child("UIImageView"), "frame"), "110 8.5 7 10.5");
}

TEST_F(ReminderScreen, ARowShowsItsValueAndAnArrow) {
    start();
    startReminder();

    for (int row = 0; row < 3; ++row) {
        const auto shown = accessory(row);
        EXPECT_EQ(attribute(shown, "frame"), "158 8 117 28");
        EXPECT_EQ(attribute(shown, "background"), "#00000000");
        EXPECT_EQ(layout(shown), (Texts{"UILabel 0 5 108 17", "UIImageView 110 8.5 7 10.5"}));
        EXPECT_EQ(attribute(shown.child("UILabel"), "font"), "system 14");
        EXPECT_EQ(attribute(shown.child("UILabel"), "align"), "right");
        EXPECT_EQ(attribute(shown.child("UILabel"), "textColor"), "#c0c0c0ff");
        EXPECT_EQ(attribute(shown.child("UIImageView"), "image"), "/Library/Quorvan/arrow.png");
    }
}

TEST_F(ReminderScreen, EditingClearsThePlaceholderAndMovesThePanelAboveTheKeyboard) {
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

TEST_F(ReminderScreen, AllowsForTheSameKeyboardOnATablet) {
    start({.device = "ipad"});
    startReminder();

    touchAndWait(noteText());

    EXPECT_EQ(attribute(panel(), "frame"), "239 269 290 270"); // the middle of 1024 - 216 points
}

TEST_F(ReminderScreen, ReturnEndsTheEditingAndAddsNoLineBreak) {
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

TEST_F(ReminderScreen, ReturnOnAnEmptyTextBringsThePlaceholderBack) {
    start();
    startReminder();
    typeNote("a");
    key("backspace");

    key("enter");
    settle();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
}

TEST_F(ReminderScreen, APastedTextWithALineBreakIsRefusedWhole) {
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

TEST_F(ReminderScreen, APastedTextWithoutALineBreakIsTaken) {
    start();
    startReminder();
    typeNote("milk");

    boot().setClipboard(" and\teggs");
    boot().pasteText();
    settle();

    EXPECT_EQ(shownText(), "milk and\teggs");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
}

TEST_F(ReminderScreen, ATypedTextStaysWhenItIsEditedAgain) {
    start();
    startReminder();
    typeNote("milk");
    key("enter");
    settle();

    touchAndWait(noteText());

    EXPECT_EQ(shownText(), "milk");
}

TEST_F(ReminderScreen, ATypedTextEqualToThePlaceholderIsClearedWhenItIsEditedAgain) {
    start();
    startReminder();
    typeNote("  Description");
    key("enter");
    settle();
    EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff");

    touchAndWait(noteText());

    EXPECT_EQ(shownText(), "");
}

TEST_F(ReminderScreen, OpensTheKeyboardAtOnceWhenThePersonWantsIt) {
    turnOn({1});
    start();

    startReminder();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(panel(), "frame"), "15 41 290 270");
}

TEST_F(ReminderScreen, LeavesTheKeyboardClosedWithoutPreferences) {
    start();

    startReminder();

    EXPECT_NE(attribute(noteText(), "firstResponder"), "true");
    EXPECT_FALSE(exists("/var/mobile/Library/Preferences/Mirelda.Quorvan.plist"));
}

TEST_F(ReminderScreen, OpensTheKeyboardAgainAfterAChooser) {
    turnOn({1});
    start();
    startReminder();
    touchAndWait("Priority");

    goBack();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
}

TEST_F(ReminderScreen, ARowHidesThePanelUntilItsChooserIsLeft) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();

    for (const char* row : {"List", "Remind me", "Priority"}) {
        SCOPED_TRACE(row);
        touchAndWait(row);

        EXPECT_FALSE(panel());
        EXPECT_TRUE(find("Back"));
        goBack();
        EXPECT_EQ(attribute(panel(), "frame"), "15 149 290 270");
        EXPECT_EQ(attribute(screen().child("UIImageView"), "hidden"), "false");
        EXPECT_TRUE(panel().select_nodes(".//*[@selected='true']").empty());
    }
}

TEST_F(ReminderScreen, EachRowOpensItsChooser) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();

    touchAndWait("List");
    EXPECT_TRUE(chooser("ReminderList"));
    goBack();
    touchAndWait("Remind me");
    EXPECT_TRUE(chooser("ReminderDate"));
    goBack();
    touchAndWait("Priority");
    EXPECT_TRUE(chooser("ReminderPriority"));
}

TEST_F(ReminderScreen, KeepsTheTextAcrossAChooserAndPutsTheKeyboardAway) {
    start();
    startReminder();
    typeNote("milk");

    touchAndWait("Priority");
    EXPECT_EQ(tree().select_nodes("//*[@firstResponder='true']").size(), 0U);
    goBack();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(attribute(panel(), "frame"), "15 149 290 270");
}

TEST_F(ReminderScreen, CancelFadesThePanelAndEndsTheActivityUnsaved) {
    start();
    startReminder();
    typeNote("milk");
    const auto before = log("animation").size();

    tapOn("Cancel");

    const auto fade = log("animation").at(before);
    EXPECT_EQ(fade.at("duration"), 0.3);
    EXPECT_EQ(fade.at("delay"), 0);
    EXPECT_EQ(fade.at("options"), 2);
    EXPECT_EQ(fade.at("view"), "UIView");
    EXPECT_TRUE(log("finish").empty());
    settle();
    EXPECT_EQ(logged("finish", "class"), (Texts{"ReminderMake"}));
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_TRUE(log("store").empty());
    EXPECT_TRUE(reminders().empty());
    EXPECT_FALSE(panel());
    EXPECT_TRUE(isVisible("mute"));
}

TEST_F(ReminderScreen, CanReloadItsRowsWhenAsked) {
    start();
    startReminder();

    run([] {
        const auto root = UIApplication::shared().keyWindow().rootViewController();
        const auto navigation =
            objc::as<UINavigationController>(root.presentedViewController().presentedViewController());
        navigation.topViewController().send<"returnMethod">();
    });
    settle();

    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
    EXPECT_TRUE(log("exception").empty());
}

TEST_F(ReminderScreen, ACallThatEndsWhileAnyOfItsScreensIsOpenLosesNothing) {
    useReminders(phone::Access::Allow);
    start();
    std::size_t saved = 0;

    for (const char* row : {"", "List", "Remind me", "Priority"}) {
        SCOPED_TRACE(row);
        startReminder();
        typeNote("milk");
        if (*row != '\0') {
            touchAndWait(row);
        }

        phoneCall("cancel");
        advance(5);
        if (*row != '\0') {
            goBack();
        }
        EXPECT_EQ(shownText(), "milk");
        done();
        advance(5);

        EXPECT_EQ(reminders().size(), ++saved);
        EXPECT_FALSE(panel());
        EXPECT_FALSE(isVisible("mute"));
    }
}
