#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UISwitch.h"
#include "tests/phone/EventNumbers.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

using Phase = phone::Screen::Phase;

class Switch : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        toggle = UISwitch::withFrame({227, 100, 77, 27});
        screen.addSubview(toggle);
        changes = countValueChanges(toggle);
    }

    UIWindow screen;
    UISwitch toggle;
    objc::Ref<ActionCounter> changes;
};

} // namespace

// Trap: controls-in-code-are-silent
// Holds: switch-size
TEST_F(Switch, KeepsItsOriginAndHasASizeOfItsOwn) {
    EXPECT_EQ(toggle.frame(), CGRect(227, 100, 51, 31));

    toggle.setFrame({10, 20, 300, 5});

    EXPECT_EQ(toggle.frame(), CGRect(10, 20, 51, 31));
    EXPECT_EQ(objc::make<UISwitch>().frame(), CGRect(0, 0, 51, 31));
}

TEST_F(Switch, IsOffAtFirst) { EXPECT_FALSE(toggle.isOn()); }

TEST_F(Switch, CastsTheShadowOfItsThumbInBothPositions) {
    screen.setBackgroundColor(UIColor::white());
    const double below = 132; // the switch ends at 131
    const double left = 242;  // the middle of the thumb
    const double right = 263;
    EXPECT_LT(Picture().brightness(left, below), 245);
    EXPECT_EQ(Picture().brightness(right + 5, below), 255);

    toggle.setOn(true);

    EXPECT_LT(Picture().brightness(right, below), 245);
    EXPECT_EQ(Picture().brightness(left - 5, below), 255);
}

TEST_F(Switch, IsTurnedByATouchAndSendsValueChanged) {
    tap(250, 115);

    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(changes->number, 1);
}

TEST_F(Switch, IsTurnedBackByASecondTouch) {
    tap(250, 115);
    settle();
    tap(230, 102);

    EXPECT_FALSE(toggle.isOn());
    EXPECT_EQ(changes->number, 2);
}

// Holds: control-event-numbers
TEST_F(Switch, SendsTheEventOfAChangeByItsNumber) {
    EventNumbers events(toggle);

    tap(250, 115);

    EXPECT_TRUE(events.take().contains(4096));
}

// Trap: controls-in-code-are-silent
// Holds: switch-in-code
TEST_F(Switch, SendsNoActionWhenCodeTurnsIt) {
    toggle.setOn(true);
    toggle.setOn(false, true);
    toggle.setOn(true, true);
    settle();

    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(changes->number, 0);
}

TEST_F(Switch, FollowsAFingerThatDragsItsThumbAcross) {
    touch(Phase::Began, 235, 115);
    touch(Phase::Moved, 270, 118);
    EXPECT_EQ(changes->number, 0);
    touch(Phase::Ended, 270, 118);

    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(changes->number, 1);
}

TEST_F(Switch, StaysAsItIsWhenTheThumbIsDraggedThereAndBack) {
    touch(Phase::Began, 235, 115);
    touch(Phase::Moved, 270, 115);
    touch(Phase::Moved, 235, 115);
    touch(Phase::Ended, 235, 115);

    EXPECT_FALSE(toggle.isOn());
    EXPECT_EQ(changes->number, 0);
}

TEST_F(Switch, StaysAsItIsWhenTheTouchIsCancelled) {
    touch(Phase::Began, 235, 115);
    touch(Phase::Moved, 270, 115);
    toggle.send<"touchesCancelled:withEvent:">(NSSet(), UIEvent());

    EXPECT_FALSE(toggle.isOn());
    EXPECT_EQ(changes->number, 0);
}

TEST_F(Switch, TakesNoTouchWhileDisabled) {
    toggle.setEnabled(false);

    tap(250, 115);

    EXPECT_FALSE(toggle.isOn());
}

TEST_F(Switch, MovesItsThumbOverTime) {
    const auto thumbX = [&] {
        return std::stod(attribute(findClass("UISwitch").first_child().last_child(), "frame").substr(0, 4));
    };
    toggle.setOn(true, true);

    EXPECT_GT(thumbX(), 20); // the model's value is the end at once
    EXPECT_TRUE(toggle.isOn());
}

TEST_F(Switch, ComesBeforeATapRecogniserAroundIt) {
    const auto taps = objc::Ref<ActionCounter>::make();
    screen.addGestureRecognizer(UITapGestureRecognizer::with(taps, objc::selector<"count:">()));

    tap(250, 115);

    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(taps->number, 0);
}

TEST_F(Switch, SaysInTheTreeWhetherItIsOn) {
    EXPECT_EQ(attribute(findClass("UISwitch"), "on"), "false");

    toggle.setOn(true);

    EXPECT_EQ(attribute(findClass("UISwitch"), "on"), "true");
    EXPECT_EQ(attribute(findClass("UISwitch"), "frame"), "227 100 51 31");
}
