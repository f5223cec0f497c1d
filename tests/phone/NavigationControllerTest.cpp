#include "tests/phone/PhoneTest.h"
#include "tests/phone/Probe.h"
#include "tests/phone/Raised.h"

#include <sstream>

using Lines = std::vector<std::string>;

namespace {

/// Writes down how large its view is when it is told something.
class Sized : public objc::Defines<Sized, UIViewController> {
public:
    static constexpr auto objc_name = "SizedController";
    static void define(objc::ClassTable<Sized>& c) {
        c.overrides<"viewDidLoad", &Sized::viewDidLoad>()
            .overrides<"viewWillAppear:", &Sized::viewWillAppear>()
            .overrides<"viewDidLayoutSubviews", &Sized::viewDidLayoutSubviews>();
    }

    Lines sizes;

private:
    void note(const char* what) {
        const CGSize size = view().bounds().size;
        std::ostringstream line;
        line << what << ' ' << size.width << 'x' << size.height;
        sizes.push_back(line.str());
    }
    void viewDidLoad() { note("loaded"); }
    void viewWillAppear(bool) { note("appears"); }
    void viewDidLayoutSubviews() { note("laid out"); }
};

} // namespace

class NavigationController : public PhoneTest {
protected:
    NavigationController() { useClassesOnly(); }

    /// A navigation controller on the screen, with one probe named "root".
    void show() {
        const UIWindow front = window();
        root = Probe::with("root");
        navigation = UINavigationController::withRoot(root);
        run([&] { front.setRootViewController(navigation); });
        settle();
        takeProbed();
    }
    UIViewController push(const std::string& name, bool animated = true) {
        const auto controller = Probe::with(name);
        run([&] { navigation.push(controller, animated); });
        settle();
        return controller;
    }
    void TearDown() override {
        navigation = nullptr;
        root = nullptr;
        PhoneTest::TearDown();
    }

    UINavigationController navigation;
    UIViewController root;
};

TEST_F(NavigationController, ShowsItsRoot) {
    const UIWindow front = window();
    const auto controller = UINavigationController::withRoot(Probe::with("root"));

    EXPECT_EQ(takeProbed(), Lines{});
    run([&] { front.setRootViewController(controller); });

    EXPECT_EQ(takeProbed(), (Lines{"root loadView", "root viewDidLoad", "root willAppear", "root didAppear"}));
    EXPECT_EQ(controller.topViewController().navigationController(), controller);
}

// Holds: content-under-the-bars
TEST_F(NavigationController, HasItsScreenReachUnderTheBars) {
    show();

    EXPECT_EQ(root.view().frame(), CGRect(0, 0, 320, 568));
    EXPECT_EQ(navigation.navigationBar().frame(), CGRect(0, 20, 320, 44));
}

// Holds: content-under-the-bars
TEST_F(NavigationController, HasItsScreenReachUnderTheBarsOfTheSmallerPhone) {
    useDevice("iphone4");
    show();

    EXPECT_EQ(root.view().frame(), CGRect(0, 0, 320, 480));
}

// Holds: size-comes-after-loading
TEST_F(NavigationController, GivesAScreenItsSizeWhenItsViewHasLoaded) {
    useDevice("ipad");
    show();
    boot().setOrientation("LANDSCAPE_LEFT");
    settle();
    const auto sized = objc::Ref<Sized>::make();

    run([&] { navigation.push(objc::as<UIViewController>(sized), true); });
    settle();

    EXPECT_EQ(sized->sizes.front(), "loaded 768x1024");
    EXPECT_EQ(sized->sizes.at(1), "appears 1024x768");
    EXPECT_EQ(sized->sizes.back(), "laid out 1024x768");
}

// Holds: push-order
TEST_F(NavigationController, PushesInThePlatformsOrder) {
    show();

    push("next");

    EXPECT_EQ(takeProbed(), (Lines{"next loadView", "next viewDidLoad", "root willDisappear", "next willAppear",
                                   "root didDisappear", "next didAppear"}));
}

// Holds: pop-order
TEST_F(NavigationController, PopsInThePlatformsOrder) {
    show();
    {
        const objc::Pool pool;
        push("next");
    }
    takeProbed();

    run([&] { navigation.pop(true); });
    settle();

    EXPECT_EQ(takeProbed(),
              (Lines{"next willDisappear", "root willAppear", "next didDisappear", "root didAppear", "next dealloc"}));
}

// Holds: same-order-without-animation
TEST_F(NavigationController, KeepsTheOrderWithoutAnimation) {
    show();
    push("first", true);
    EXPECT_TRUE(Probe::wasAnimated);
    takeProbed();

    push("next", false);

    EXPECT_EQ(takeProbed(), (Lines{"next loadView", "next viewDidLoad", "first willDisappear", "next willAppear",
                                   "first didDisappear", "next didAppear"}));
    EXPECT_FALSE(Probe::wasAnimated);
}

// Holds: stack-changes-at-once
// Trap: push-returns-before-the-view
TEST_F(NavigationController, ChangesItsStackAtOnceAndLoadsTheViewLater) {
    show();
    const auto next = Probe::with("next");

    run([&] {
        navigation.push(next, true);
        EXPECT_EQ(navigation.topViewController(), next);
        EXPECT_EQ(navigation.viewControllers().count(), 2u);
        EXPECT_FALSE(next.isViewLoaded());
    });

    EXPECT_TRUE(next.isViewLoaded());
}

