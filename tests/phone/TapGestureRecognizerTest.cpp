#include "tests/phone/PhoneTest.h"

#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UITableView.h"

namespace {

using Phase = phone::Screen::Phase;

/// Counts the taps that reach it.
class Target : public objc::Defines<Target, NSObject> {
public:
    static constexpr auto objc_name = "TestTapTarget";
    static void define(objc::ClassTable<Target>& c) {
        c.action<"tapped:", &Target::tapped>().action<"pressed:", &Target::pressed>();
    }

    int taps = 0;
    int presses = 0;
    objc::Object sender;

private:
    void tapped(const objc::Object& from) {
        ++taps;
        sender = from;
    }
    void pressed(const objc::Object&) { ++presses; }
};

/// Counts what becomes of its touches.
class Touched : public objc::Defines<Touched, UIView> {
public:
    static constexpr auto objc_name = "TestTouched";
    static void define(objc::ClassTable<Touched>& c) {
        c.overrides<"touchesBegan:withEvent:", &Touched::began>()
            .overrides<"touchesEnded:withEvent:", &Touched::ended>()
            .overrides<"touchesCancelled:withEvent:", &Touched::cancelled>();
    }

    int begins = 0;
    int ends = 0;
    int cancels = 0;

private:
    void began(const NSSet&, const UIEvent&) { ++begins; }
    void ended(const NSSet&, const UIEvent&) { ++ends; }
    void cancelled(const NSSet&, const UIEvent&) { ++cancels; }
};

/// One row, and how often it was selected.
class OneRow : public objc::Defines<OneRow, NSObject> {
public:
    static constexpr auto objc_name = "TestTapOneRow";
    static void define(objc::ClassTable<OneRow>& c) {
        c.def<"tableView:numberOfRowsInSection:", &OneRow::numberOfRows>()
            .def<"tableView:cellForRowAtIndexPath:", &OneRow::cellForRow>()
            .def<"tableView:didSelectRowAtIndexPath:", &OneRow::didSelect>();
    }

    int selections = 0;

private:
    objc::Int numberOfRows(const UITableView&, objc::Int) { return 1; }
    UITableViewCell cellForRow(const UITableView&, const NSIndexPath&) { return UITableViewCell::with(0, nullptr); }
    void didSelect(const UITableView&, const NSIndexPath&) { ++selections; }
};

class TapGestureRecognizer : public PhoneTest {
public:
    TapGestureRecognizer() { useClassesOnly(); }

    void SetUp() override {
        root = window();
        target = objc::Ref<Target>::make();
        view = add({0, 100, 320, 60});
        recognizer = attach(view, target);
    }

    UIView add(CGRect frame) {
        auto made = UIView::withFrame(frame);
        root.addSubview(made);
        return made;
    }
    static UITapGestureRecognizer attach(const UIView& to, const objc::Ref<Target>& tells) {
        auto made = UITapGestureRecognizer::with(tells, objc::selector<"tapped:">());
        to.addGestureRecognizer(made);
        return made;
    }

