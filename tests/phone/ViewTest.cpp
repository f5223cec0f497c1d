#include "tests/phone/PhoneTest.h"
#include "tests/phone/Raised.h"

#include "phone/uikit/Compositor.h"
#include "phone/uikit/View.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIScreen.h"

#include <cmath>

namespace {

/// Counts how often it is laid out, and how it moves.
class Watcher : public objc::Defines<Watcher, UIView> {
public:
    static constexpr auto objc_name = "TestWatcher";
    static void define(objc::ClassTable<Watcher>& c) {
        c.overrides<"layoutSubviews", &Watcher::layoutSubviews>()
            .overrides<"willMoveToSuperview:", &Watcher::willMoveToSuperview>()
            .overrides<"didMoveToSuperview", &Watcher::didMoveToSuperview>()
            .overrides<"didMoveToWindow", &Watcher::didMoveToWindow>()
            .overrides<"canBecomeFirstResponder", &Watcher::canBecome>()
            .overrides<"_shouldBecomeFirstResponder", &Watcher::shouldBecome>()
            .overrides<"_shouldResignFirstResponder", &Watcher::shouldResign>()
            .overrides<"_didBecomeFirstResponder", &Watcher::didBecome>()
            .overrides<"_didResignFirstResponder", &Watcher::didResign>();
    }

