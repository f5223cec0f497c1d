#include "tests/phone/PhoneTest.h"
#include "tests/phone/Probe.h"

#include <thread>

using Lines = std::vector<std::string>;

namespace {

/// Sets no view when it is to load one.
class Viewless : public objc::Defines<Viewless, UIViewController> {
public:
    static constexpr auto objc_name = "ViewlessController";
    static void define(objc::ClassTable<Viewless>& c) {
        c.overrides<"loadView", &Viewless::loadView>().overrides<"viewDidLoad", &Viewless::viewDidLoad>();
    }

    int loads = 0;
    int loaded = 0;

private:
    void loadView() { ++loads; }
    void viewDidLoad() { ++loaded; }
};

} // namespace

class ViewController : public PhoneTest {
protected:
    ViewController() { useClassesOnly(); }
};

// Holds: view-loads-once
TEST_F(ViewController, LoadsItsViewWhenItIsFirstAskedFor) {
    boot();
    const auto controller = Probe::with("a");

    EXPECT_FALSE(controller.isViewLoaded());
    EXPECT_EQ(takeProbed(), Lines{});
    const UIView view = controller.view();
    controller.view();

    EXPECT_TRUE(view);
    EXPECT_EQ(takeProbed(), (Lines{"a loadView", "a viewDidLoad"}));
}

// Holds: did-load-without-a-view
TEST_F(ViewController, HasLoadedEvenWhereNoViewWasSet) {
    boot();
    const auto viewless = objc::Ref<Viewless>::make();

    EXPECT_FALSE(objc::as<UIViewController>(viewless).view());

    EXPECT_EQ(viewless->loads, 1);
    EXPECT_EQ(viewless->loaded, 1);
}

TEST_F(ViewController, HasTheScreensPortraitBoundsWhenItsViewHasLoaded) {
    boot();

    Probe::with("a").view();

    EXPECT_EQ(Probe::loadedFrame, CGRect(0, 0, 320, 568));
}

// Holds: title-loads-nothing
TEST_F(ViewController, TakesATitleWithoutLoadingItsView) {
    boot();
    const auto controller = Probe::with("a");

    controller.setTitle("Title"_ns);

    EXPECT_FALSE(controller.isViewLoaded());
    EXPECT_TRUE(controller.navigationItem().title().isEqualToString("Title"_ns));
    controller.setTitle("Another"_ns);
    EXPECT_TRUE(controller.navigationItem().title().isEqualToString("Another"_ns));
}

TEST_F(ViewController, IsTheNextResponderOfItsView) {
    const UIWindow front = window();
    const auto controller = Probe::with("a");

    front.setRootViewController(controller);

    EXPECT_EQ(controller.view().nextResponder(), controller);
    EXPECT_EQ(controller.nextResponder(), front);
}

TEST_F(ViewController, IsToldOfItsComingAndGoingWithTheWindow) {
    const UIWindow front = window();
    const auto first = Probe::with("a");
    const auto second = Probe::with("b");

    run([&] { front.setRootViewController(first); });
    EXPECT_EQ(takeProbed(), (Lines{"a loadView", "a viewDidLoad", "a willAppear", "a didAppear"}));
    run([&] { front.setRootViewController(second); });

    EXPECT_EQ(takeProbed(), (Lines{"a willDisappear", "a didDisappear", "b loadView", "b viewDidLoad", "b willAppear",
                                   "b didAppear"}));
}

// Trap: push-returns-before-the-view
// Holds: will-appear-outside-the-window
TEST_F(ViewController, IsNotYetInTheWindowWhenItIsAboutToAppear) {
    const UIWindow front = window();

    front.setRootViewController(Probe::with("a"));

    EXPECT_FALSE(Probe::wasInWindow);
}

TEST_F(ViewController, LogsItsAppearanceCallbacks) {
    const UIWindow front = window();

    front.setRootViewController(Probe::with("a"));

    const auto entries = log("appearance");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].at("class"), "Probe");
    EXPECT_EQ(entries[0].at("callback"), "viewWillAppear:");
    EXPECT_EQ(entries[1].at("callback"), "viewDidAppear:");
}

TEST_F(ViewController, TellsAChildThatItsViewContains) {
    const UIWindow front = window();
    const auto parent = Probe::with("parent");
    const auto child = Probe::with("child");
    parent.addChildViewController(child);
    parent.view().addSubview(child.view());
    takeProbed();

    front.setRootViewController(parent);

    EXPECT_EQ(takeProbed(), (Lines{"parent willAppear", "child willAppear", "parent didAppear", "child didAppear"}));
    EXPECT_EQ(child.parentViewController(), parent);
}

TEST_F(ViewController, GivesItsViewUpWhenItGoes) {
    boot();
    UIView view;
    {
        const objc::Pool pool;
        view = Probe::with("a").view();
    }

    EXPECT_EQ(takeProbed().back(), "a dealloc");
    EXPECT_FALSE(view.nextResponder());
}

// Holds: rotation-callbacks-exist
TEST_F(ViewController, AnswersTheRotationCallbacksOfAllItsGenerations) {
    boot();
    const auto controller = objc::make<UIViewController>();

    EXPECT_TRUE(objc::responds<"shouldAutorotateToInterfaceOrientation:">(controller));
    EXPECT_TRUE(objc::responds<"willRotateToInterfaceOrientation:duration:">(controller));
    EXPECT_TRUE(objc::responds<"willAnimateRotationToInterfaceOrientation:duration:">(controller));
    EXPECT_TRUE(objc::responds<"didRotateFromInterfaceOrientation:">(controller));
    EXPECT_TRUE(objc::responds<"shouldAutorotate">(controller));
    EXPECT_TRUE(objc::responds<"supportedInterfaceOrientations">(controller));
}

TEST_F(ViewController, HeldLastByAnotherThreadEndsOnTheMainThread) {
    boot();
    auto controller = Probe::with("a");
    const UIView view = controller.view();
    takeProbed();

    run([&] {
        std::thread([held = std::move(controller)]() mutable { held = nullptr; }).join();
        EXPECT_EQ(takeProbed(), Lines{});
    });

    EXPECT_EQ(takeProbed(), Lines{"a dealloc"});
}
