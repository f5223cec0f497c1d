#include "phone/uikit/Control.h"

#include "platform/uikit/UIViewController.h"
#include "tests/phone/EventNumbers.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;
using Entries = std::vector<std::string>;
using Numbers = std::set<unsigned>;

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

// Holds: control-targets
TEST_F(Control, FeelsAFingerLiftedWithin70PointsOfItsBounds) {
    touch(Phase::Began, 110, 110);
    touch(Phase::Moved, 215, 110);
    touch(Phase::Ended, 215, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up"}));
}

// Holds: control-targets
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

// Holds: control-targets
TEST_F(Control, FiresTheSameTripleOnce) {
    control.addTarget(target, objc::selector<"up:">(), UIControlEventTouchUpInside);

    tap(110, 110);

    EXPECT_EQ(target->entries, (Entries{"down", "up"}));
}

// Holds: control-targets
TEST_F(Control, DoesNotRetainItsTargets) {
    control.addTarget(objc::Ref<Target>::make(), objc::selector<"up:">(), UIControlEventValueChanged);

    EXPECT_EQ(Target::liveCount(), 1);
}

// Holds: control-targets
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
    const auto state = [&] { return static_cast<unsigned>(control.state()); };
    EXPECT_EQ(state(), 0U);

    control.setHighlighted(true);
    EXPECT_EQ(state(), 1U);
    control.setEnabled(false);
    EXPECT_EQ(state(), 1U | 2U);
    control.setSelected(true);
    EXPECT_EQ(state(), 1U | 2U | 4U);
    control.setHighlighted(false);
    EXPECT_EQ(state(), 2U | 4U);
}

TEST_F(Control, SendsActionsThatCodeAsksFor) {
    control.sendActions(UIControlEventTouchDown);

    EXPECT_EQ(target->entries, Entries{"down"});
}

// Holds: control-event-numbers
TEST_F(Control, SendsTheEventsOfATouchByTheirNumbers) {
    EventNumbers events(control);

    touch(Phase::Began, 110, 110);
    EXPECT_EQ(events.take(), Numbers{1});
    touch(Phase::Moved, 112, 110);
    EXPECT_EQ(events.take(), Numbers{4});
    touch(Phase::Moved, 300, 110);
    EXPECT_EQ(events.take(), (Numbers{8, 32}));
    touch(Phase::Moved, 110, 110);
    EXPECT_EQ(events.take(), (Numbers{4, 16}));
    touch(Phase::Ended, 110, 110);
    EXPECT_EQ(events.take(), Numbers{64}); // lifted in its place, the finger drags nothing
    tap(110, 110);
    events.take();
    tap(110, 110);
    EXPECT_EQ(events.take(), (Numbers{1, 2, 64}));
    touch(Phase::Began, 110, 110);
    touch(Phase::Moved, 300, 110);
    events.take();
    touch(Phase::Ended, 300, 110);
    EXPECT_EQ(events.take(), Numbers{128});
    touch(Phase::Began, 110, 110);
    events.take();
    run([] { UIApplication::shared().beginIgnoringInteractionEvents(); });
    EXPECT_EQ(events.take(), Numbers{256});
}

} // namespace
