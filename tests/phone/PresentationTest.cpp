#include "tests/phone/PhoneTest.h"
#include "tests/phone/Probe.h"
#include "tests/phone/Raised.h"

#include "phone/uikit/ViewController.h"

#include <algorithm>

using Lines = std::vector<std::string>;

class Presentation : public PhoneTest {
protected:
    Presentation() { useClassesOnly(); }

    /// A probe named "lower" on the screen.
    void show() {
        const UIWindow front = window();
        lower = Probe::with("lower");
        run([&] { front.setRootViewController(lower); });
        settle();
        takeProbed();
    }
    void TearDown() override {
        lower = nullptr;
        PhoneTest::TearDown();
    }
    static Lines of(const Lines& lines, const std::string& name) {
        Lines own;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(own),
                     [&](const std::string& line) { return line.starts_with(name + " "); });
        return own;
    }
    static UIViewController overlay(const std::string& name) {
        const auto controller = Probe::with(name);
        controller.setModalPresentationStyle(UIModalPresentationStyle::FormSheet);
        return controller;
    }

    UIViewController lower;
};

// Holds: presentation-order
TEST_F(Presentation, TellsBothControllersInTheirOrder) {
    show();

    run([&] { lower.present(Probe::with("upper"), true, nullptr); });
    settle();

    const Lines lines = takeProbed();
    EXPECT_EQ(of(lines, "lower"), (Lines{"lower willDisappear", "lower didDisappear"}));
    EXPECT_EQ(of(lines, "upper"),
              (Lines{"upper loadView", "upper viewDidLoad", "upper willAppear", "upper didAppear"}));
}

// Holds: presentation-order
TEST_F(Presentation, TellsBothControllersWhenItEnds) {
    show();
    {
        const objc::Pool pool;
        run([&] { lower.present(Probe::with("upper"), true, nullptr); });
        settle();
    }
    takeProbed();

    run([&] { lower.dismiss(true, nullptr); });
    settle();

    const Lines lines = takeProbed();
    EXPECT_EQ(of(lines, "lower"), (Lines{"lower willAppear", "lower didAppear"}));
    EXPECT_EQ(of(lines, "upper"), (Lines{"upper willDisappear", "upper didDisappear", "upper dealloc"}));
    EXPECT_TRUE(lower.view().window());
}

// Holds: completion-after-callbacks
TEST_F(Presentation, CompletesAfterTheControllerHasAppeared) {
    show();

    run([&] {
        lower.present(Probe::with("upper"), true, ^{
          probed().push_back("completed");
        });
    });
    settle();

    const Lines lines = takeProbed();
    EXPECT_LT(std::find(lines.begin(), lines.end(), "upper didAppear"),
              std::find(lines.begin(), lines.end(), "completed"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "completed"), 1);
}

// Holds: completion-after-callbacks
TEST_F(Presentation, CompletesItsEndAfterTheControllerHasDisappeared) {
    show();
    const auto upper = Probe::with("upper");
    run([&] { lower.present(upper, true, nullptr); });
    settle();

    run([&] {
        lower.dismiss(true, ^{
          probed().push_back("completed");
        });
    });
    settle();

    EXPECT_EQ(takeProbed().back(), "completed");
}

TEST_F(Presentation, RisesFromTheBottomInFourTenthsOfASecond) {
    show();
    const auto upper = Probe::with("upper");

    run([&] { lower.present(upper, true, nullptr); });

    EXPECT_EQ(upper.view().frame(), CGRect(0, 0, 320, 568)); // its end, at once
    advance(0.39);
    EXPECT_TRUE(UIApplication::shared().isIgnoringInteractionEvents());
    advance(0.02);
    EXPECT_FALSE(UIApplication::shared().isIgnoringInteractionEvents());
    EXPECT_FALSE(lower.view().window());
}

// Trap: presenting-twice-does-nothing
// Holds: presentation-refused
TEST_F(Presentation, DoesNothingWhileAnotherOneIsUnderWay) {
    show();
    const auto first = Probe::with("first");
    const auto second = Probe::with("second");

    run([&] {
        lower.present(first, true, nullptr);
        lower.present(second, true, ^{
          probed().push_back("completed");
        });
        first.present(second, true, ^{
          probed().push_back("completed");
        });
    });
    settle();

    EXPECT_EQ(lower.presentedViewController(), first);
    EXPECT_FALSE(second.isViewLoaded());
    const Lines lines = takeProbed();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "completed"), 0);
}

