// The share sheet on tablets whose system shows it as a popover.

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIScreen.h"
#include "tests/quorvan/CallTest.h"

namespace {

class TabletSheet : public CallTest, public ::testing::WithParamInterface<const char*> {
protected:
    void startTablet() {
        useSystem("8");
        start({.device = "ipad", .app = GetParam()});
        startCall();
    }
    void turn(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
    }
    pugi::xml_node arrow() { return findClass("_UIPopoverArrow"); }
    std::string arrowFrame() { return attribute(arrow(), "screen"); }
    std::string bubbleFrame() { return attribute(arrow().previous_sibling(), "screen"); }
    bool callScreenIsInFront() { return isVisible("mute") && !arrow() && !panel(); }
};

class NewerTablet : public CallTest {
protected:
    NewerTablet() {
        useSystem("8");
        start({.device = "ipad"});
    }
};

INSTANTIATE_TEST_SUITE_P(, TabletSheet, ::testing::Values("newer", "older"),
                         [](const auto& info) { return info.param; });

} // namespace

TEST_P(TabletSheet, HangsFromTheTapArea) {
    startTablet();

    openSheet();

    EXPECT_EQ(arrowFrame(), "147 82 26 13"); // the area ends at 82, and its middle is at 160
    EXPECT_EQ(bubbleFrame(), "10 95 368 240");
    EXPECT_TRUE(isVisible("Note"));
}

TEST_P(TabletSheet, HangsFromTheTapAreaHoweverTheTabletIsTurned) {
    startTablet();
    openSheet();

    for (const char* orientation : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT", "PORTRAIT"}) {
        turn(orientation);
        EXPECT_EQ(arrowFrame(), "147 82 26 13") << orientation;
        EXPECT_EQ(bubbleFrame(), "10 95 368 240") << orientation;
    }
}

TEST_P(TabletSheet, GoesWhenTheCallScreenIsTouched) {
    startTablet();
    openSheet();

    tap(600, 900);
    settle();

    EXPECT_TRUE(callScreenIsInFront());
}

TEST_P(TabletSheet, GivesWayToTheNoteAndIsGoneWhenThatIsDone) {
    startTablet();
    openSheet();

    openNote();
    EXPECT_EQ(attribute(panel(), "frame"), "115 387 538 250");
    typeNote("words");
    done();

    EXPECT_TRUE(callScreenIsInFront());
    ASSERT_EQ(notes().size(), 1u);
    EXPECT_EQ(notes()[0].title, "words");
}

TEST_P(TabletSheet, OpensAgainAfterItWasCancelled) {
    startTablet();
    openSheet();
    tap(600, 900);
    settle();

    openSheet();

    EXPECT_TRUE(isVisible("Event"));
}

// Holds: screen-turns-from-8
TEST_F(NewerTablet, TellsItsScreenAsTheInterfaceStands) {
    boot().setOrientation("LANDSCAPE_LEFT");
    settle();

    EXPECT_EQ(UIScreen::main().bounds(), CGRect(0, 0, 1024, 768));
    EXPECT_EQ(UIApplication::shared().statusBarFrame(), CGRect(0, 0, 1024, 20));
}

// Holds: screen-turns-from-8
TEST_F(NewerTablet, TellsTheKeyboardsHeightHoweverItStands) {
    turnOn({1});
    startCall();
    boot().setOrientation("LANDSCAPE_LEFT");
    settle();
    openSheet();

    openNote(); // the keyboard comes with it, and the panel makes room for what the notification says

    EXPECT_EQ(attribute(panel(), "frame"), "243 83 538 250");
}