    std::vector<std::string> heard;
    int layouts = 0;
    bool refuses = false;

private:
    void layoutSubviews() { ++layouts; }
    void willMoveToSuperview(const UIView& view) { heard.push_back(view ? "will move" : "will leave"); }
    void didMoveToSuperview() { heard.push_back("did move"); }
    void didMoveToWindow() { heard.push_back(window() ? "in window" : "out of window"); }
    bool canBecome() { return true; }
    bool shouldBecome() {
        heard.push_back("should become");
        becomeFirstResponder();
        return true;
    }
    bool shouldResign() {
        heard.push_back("should resign");
        return !refuses;
    }
    void didBecome() { heard.push_back("did become"); }
    void didResign() { heard.push_back("did resign"); }
};

class View : public PhoneTest {
public:
    View() { useClassesOnly(); }
};

// Holds: frame-follows-the-centre
TEST_F(View, MovesItsFrameWithItsCentreAndKeepsFractions) {
    boot();
    const auto view = UIView::withFrame({15, 20, 291, 225});

    view.setCenter({160, 284});

    EXPECT_EQ(view.frame(), CGRect(14.5, 171.5, 291, 225));
    EXPECT_EQ(view.bounds(), CGRect(0, 0, 291, 225));
}

// Holds: frame-follows-the-centre
TEST_F(View, KeepsItsCentreWhenItsBoundsChange) {
    boot();
    const auto view = UIView::withFrame({0, 0, 100, 100});

    view.setBounds({0, 0, 50, 20});

    EXPECT_EQ(view.center(), (CGPoint{50, 50}));
    EXPECT_EQ(view.frame(), CGRect(25, 40, 50, 20));
}

// Holds: no-number-raises
TEST_F(View, RaisesForAFrameBoundsOrCentreThatIsNoNumber) {
    boot();
    const auto view = UIView::withFrame({0, 0, 100, 100});
    const CGFloat nan = std::nan("");

    const auto center = raised([&] { view.setCenter({240, nan}); });
    EXPECT_EQ(center.name, "CALayerInvalidGeometry");
    EXPECT_EQ(center.reason, "CALayer position contains NaN: [240 nan]");
    const auto bounds = raised([&] { view.setBounds({nan, 0, nan, 15}); });
    EXPECT_EQ(bounds.name, "CALayerInvalidGeometry");
    EXPECT_EQ(bounds.reason, "CALayer bounds contains NaN: [nan 0; nan 15]");
    const auto frame = raised([&] { view.setFrame({nan, 50, 200, 200}); });
    EXPECT_EQ(frame.name, "CALayerInvalidGeometry");
    EXPECT_EQ(frame.reason, "CALayer position contains NaN: [nan 150]");
    const auto made = raised([&] { UIView::withFrame({0, 0, nan, 1}); });
    EXPECT_EQ(made.name, "CALayerInvalidGeometry");
    EXPECT_EQ(made.reason, "CALayer bounds contains NaN: [0 0; nan 1]");
}

TEST_F(View, ConvertsPointsThroughScrolledViews) {
    const auto root = window();
    const auto outer = UIView::withFrame({10, 20, 200, 200});
    const auto inner = UIView::withFrame({5, 5, 50, 50});
    root.addSubview(outer);
    outer.addSubview(inner);
    outer.setBounds({0, 30, 200, 200});

    EXPECT_EQ(inner.convertPointToView({1, 1}, nullptr), (CGPoint{16, -4}));
    EXPECT_EQ(inner.convertPointFromView({16, -4}, root), (CGPoint{1, 1}));
    EXPECT_EQ(inner.convertRectToView({0, 0, 50, 50}, outer), CGRect(5, 5, 50, 50));
}

TEST_F(View, KeepsItsChildrenInOrder) {
    boot();
    const auto root = UIView::withFrame({0, 0, 100, 100});
    const auto a = UIView::withFrame({});
    const auto b = UIView::withFrame({});
    const auto c = UIView::withFrame({});
    root.addSubview(a);
    root.addSubview(b);
    root.insertSubview(c, 1);

    root.sendSubviewToBack(b);
    root.bringSubviewToFront(a);

    ASSERT_EQ(root.subviews().count(), 3U);
    EXPECT_EQ(root.subviews().at<UIView>(0), b);
    EXPECT_EQ(root.subviews().at<UIView>(1), c);
    EXPECT_EQ(root.subviews().at<UIView>(2), a);
}

TEST_F(View, LeavesItsOldSuperviewForTheNewOne) {
    boot();
    const auto first = UIView::withFrame({});
    const auto second = UIView::withFrame({});
    const auto child = UIView::withFrame({});
    first.addSubview(child);

    second.addSubview(child);

    EXPECT_EQ(first.subviews().count(), 0U);
    EXPECT_EQ(child.superview(), second);
}

TEST_F(View, IsToldOfItsMoves) {
    const auto root = window();
    const auto watcher = objc::Ref<Watcher>::make();

    root.addSubview(watcher);
    objc::as<UIView>(watcher).removeFromSuperview();

    EXPECT_EQ(watcher->heard, (std::vector<std::string>{"will move", "in window", "did move", "will leave",
                                                        "out of window", "did move"}));
}

TEST_F(View, ForgetsItsSuperviewWhenThatGoesAway) {
    boot();
    const auto child = UIView::withFrame({});
    {
        const objc::Pool pool;
        UIView::withFrame({}).addSubview(child);
    }

    EXPECT_FALSE(child.superview());
}

TEST_F(View, GoesAwayWithItsSuperview) {
    boot();
    const long before = phone::View::liveCount();
    {
        const objc::Pool pool;
        const auto parent = UIView::withFrame({});
        parent.addSubview(UIView::withFrame({}));
    }

    EXPECT_EQ(phone::View::liveCount(), before);
}

TEST_F(View, RefusesToBeInsideItself) {
    boot();
    const auto view = UIView::withFrame({});

    EXPECT_EQ(raised([&] { view.addSubview(view); }).name, "NSInvalidArgumentException");
}

TEST_F(View, LaysOutAtTheEndOfTheCycle) {
    const auto root = window();
    const auto watcher = objc::Ref<Watcher>::make();
    run([&] { root.addSubview(watcher); });
    const int before = watcher->layouts;

    run([&] {
        objc::as<UIView>(watcher).setNeedsLayout();
        EXPECT_EQ(watcher->layouts, before);
    });

    EXPECT_EQ(watcher->layouts, before + 1);
}

TEST_F(View, LaysOutAtOnceWhenAskedTo) {
    const auto root = window();
    const auto watcher = objc::Ref<Watcher>::make();
    root.addSubview(watcher);

    objc::as<UIView>(watcher).setFrame({0, 0, 10, 10});
    objc::as<UIView>(watcher).layoutIfNeeded();

    EXPECT_EQ(watcher->layouts, 1);
}

TEST_F(View, ResizesItsChildrenByTheirMasks) {
    boot();
    const auto root = UIView::withFrame({0, 0, 100, 100});
    const auto wide = UIView::withFrame({10, 10, 80, 20});
    wide.setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    root.addSubview(wide);
    const auto low = UIView::withFrame({0, 80, 10, 20});
    low.setAutoresizingMask(UIViewAutoresizingFlexibleTopMargin);
    root.addSubview(low);
    const auto fixed = UIView::withFrame({1, 2, 3, 4});
    root.addSubview(fixed);

    root.setFrame({0, 0, 200, 150});

    EXPECT_EQ(wide.frame(), CGRect(10, 10, 180, 20));
    EXPECT_EQ(low.frame(), CGRect(0, 130, 10, 20));
    EXPECT_EQ(fixed.frame(), CGRect(1, 2, 3, 4));
}

TEST_F(View, StaysInTheMiddleByFlexibleMarginsToTheFraction) {
    boot();
    const auto root = UIView::withFrame({0, 0, 768, 1024});
    const auto panel = UIView::withFrame({0, 0, 291, 185});
    panel.setCenter(root.center());
    panel.setAutoresizingMask(
        UIViewAutoresizing(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                           UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin));
    root.addSubview(panel);

    root.setBounds({0, 0, 1024, 768});

    EXPECT_EQ(panel.frame(), CGRect(366.5, 291.5, 291, 185));
}

TEST_F(View, InheritsItsTint) {
    boot();
    const auto root = UIView::withFrame({});
    const auto child = UIView::withFrame({});
    root.addSubview(child);

    EXPECT_TRUE(child.tintColor().isEqual(UIColor::rgba(0, 122 / 255.0, 1, 1)));
    root.setTintColor(UIColor::white());

    EXPECT_TRUE(child.tintColor().isEqual(UIColor::white()));
}

TEST_F(View, MasksToItsBoundsWhenItClips) {
    boot();
    const auto view = UIView::withFrame({});

    view.layer().setMasksToBounds(true);

    EXPECT_TRUE(view.clipsToBounds());
}

TEST_F(View, GoesOnAlongTheResponderChainToTheApplication) {
    const auto root = window();
    const auto view = UIView::withFrame({});
    root.addSubview(view);

    EXPECT_EQ(view.nextResponder(), root);
    EXPECT_EQ(root.nextResponder(), UIApplication::shared());
}

TEST_F(View, CannotBecomeFirstResponderOutsideAWindow) {
    boot();
    const auto watcher = objc::Ref<Watcher>::make();

    EXPECT_FALSE(objc::as<UIView>(watcher).becomeFirstResponder());
    EXPECT_TRUE(watcher->heard.empty());
}

TEST_F(View, BecomesFirstResponderOnceHoweverOftenItAsks) {
    const auto root = window();
    const auto watcher = objc::Ref<Watcher>::make();
    root.addSubview(watcher);
    watcher->heard.clear();

    EXPECT_TRUE(objc::as<UIView>(watcher).becomeFirstResponder());
    EXPECT_TRUE(objc::as<UIView>(watcher).becomeFirstResponder());

    EXPECT_EQ(watcher->heard, (std::vector<std::string>{"should become", "did become"}));
}

TEST_F(View, DoesNotBecomeFirstResponderWhileTheOldOneRefuses) {
    const auto root = window();
    const auto old = objc::Ref<Watcher>::make();
    const auto next = objc::Ref<Watcher>::make();
    root.addSubview(old);
    root.addSubview(next);
    objc::as<UIView>(old).becomeFirstResponder();
    old->refuses = true;

    EXPECT_FALSE(objc::as<UIView>(next).becomeFirstResponder());

    EXPECT_TRUE(objc::as<UIView>(old).isFirstResponder());
}

TEST_F(View, ResignsUnaskedWhenItLeavesTheWindow) {
    const auto root = window();
    const auto watcher = objc::Ref<Watcher>::make();
    root.addSubview(watcher);
    objc::as<UIView>(watcher).becomeFirstResponder();
    watcher->refuses = true;
    watcher->heard.clear();

    objc::as<UIView>(watcher).removeFromSuperview();

    EXPECT_FALSE(objc::as<UIView>(watcher).isFirstResponder());
    EXPECT_EQ(watcher->heard, (std::vector<std::string>{"will leave", "did resign", "out of window", "did move"}));
}

TEST_F(View, ShowsWindowsOnlyOnceTheyAreMadeVisible) {
    boot();
    const auto window = UIWindow::withFrame(UIScreen::main().bounds());

    EXPECT_TRUE(window.isHidden());
    window.makeKeyAndVisible();

    EXPECT_FALSE(window.isHidden());
    EXPECT_EQ(UIApplication::shared().keyWindow(), window);
}

// Holds: round-corners-and-masks
TEST_F(View, DrawsItsColourInRoundedCornersAndClipsItsChildren) {
    const auto root = window();
    root.setBackgroundColor(UIColor::white());
    const auto panel = UIView::withFrame({100, 100, 100, 100});
    panel.layer().setCornerRadius(20);
    panel.layer().setMasksToBounds(true);
    const auto child = UIView::withFrame({0, 0, 200, 200});
    child.setBackgroundColor(UIColor::rgba(1, 0, 0, 1));
    panel.addSubview(child);
    root.addSubview(panel);

    const auto picture = phone::pictureOfScreen();

    EXPECT_EQ(picture->pixel(300, 300), 0xffff0000U);
    EXPECT_EQ(picture->pixel(202, 202), 0xffffffffU); // outside the corner
    EXPECT_EQ(picture->pixel(420, 300), 0xffffffffU); // beyond the panel
}

// Holds: round-corners-and-masks
TEST_F(View, DrawsChildrenBeyondCornersThatAreOnlyRounded) {
    const auto root = window();
    root.setBackgroundColor(UIColor::white());
    const auto panel = UIView::withFrame({100, 100, 100, 100});
    panel.setBackgroundColor(UIColor::black());
    panel.layer().setCornerRadius(20);
    const auto child = UIView::withFrame({0, 90, 120, 10});
    child.setBackgroundColor(UIColor::rgba(1, 0, 0, 1));
    panel.addSubview(child);
    root.addSubview(panel);

    const auto picture = phone::pictureOfScreen();

    EXPECT_EQ(picture->pixel(202, 202), 0xffffffffU); // the background ends at the corner
    EXPECT_EQ(picture->pixel(202, 398), 0xffff0000U); // what is inside does not
    EXPECT_EQ(picture->pixel(430, 398), 0xffff0000U);
}

TEST_F(View, DrawsTranslucentViewsAsOnePicture) {
    const auto root = window();
    root.setBackgroundColor(UIColor::white());
    const auto group = UIView::withFrame({100, 100, 100, 100});
    group.setBackgroundColor(UIColor::black());
    group.setAlpha(0.5);
    const auto child = UIView::withFrame({0, 0, 50, 50});
    child.setBackgroundColor(UIColor::black());
    group.addSubview(child);
    root.addSubview(group);

    const auto picture = phone::pictureOfScreen();

    EXPECT_EQ(picture->pixel(220, 220), picture->pixel(380, 380));
    EXPECT_NEAR(picture->pixel(220, 220) & 0xff, 0x80, 1);
}

} // namespace