// Holds: presentation-refused
TEST_F(Presentation, DoesNothingOnAControllerInNoWindow) {
    boot();
    const auto alone = Probe::with("alone");
    alone.view();

    run([&] {
        alone.present(Probe::with("upper"), true, ^{
          probed().push_back("completed");
        });
    });
    settle();

    EXPECT_FALSE(alone.presentedViewController());
    const Lines lines = takeProbed();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "completed"), 0);
}

// Holds: sheet-leaves-what-is-beneath
TEST_F(Presentation, TellsNobodyBeneathWhenItDoesNotFillTheScreen) {
    show();

    run([&] { lower.present(overlay("upper"), true, nullptr); });
    settle();

    EXPECT_EQ(of(takeProbed(), "lower"), Lines{});
    EXPECT_TRUE(lower.view().window());
}

TEST_F(Presentation, TellsAllThatIsVisibleWhenAFullScreenComesOverASheet) {
    show();
    const auto sheet = overlay("sheet");
    run([&] { lower.present(sheet, true, nullptr); });
    settle();
    takeProbed();

    run([&] { sheet.present(Probe::with("upper"), true, nullptr); });
    settle();

    const Lines lines = takeProbed();
    EXPECT_EQ(of(lines, "lower"), (Lines{"lower willDisappear", "lower didDisappear"}));
    EXPECT_EQ(of(lines, "sheet"), (Lines{"sheet willDisappear", "sheet didDisappear"}));
}

// Holds: dismissal-goes-to-the-presenter
TEST_F(Presentation, RemovesEverythingAboveTheControllerThatDismisses) {
    show();
    const auto sheet = overlay("sheet");
    const auto upper = Probe::with("upper");
    run([&] { lower.present(sheet, true, nullptr); });
    settle();
    run([&] { sheet.present(upper, true, nullptr); });
    settle();
    takeProbed();

    run([&] { lower.dismiss(true, nullptr); });
    settle();

    const Lines lines = takeProbed();
    EXPECT_EQ(of(lines, "lower"), (Lines{"lower willAppear", "lower didAppear"}));
    EXPECT_EQ(of(lines, "sheet"), Lines{});
    EXPECT_EQ(of(lines, "upper"), (Lines{"upper willDisappear", "upper didDisappear"}));
    EXPECT_FALSE(lower.presentedViewController());
    EXPECT_FALSE(sheet.presentingViewController());
    EXPECT_FALSE(sheet.view().window());
}

// Holds: dismissal-goes-to-the-presenter
TEST_F(Presentation, PassesADismissalOnToThePresenter) {
    show();
    const auto upper = Probe::with("upper");
    run([&] { lower.present(upper, true, nullptr); });
    settle();

    run([&] { upper.dismiss(true, nullptr); });
    settle();

    EXPECT_FALSE(lower.presentedViewController());
    EXPECT_TRUE(lower.view().window());
}

// Holds: presenter-is-no-parent
TEST_F(Presentation, LinksPresenterAndPresentedButIsNoParent) {
    show();
    const auto upper = UINavigationController::withRoot(Probe::with("root"));

    run([&] { lower.present(upper, false, nullptr); });
    settle();

    EXPECT_EQ(lower.presentedViewController(), upper);
    EXPECT_EQ(upper.presentingViewController(), lower);
    EXPECT_EQ(upper.topViewController().presentingViewController(), lower);
    EXPECT_FALSE(upper.parentViewController());
}

// Holds: presentation-defaults
TEST_F(Presentation, CoversTheFullScreenVerticallyByDefault) {
    boot();
    const auto controller = Probe::with("a");

    EXPECT_EQ(controller.modalTransitionStyle(), UIModalTransitionStyle::CoverVertical);
    EXPECT_EQ(controller.modalPresentationStyle(), UIModalPresentationStyle::FullScreen);
}

TEST_F(Presentation, RaisesForANilController) {
    show();

    EXPECT_EQ(raised([&] { lower.present(nullptr, true, nullptr); }).name, "NSInvalidArgumentException");
}

TEST_F(Presentation, ArrivesInALaterCycleWithoutAnimation) {
    show();
    const auto upper = Probe::with("upper");
    Lines within;

    run([&] {
        lower.present(upper, false, nullptr);
        within = takeProbed();
    });

    EXPECT_EQ(within.back(), "upper willAppear");
    EXPECT_EQ(of(takeProbed(), "upper"), Lines{"upper didAppear"});
}

TEST_F(Presentation, LogsWhatComesAndGoes) {
    show();
    run([&] { lower.present(Probe::with("upper"), true, nullptr); });
    settle();

    run([&] { lower.dismiss(true, nullptr); });

    const auto entries = log("navigation");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].at("action"), "present");
    EXPECT_EQ(entries[0].at("controller"), "Probe");
    EXPECT_EQ(entries[1].at("action"), "dismiss");
}
