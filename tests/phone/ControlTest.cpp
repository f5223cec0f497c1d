#include "phone/uikit/Control.h"

#include "platform/uikit/UIViewController.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;
using Entries = std::vector<std::string>;

/// Writes down the actions it gets.
class Target : public objc::Defines<Target, UIView> {
public:
    static constexpr auto objc_name = "ControlTestTarget";
    static void define(objc::ClassTable<Target>& c) {
        c.action<"down:", &Target::down>()
            .action<"up:", &Target::up>()
            .action<"outside:", &Target::outside>()
            .action<"cancelled:", &Target::cancelled>()
            .def<"bare", &Target::bare>()
            .def<"sender:event:", &Target::withEvent>();
    }

    Entries entries;

private:
    void down(const objc::Object&) { entries.push_back("down"); }
    void up(const objc::Object&) { entries.push_back("up"); }
    void outside(const objc::Object&) { entries.push_back("outside"); }
    void cancelled(const objc::Object&) { entries.push_back("cancelled"); }
    void bare() { entries.push_back("bare"); }
    void withEvent(const objc::Object& sender, const UIEvent& event) {
        entries.push_back(sender && event.allTouches().count() == 1 ? "with event" : "without");
    }
};

class Control : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        control = objc::make<UIControl, "initWithFrame:">(CGRect(100, 100, 50, 50));
        screen.addSubview(control);
        target = objc::Ref<Target>::make();
        control.addTarget(target, objc::selector<"down:">(), UIControlEventTouchDown);
        control.addTarget(target, objc::selector<"up:">(), UIControlEventTouchUpInside);
        control.addTarget(target, objc::selector<"outside:">(), UIControlEventTouchUpOutside);
        control.addTarget(target, objc::selector<"cancelled:">(), UIControlEventTouchCancel);
    }

    UIWindow screen;
    UIControl control;
    objc::Ref<Target> target;
};

TEST_F(Control, SendsItsActionsWhenTheFingerGoesDownAndUp) {
    tap(110, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up"}));
}

TEST_F(Control, FeelsAFingerLiftedWithin70PointsOfItsBounds) {
    touch(Phase::Began, 110, 110);
    touch(Phase::Moved, 215, 110);
    touch(Phase::Ended, 215, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up"}));
}

TEST_F(Control, TakesAFingerLiftedFartherAwayAsOutside) {
    touch(Phase::Began, 110, 110);
    touch(Phase::Moved, 240, 110);
    touch(Phase::Ended, 240, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "outside"}));
}

TEST_F(Control, IsHighlightedOnlyWhileTheFingerIsInside) {
    touch(Phase::Began, 110, 110);
    EXPECT_TRUE(control.isHighlighted());
    touch(Phase::Moved, 300, 110);
    EXPECT_FALSE(control.isHighlighted());
    touch(Phase::Moved, 110, 110);
    EXPECT_EQ(control.state(), UIControlStateHighlighted);
    touch(Phase::Ended, 110, 110);
    EXPECT_EQ(control.state(), UIControlStateNormal);
}

TEST_F(Control, FiresTheSameTripleOnce) {
    control.addTarget(target, objc::selector<"up:">(), UIControlEventTouchUpInside);

    tap(110, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up"}));
}

TEST_F(Control, DoesNotRetainItsTargets) {
    control.addTarget(objc::Ref<Target>::make(), objc::selector<"up:">(), UIControlEventValueChanged);

    EXPECT_EQ(Target::liveCount(), 1);
}

TEST_F(Control, FindsANilTargetAlongTheResponderChain) {
    const auto around = objc::as<UIView>(target);
    around.setFrame(screen.bounds());
    screen.addSubview(around);
    around.addSubview(control);
    control.addTarget(nullptr, objc::selector<"bare">(), UIControlEventTouchUpInside);

    tap(110, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up", "bare"}));
}

TEST_F(Control, HandsTheEventToAnActionThatTakesIt) {
    control.addTarget(target, objc::selector<"sender:event:">(), UIControlEventTouchDown);

    tap(110, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "with event", "up"}));
}

TEST_F(Control, SendsNothingToTargetsThatWereRemoved) {
    control.send<"removeTarget:action:forControlEvents:">(target, objc::selector<"up:">(), UIControlEventTouchUpInside);

    tap(110, 110);

    EXPECT_EQ(target->entries, Entries{"down"});
}

TEST_F(Control, TakesNoTouchWhileDisabled) {
    control.setEnabled(false);

    tap(110, 110);

    EXPECT_TRUE(target->entries.empty());
    EXPECT_EQ(control.state(), UIControlStateDisabled);
}

TEST_F(Control, TellsThatATouchWasTakenAway) {
    touch(Phase::Began, 110, 110);
    run([] { UIApplication::shared().beginIgnoringInteractionEvents(); });

    EXPECT_EQ(target->entries, (Entries{"down", "cancelled"}));
    EXPECT_FALSE(control.isHighlighted());
}

// Holds: control-states
TEST_F(Control, HasItsStatesAsASetOfBits) {
    control.setSelected(true);
    control.setEnabled(false);
    control.setHighlighted(true);

    EXPECT_EQ(static_cast<objc::UInt>(control.state()), 7U);
}

TEST_F(Control, SendsActionsThatCodeAsksFor) {
    control.sendActions(UIControlEventTouchDown);

    EXPECT_EQ(target->entries, Entries{"down"});
}

// Holds: control-event-numbers
TEST_F(Control, NumbersItsEventsAsThePlatformDoes) {
    EXPECT_EQ(UIControlEventTouchDown, 1U);
    EXPECT_EQ(UIControlEventTouchDownRepeat, 2U);
    EXPECT_EQ(UIControlEventTouchDragInside, 4U);
    EXPECT_EQ(UIControlEventTouchDragOutside, 8U);
    EXPECT_EQ(UIControlEventTouchDragEnter, 16U);
    EXPECT_EQ(UIControlEventTouchDragExit, 32U);
    EXPECT_EQ(UIControlEventTouchUpInside, 64U);
    EXPECT_EQ(UIControlEventTouchUpOutside, 128U);
    EXPECT_EQ(UIControlEventTouchCancel, 256U);
    EXPECT_EQ(UIControlEventValueChanged, 4096U);
    EXPECT_EQ(UIControlEventEditingDidBegin, 65536U);
    EXPECT_EQ(UIControlEventEditingChanged, 131072U);
    EXPECT_EQ(UIControlEventEditingDidEnd, 262144U);
    EXPECT_EQ(UIControlEventEditingDidEndOnExit, 524288U);
}

} // namespace
