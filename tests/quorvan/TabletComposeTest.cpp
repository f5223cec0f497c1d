// Reminder and event, and their choosers, on a tablet that is turned while they are open. They are not built anew.

#include "platform/uikit/UIApplication.h"
#include "tests/quorvan/EventTest.h"

#include <sstream>

namespace {

using Rows = std::vector<std::string>;

class TabletCompose : public EventTest {
protected:
    void startTablet() { start({.device = "ipad"}); }
    void startReminderOnTablet() {
        startTablet();
        startReminder();
    }
    void startEventOnTablet() { startEvent({.device = "ipad"}); }
    void turn(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
    }
    CGRect place(const pugi::xml_node& element) {
        CGRect rect;
        std::istringstream(attribute(element, "screen")) >> rect.origin.x >> rect.origin.y >> rect.size.width >>
            rect.size.height;
        return rect;
    }
    CGSize heldSize() {
        const auto screenElement = tree().child("screen");
        return {screenElement.attribute("width").as_double(), screenElement.attribute("height").as_double()};
    }
    /// The panel shown now stands in the middle of a backdrop that covers the screen.
    void expectWhole(const std::string& when) {
        const CGSize held = heldSize();
        const CGRect panelPlace = place(shown());

        EXPECT_EQ(panelPlace.center(), CGPoint(held.width / 2, held.height / 2)) << when;
        EXPECT_EQ(panelPlace.size.width, 290) << when;
        EXPECT_EQ(place(shown().previous_sibling("UIImageView")), CGRect({0, 0}, held)) << when;
    }
    void expectWholeHoweverHeld() {
        for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT", "PORTRAIT", "LANDSCAPE_LEFT"}) {
            turn(held);
            expectWhole(screen() + " " + held);
        }
    }
    /// Opens the chooser at the end of these rows, turns the tablet around, and goes back to the first screen.
    void expectWholeChooser(const Rows& rows) {
        for (const auto& row : rows) {
            touchAndWait(row);
        }
        expectWholeHoweverHeld();
        for (std::size_t back = 0; back < rows.size() && isVisible("Back"); ++back) {
            goBack();
            expectWhole("back from " + rows.back());
        }
        turn("PORTRAIT");
    }
};

TEST_F(TabletCompose, KeepsAnOpenReminderWhole) {
    startReminderOnTablet();

    expectWhole("PORTRAIT");
    expectWholeHoweverHeld();
}

TEST_F(TabletCompose, KeepsAnOpenEventWhole) {
    startEventOnTablet();

    expectWhole("PORTRAIT");
    expectWholeHoweverHeld();
}

TEST_F(TabletCompose, TurnsTheInterfaceForAReminderAsForANote) {
    startReminderOnTablet();

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(UIApplication::shared().statusBarOrientation(), UIInterfaceOrientation::LandscapeRight);
    EXPECT_EQ(attribute(shown(), "frame"), "367 249 290 270");
}

TEST_F(TabletCompose, KeepsTheChoosersOfAReminderWhole) {
    useReminders(phone::Access::Allow);
    startReminderOnTablet();

    expectWholeChooser({"List"});
    expectWholeChooser({"Remind me"});
    expectWholeChooser({"Priority"});
}

TEST_F(TabletCompose, KeepsTheChoosersOfAnEventWhole) {
    useEvents(phone::Access::Allow);
    startEventOnTablet();

    expectWholeChooser({"Calendar"});
    expectWholeChooser({"Date"});
    expectWholeChooser({"Date", "Start"});
    expectWholeChooser({"Date", "End"});
    expectWholeChooser({"Repeat"});
    expectWholeChooser({"Repeat", "End Date"});
}

TEST_F(TabletCompose, OpensWholeOnATabletThatLies) {
    useReminders(phone::Access::Allow);
    startTablet();
    startCall();
    turn("LANDSCAPE_RIGHT");
    openSheet();
    openReminder();

    expectWhole("opened lying");
    touchAndWait("Remind me");
    expectWhole("chooser opened lying");
}

TEST_F(TabletCompose, GoesOnWithTheTextWhenItIsTurnedWhileTyping) {
    startReminderOnTablet();
    typeNote("milk");

    turn("LANDSCAPE_LEFT");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(place(findClass("UIKeyboardView")), CGRect(0, 416, 1024, 352));
    EXPECT_EQ(place(shown()).center().x, 512);
    EXPECT_GE(place(shown()).origin.y, 0);
    EXPECT_LE(place(noteText()).maxY(), 416) << "the text is seen above the keyboard";
    type(" and eggs");
    boot().hideKeyboard();
    settle();

    EXPECT_EQ(shownText(), "milk and eggs");
    expectWhole("after typing");
}

TEST_F(TabletCompose, GoesOnWithAFieldWhenItIsTurnedWhileTyping) {
    startEventOnTablet();
    touchAndWait(field(1));
    type("Berlin");

    turn("LANDSCAPE_RIGHT");
    EXPECT_EQ(attribute(field(1), "firstResponder"), "true");
    EXPECT_EQ(place(shown()).center().x, 512);
    EXPECT_LE(place(field(1)).maxY(), 416) << "the field is seen above the keyboard";
    type(" Mitte");
    key("enter");
    settle();

    EXPECT_EQ(attribute(field(1), "text"), "Berlin Mitte");
    expectWhole("after typing");
}

TEST_F(TabletCompose, SavesWhatWasWrittenOnTheWay) {
    useReminders(phone::Access::Allow);
    startReminderOnTablet();
    typeNote("milk");
    turn("LANDSCAPE_LEFT");

    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders().front().item.title, "milk");
    EXPECT_EQ(attribute(tree().select_node("//*[@controller='PHCallViewController']").node(), "screen"),
              "0 0 1024 768");
}

} // namespace