// Holds: nobody-in-between-is-told
TEST_F(NavigationController, TellsNobodyInBetweenWhenItPopsToTheRoot) {
    show();
    const auto middle = push("middle");
    const auto top = push("top");
    takeProbed();
    NSArray popped;

    run([&] { popped = navigation.popToRoot(true); });
    settle();

    EXPECT_EQ(takeProbed(), (Lines{"top willDisappear", "root willAppear", "top didDisappear", "root didAppear"}));
    ASSERT_EQ(popped.count(), 2u);
    EXPECT_EQ(popped.at<UIViewController>(0), middle);
    EXPECT_EQ(popped.at<UIViewController>(1), top);
}

TEST_F(NavigationController, PopsToOneOfItsScreens) {
    show();
    const auto middle = push("middle");
    push("top");

    run([&] { navigation.popTo(middle, true); });
    settle();

    EXPECT_EQ(navigation.topViewController(), middle);
    EXPECT_TRUE(middle.view().window());
}

// Holds: pop-to-a-stranger
TEST_F(NavigationController, RaisesWhenToldToPopToAStranger) {
    show();

    const auto exception = raised([&] { navigation.popTo(Probe::with("stranger"), true); });

    EXPECT_EQ(exception.name, "NSInternalInconsistencyException");
    EXPECT_EQ(exception.reason, "Tried to pop to a view controller that doesn't exist.");
}

// Holds: push-twice
TEST_F(NavigationController, RaisesWhenTheSameScreenIsPushedTwice) {
    show();

    const auto exception = raised([&] { navigation.push(root, true); });

    EXPECT_EQ(exception.name, "NSInvalidArgumentException");
    EXPECT_EQ(navigation.viewControllers().count(), 1u);
}

TEST_F(NavigationController, RaisesForANilScreen) {
    show();

    EXPECT_EQ(raised([&] { navigation.push(nullptr, true); }).name, "NSInvalidArgumentException");
}

// Holds: root-is-not-popped
TEST_F(NavigationController, PopsNothingAtItsRoot) {
    show();

    run([&] { EXPECT_FALSE(navigation.pop(true)); });
    settle();

    EXPECT_EQ(takeProbed(), Lines{});
}

TEST_F(NavigationController, IgnoresTouchesWhileScreensSlide) {
    show();

    run([&] { navigation.push(Probe::with("next"), true); });
    EXPECT_TRUE(UIApplication::shared().isIgnoringInteractionEvents());
    advance(0.34);
    EXPECT_TRUE(UIApplication::shared().isIgnoringInteractionEvents());
    advance(0.02);

    EXPECT_FALSE(UIApplication::shared().isIgnoringInteractionEvents());
}

TEST_F(NavigationController, LeavesOnlyTheTopInItsView) {
    show();

    const auto next = push("next");

    EXPECT_FALSE(root.view().superview());
    EXPECT_EQ(next.view().frame(), CGRect(0, 0, 320, 568));
}

TEST_F(NavigationController, ShowsTheLastOfSeveralPushes) {
    show();
    const auto second = Probe::with("second");

    run([&] {
        navigation.push(Probe::with("first"), true);
        navigation.push(second, true);
    });
    settle();

    EXPECT_TRUE(second.view().window());
    EXPECT_EQ(navigation.viewControllers().count(), 3u);
}

// Holds: transition-waits
TEST_F(NavigationController, DoesAPopAfterThePushThatIsUnderWay) {
    show();

    run([&] { navigation.push(Probe::with("next"), true); });
    run([&] { navigation.pop(true); });
    settle();

    EXPECT_TRUE(root.view().window());
    EXPECT_FALSE(UIApplication::shared().isIgnoringInteractionEvents());
    const auto lines = takeProbed();
    EXPECT_EQ(lines[lines.size() - 2], "root didAppear");
    EXPECT_EQ(lines.back(), "next dealloc");
}

// Holds: bar-changes-no-callback
TEST_F(NavigationController, HidesItsBarWithoutAnyCallback) {
    show();

    run([&] { navigation.setNavigationBarHidden(true, false); });
    EXPECT_EQ(takeProbed(), Lines{});
    push("next");

    EXPECT_TRUE(navigation.isNavigationBarHidden());
    EXPECT_TRUE(navigation.navigationBar().isHidden());
    EXPECT_EQ(takeProbed(), (Lines{"next loadView", "next viewDidLoad", "root willDisappear", "next willAppear",
                                   "root didDisappear", "next didAppear"}));
}

TEST_F(NavigationController, NamesTheScreenAndTheWayBackInItsBar) {
    show();
    root.setTitle("Root"_ns);
    const auto next = push("next");
    next.setTitle("Next"_ns);
    settle();

    EXPECT_TRUE(isVisible("Next"));
    tapOn("Root");
    settle();

    EXPECT_EQ(navigation.topViewController(), root);
    EXPECT_TRUE(isVisible("Root"));
}

TEST_F(NavigationController, KeepsItsBarsItemsToItself) {
    show();

    EXPECT_EQ(raised([&] { navigation.navigationBar().setItems(NSArray::of()); }).name,
              "NSInternalInconsistencyException");
}

TEST_F(NavigationController, LogsPushesAndPops) {
    show();
    push("next");

    run([&] { navigation.pop(true); });

    const auto entries = log("navigation");
    ASSERT_EQ(entries.size(), 3u); // the root is pushed too
    EXPECT_EQ(entries[1].at("action"), "push");
    EXPECT_EQ(entries[2].at("action"), "pop");
    EXPECT_EQ(entries[2].at("controller"), "Probe");
    EXPECT_EQ(entries[2].at("by"), "UINavigationController");
}
