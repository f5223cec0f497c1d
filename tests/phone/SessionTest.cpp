#include "tests/phone/PhoneTest.h"

#include "phone/coregraphics/Bitmap.h"
#include "phone/device/RunLoop.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/WallClock.h"
#include "phone/uikit/HeldScreen.h"
#include "platform/foundation/NSArray.h"
#include "platform/uikit/UIDevice.h"

namespace {

using phone::ScreenError;

class Session : public PhoneTest {
public:
    Session() { useClassesOnly(); }
};

/// Counts the touches that begin in it.
class Touched : public objc::Defines<Touched, UIView> {
public:
    static constexpr auto objc_name = "TestSessionTouched";
    static void define(objc::ClassTable<Touched>& c) { c.overrides<"touchesBegan:withEvent:", &Touched::began>(); }

    int begins = 0;
    CGPoint at;

private:
    void began(const NSSet& touches, const UIEvent&) {
        ++begins;
        at = touches.any<UITouch>().locationInView(*this);
    }
};

objc::Ref<Touched> addTouched(const UIWindow& to, CGRect frame) {
    auto made = objc::Ref<Touched>::make();
    objc::as<UIView>(made).setFrame(frame);
    to.addSubview(made);
    return made;
}

// Holds: crash-ends-the-application
TEST_F(Session, EndsWithAnUncaughtPlatformException) {
    expectLogged("exception");

    EXPECT_THROW(run([] { phone::raise("NSRangeException", "too far"); }), ScreenError);

    ASSERT_EQ(log("exception").size(), 1U);
    EXPECT_EQ(log("exception")[0].at("name"), "NSRangeException");
    EXPECT_EQ(log("exception")[0].at("reason"), "too far");
    EXPECT_TRUE(boot().isDead());
    EXPECT_THROW(advance(1), ScreenError);
}

TEST_F(Session, EndsWithAnExceptionThatFoundationRaises) {
    expectLogged("exception");

    EXPECT_THROW(run([] { (void)NSArray::of("only"_ns).at(5); }), ScreenError);

    EXPECT_EQ(log("exception")[0].at("name"), "NSRangeException");
}

TEST_F(Session, EndsWithAMessageThatNobodyAnswers) {
    expectLogged("exception");
    expectLogged("unanswered");

    EXPECT_THROW(run([] { UIDevice::current().send<"orderTakeaway">(); }), ScreenError);

    ASSERT_EQ(log("unanswered").size(), 1U);
    EXPECT_EQ(log("unanswered")[0].at("class"), "UIDevice");
    EXPECT_EQ(log("unanswered")[0].at("selector"), "orderTakeaway");
}

TEST_F(Session, OutlivesACommandThatItRefuses) {
    EXPECT_THROW(boot().request({{"do", "dance"}}), ScreenError);
    EXPECT_THROW(boot().request({{"do", "touch"}, {"phase", "hovered"}, {"x", 1}, {"y", 1}}), ScreenError);
    EXPECT_THROW(boot().request({{"undo", "touch"}}), ScreenError);

    EXPECT_FALSE(boot().isDead());
}

TEST_F(Session, HandsTouchesToTheFrontmostWindowThatTakesThem) {
    const auto back = addTouched(window(), {0, 0, 100, 100});
    const auto front = window();
    front.setUserInteractionEnabled(false);

    tap(50, 40);

    EXPECT_EQ(back->begins, 1);
    EXPECT_EQ(back->at, (CGPoint{50, 40}));
}

TEST_F(Session, TurnsTouchesToTheUprightScreen) {
    const auto view = addTouched(window(), {10, 20, 100, 30});
    boot().setOrientation("LANDSCAPE_RIGHT");

    tap(568 - 35, 60);

    EXPECT_EQ(view->begins, 1);
    EXPECT_EQ(view->at, (CGPoint{50, 15}));
}

TEST_F(Session, RefusesAnOrientationThatThereIsNot) { EXPECT_THROW(boot().setOrientation("SIDEWAYS"), ScreenError); }

TEST_F(Session, TurnsPointsThereAndBack) {
    boot();
    auto& held = phone::HeldScreen::shared();
    for (const char* name : {"PORTRAIT", "UPSIDE_DOWN", "LANDSCAPE_LEFT", "LANDSCAPE_RIGHT"}) {
        held.turn(name);
        EXPECT_EQ(held.upright(held.held(CGPoint{12, 34})), (CGPoint{12, 34})) << name;
    }
}

TEST_F(Session, SetsTheWallClock) {
    boot().setClock(1000000000);

    EXPECT_EQ(phone::WallClock::now(), 1000000000);
}

TEST_F(Session, WritesScreenshotsAtTwoPixelsAPoint) {
    const auto path = hostPath("/var/mobile/shot.png");
    std::filesystem::create_directories(path.parent_path());
    window();

    boot().screenshot(path.string());

    const auto picture = phone::Bitmap::load(path.string());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 640);
    EXPECT_EQ(picture->height(), 1136);
}

TEST_F(Session, RefusesAScreenshotThatCannotBeWritten) {
    EXPECT_THROW(boot().screenshot("/nowhere/shot.png"), ScreenError);
}

TEST_F(Session, WritesAPartOfTheScreen) {
    const auto path = hostPath("/var/mobile/part.png");
    std::filesystem::create_directories(path.parent_path());
    window();

    boot().screenshot(path.string(), 10, 20, 30, 40.5);

    const auto picture = phone::Bitmap::load(path.string());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 60);
    EXPECT_EQ(picture->height(), 81);
    EXPECT_THROW(boot().screenshot(path.string(), 300, 20, 30, 40), ScreenError);
}

TEST_F(Session, SaysWhenSomethingIsDue) {
    EXPECT_FALSE(boot().state().contains("next"));

    phone::RunLoop::main().every(2, [] {});
    const auto periodic = boot().state();
    phone::RunLoop::main().after(0.5, [] {});
    const auto single = boot().state();

    EXPECT_EQ(periodic.at("next").get<double>(), 2);
    EXPECT_FALSE(periodic.at("moving").get<bool>());
    EXPECT_EQ(single.at("next").get<double>(), 0.5);
    EXPECT_TRUE(single.at("moving").get<bool>());
}

TEST_F(Session, TakesATouchAway) {
    auto touched = addTouched(window(), {0, 0, 50, 50});

    boot().touch(phone::Screen::Phase::Began, 10, 10);
    boot().touch(phone::Screen::Phase::Cancelled, 10, 10);
    boot().touch(phone::Screen::Phase::Began, 10, 10);

    EXPECT_EQ(touched->begins, 2);
}

TEST_F(Session, RefusesToShowItselfWithoutADisplay) { EXPECT_THROW(boot().request({{"do", "picture"}}), ScreenError); }

TEST_F(Session, SettlesWhileSomethingMovesForEver) {
    const auto view = UIView::withFrame({0, 0, 10, 10});
    window().addSubview(view);
    run([&] {
        UIView moved = view;
        UIView::animate(
            1, 0, 8,
            ^{
              moved.setAlpha(0.5);
            },
            nullptr);
    });

    settle();

    EXPECT_FALSE(boot().isDead());
}

} // namespace
