#include "platform/uikit/UINavigationController.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

class LightScreen : public objc::Defines<LightScreen, UIViewController> {
public:
    static constexpr auto objc_name = "LightScreen";
    static void define(objc::ClassTable<LightScreen>& c) {
        c.overrides<"preferredStatusBarStyle", &LightScreen::preferredStatusBarStyle>();
    }

private:
    objc::Int preferredStatusBarStyle() const { return 1; }
};

class StatusBar : public PhoneTest {
protected:
    void start() {
        useClassesOnly();
        front = window();
    }
    /// The controller's view fills the screen in a grey.
    void show(const UIViewController& controller, double grey) {
        ASSERT_TRUE(controller.view());
        controller.view().setBackgroundColor(UIColor::rgba(grey, grey, grey, 1));
        run([&] { front.setRootViewController(controller); });
        settle();
    }
    /// By the charge of its battery.
    static int brightness() { return Picture().brightness(297, 10); }

    UIWindow front;
};

} // namespace

// Holds: status-bar-style
TEST_F(StatusBar, IsDarkWhateverLiesBeneathUnlessTheControllerAsksForLight) {
    start();
    show(objc::make<UIViewController>(), 0.2);
    EXPECT_EQ(brightness(), 0);

    show(objc::make<UIViewController>(), 0.8);
    EXPECT_EQ(brightness(), 0);
}

// Holds: status-bar-style
TEST_F(StatusBar, IsLightWhateverLiesBeneathWhereTheControllerAsksForIt) {
    start();
    show(objc::as<UIViewController>(objc::Ref<LightScreen>::make()), 0.8);

    EXPECT_EQ(brightness(), 255);
}

// Holds: status-bar-style
TEST_F(StatusBar, AsksANavigationControllerAndNotWhatItShows) {
    start();
    const auto inside = objc::as<UIViewController>(objc::Ref<LightScreen>::make());
    inside.view().setBackgroundColor(UIColor::rgba(0.2, 0.2, 0.2, 1));

    show(UINavigationController::withRoot(inside), 0.2);

    EXPECT_EQ(brightness(), 0);
}

// Holds: status-bar-style
TEST_F(StatusBar, StaysThatOfTheCallBeneathTheSheetAndNotBeneathWhatFillsTheScreen) {
    call();
    EXPECT_EQ(brightness(), 255);
    tapOn("Accept");
    settle();
    tap(160, 50);
    settle();
    EXPECT_EQ(brightness(), 255);

    tapOn("Note");
    settle();

    EXPECT_EQ(brightness(), 0);
}