    UIWindow root;
    UIView view;
    objc::Ref<Target> target;
    UITapGestureRecognizer recognizer;
};

TEST_F(TapGestureRecognizer, SendsItsActionWithItself) {
    tap(160, 130);

    EXPECT_EQ(target->taps, 1);
    EXPECT_EQ(target->sender, recognizer);
}

// Holds: recogniser-sees-inside
TEST_F(TapGestureRecognizer, SeesTouchesOfTheViewsInside) {
    view.addSubview(UIView::withFrame({0, 0, 100, 60}));

    tap(50, 130);

    EXPECT_EQ(target->taps, 1);
}

TEST_F(TapGestureRecognizer, SeesNothingOfASiblingInFront) {
    add({0, 100, 320, 60});

    tap(160, 130);

    EXPECT_EQ(target->taps, 0);
}

TEST_F(TapGestureRecognizer, OfTheHitViewAloneFiresWhenSeveralAreStacked) {
    const auto inFront = objc::Ref<Target>::make();
    attach(add({0, 100, 320, 60}), inFront);

    tap(160, 130);

    EXPECT_EQ(target->taps, 0);
    EXPECT_EQ(inFront->taps, 1);
}

// Holds: deeper-tap-wins
TEST_F(TapGestureRecognizer, OfTheDeeperViewWins) {
    const auto inside = UIView::withFrame({0, 0, 100, 60});
    view.addSubview(inside);
    const auto deeper = objc::Ref<Target>::make();
    attach(inside, deeper);

    tap(50, 130);

    EXPECT_EQ(deeper->taps, 1);
    EXPECT_EQ(target->taps, 0);
}

// Holds: tap-cancels-the-views-touches
TEST_F(TapGestureRecognizer, CancelsTheTouchesOfTheView) {
    const auto touched = objc::Ref<Touched>::make();
    objc::as<UIView>(touched).setFrame({0, 0, 100, 60});
    view.addSubview(touched);

    tap(50, 130);

    EXPECT_EQ(target->taps, 1);
    EXPECT_EQ(touched->begins, 1);
    EXPECT_EQ(touched->ends, 0);
    EXPECT_EQ(touched->cancels, 1);
}

// Holds: tap-cancels-the-views-touches
TEST_F(TapGestureRecognizer, OnAParentKeepsATableFromSelectingARow) {
    const auto rows = objc::Ref<OneRow>::make();
    const auto table = UITableView::withFrame({0, 0, 320, 60}, UITableViewStyle::Plain);
    table.setDataSource(rows);
    table.setDelegate(rows);
    run([&] { view.addSubview(table); });

    tap(50, 120);
    EXPECT_EQ(target->taps, 1);
    EXPECT_EQ(rows->selections, 0);
    recognizer.setEnabled(false);
    tap(50, 120);

    EXPECT_EQ(rows->selections, 1);
}

TEST_F(TapGestureRecognizer, LeavesTheViewItsTouchesWhenToldTo) {
    const auto touched = objc::Ref<Touched>::make();
    objc::as<UIView>(touched).setFrame({0, 0, 100, 60});
    view.addSubview(touched);
    recognizer.setCancelsTouchesInView(false);

    tap(50, 130);

    EXPECT_EQ(target->taps, 1);
    EXPECT_EQ(touched->ends, 1);
    EXPECT_EQ(touched->cancels, 0);
}

// Holds: button-beats-parents-tap
TEST_F(TapGestureRecognizer, OnAParentStandsBackForAButton) {
    const auto button = UIButton::withType(UIButtonType::System);
    button.setFrame({0, 0, 100, 60});
    button.addTarget(target, objc::selector<"pressed:">(), UIControlEventTouchUpInside);
    view.addSubview(button);

    tap(50, 130);

    EXPECT_EQ(target->presses, 1);
    EXPECT_EQ(target->taps, 0);
}

// Holds: button-beats-parents-tap
TEST_F(TapGestureRecognizer, OnAParentComesBeforeAPlainControl) {
    const auto control = objc::make<UIControl, "initWithFrame:">(CGRect(0, 0, 100, 60));
    control.addTarget(target, objc::selector<"pressed:">(), UIControlEventTouchUpInside);
    view.addSubview(control);

    tap(50, 130);

    EXPECT_EQ(target->taps, 1);
    EXPECT_EQ(target->presses, 0);
}

// Holds: tap-may-wander
TEST_F(TapGestureRecognizer, LetsTheFingerWanderBy45Points) {
    touch(Phase::Began, 50, 130);
    touch(Phase::Moved, 94, 130);
    touch(Phase::Ended, 94, 130);

    EXPECT_EQ(target->taps, 1);
}

// Holds: tap-may-wander
TEST_F(TapGestureRecognizer, FailsWhenTheFingerWandersFarther) {
    touch(Phase::Began, 50, 130);
    touch(Phase::Moved, 96, 130);
    touch(Phase::Ended, 50, 130);

    EXPECT_EQ(target->taps, 0);
}

TEST_F(TapGestureRecognizer, FailsWhenTheFingerStays) {
    touch(Phase::Began, 50, 130);
    advance(1);
    touch(Phase::Ended, 50, 130);

    EXPECT_EQ(target->taps, 0);
}

TEST_F(TapGestureRecognizer, WaitsForAsManyTapsAsItRequires) {
    recognizer.setNumberOfTapsRequired(2);

    tap(50, 130);
    EXPECT_EQ(target->taps, 0);
    tap(50, 130);

    EXPECT_EQ(target->taps, 1);
}

TEST_F(TapGestureRecognizer, DoesNotCountTapsThatAreFarApart) {
    recognizer.setNumberOfTapsRequired(2);

    tap(50, 130);
    advance(1);
    tap(50, 130);

    EXPECT_EQ(target->taps, 0);
}

TEST_F(TapGestureRecognizer, SeesNothingWhileTheApplicationIgnoresEvents) {
    UIApplication::shared().beginIgnoringInteractionEvents();
    tap(50, 130);
    UIApplication::shared().endIgnoringInteractionEvents();
    EXPECT_EQ(target->taps, 0);

    tap(50, 130);
    EXPECT_EQ(target->taps, 1);
}

TEST_F(TapGestureRecognizer, DoesNothingWhileItIsSwitchedOff) {
    recognizer.setEnabled(false);

    tap(50, 130);

    EXPECT_EQ(target->taps, 0);
}

} // namespace
