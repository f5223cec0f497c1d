#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UIPasteboard.h"
#include "platform/uikit/UIPopoverPresentationController.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Probe.h"

namespace {

using Lines = std::vector<std::string>;

class Popover : public PhoneTest {
protected:
    Popover() {
        useClassesOnly();
        useDevice("ipad");
        useSystem("8");
    }
    /// A screen, and a sheet for a text that is not shown yet.
    void make() {
        const UIWindow front = window();
        lower = Probe::with("lower");
        run([&] {
            front.setRootViewController(lower);
            sheet = UIActivityViewController::with(NSArray::of("words"_ns), nullptr);
            sheet.setCompletionHandler(^(id type, bool completed) {
              probed().push_back("handler " + (type == nullptr ? "nil" : phone::text(objc::borrow<NSString>(type))) +
                                 (completed ? " yes" : " no"));
            });
        });
        settle();
        takeProbed();
    }
    UIPopoverPresentationController popover() { return sheet.popoverPresentationController(); }
    void present() {
        run([&] { lower.present(sheet, true, nullptr); });
        settle();
    }
    void openAt(CGRect anchor, objc::UInt arrows = UIPopoverArrowDirectionAny) {
        make();
        popover().setSourceView(lower.view());
        popover().setSourceRect(anchor);
        popover().setPermittedArrowDirections(arrows);
        present();
    }
    pugi::xml_node arrow() { return findClass("_UIPopoverArrow"); }
    std::string bubbleFrame() { return attribute(arrow().previous_sibling(), "screen"); }
    std::string arrowFrame() { return attribute(arrow(), "screen"); }
    void TearDown() override {
        lower = nullptr;
        sheet = nullptr;
        PhoneTest::TearDown();
    }

    UIViewController lower;
    UIActivityViewController sheet;
};

} // namespace

// Holds: tablet-sheet-needs-a-popover
TEST_F(Popover, WithoutAnAnchorEndsTheApplicationOnceItsPresentationHasReturned) {
    make();
    bool returned = false;
    expectLogged("exception");

    EXPECT_THROW(run([&] {
                     lower.present(sheet, true, nullptr);
                     returned = true;
                 }),
                 phone::ScreenError);

    EXPECT_TRUE(returned);
    ASSERT_EQ(log("exception").size(), 1u);
    EXPECT_EQ(log("exception")[0].at("name"), "NSGenericException");
    EXPECT_EQ(log("exception")[0].at("reason"),
              "UIPopoverPresentationController (" + phone::text(popover().description()) +
                  ") should have a non-nil sourceView or barButtonItem set before the presentation occurs.");
}

TEST_F(Popover, HangsBelowItsAnchorWithAnArrowThatPointsAtTheMiddle) {
    openAt({300, 100, 100, 50});

    EXPECT_EQ(arrowFrame(), "337 150 26 13");
    EXPECT_EQ(bubbleFrame(), "166 163 368 240");
    EXPECT_EQ(popover().arrowDirection(), UIPopoverArrowDirectionUp);
    EXPECT_TRUE(isVisible("Copy"));
    EXPECT_FALSE(find("Cancel"));
}

TEST_F(Popover, StaysOnTheScreenWhereItsAnchorIsAtTheEdge) {
    openAt({0, 22, 60, 60});

    EXPECT_EQ(bubbleFrame(), "10 95 368 240");
    EXPECT_EQ(arrowFrame(), "23 82 26 13"); // no nearer to the rounded corner
}

TEST_F(Popover, HangsAboveAnAnchorThatHasNoRoomBelow) {
    openAt({300, 900, 100, 50});

    EXPECT_EQ(bubbleFrame(), "166 647 368 240");
    EXPECT_EQ(arrowFrame(), "337 887 26 13");
    EXPECT_EQ(popover().arrowDirection(), UIPopoverArrowDirectionDown);
}

TEST_F(Popover, HangsOnTheSideThatIsPermitted) {
    openAt({100, 400, 50, 50}, UIPopoverArrowDirectionLeft);

    EXPECT_EQ(arrowFrame(), "150 412 13 26");
    EXPECT_EQ(bubbleFrame(), "163 305 368 240");
}

TEST_F(Popover, HangsFromABarItem) {
    make();
    const auto bar = UINavigationBar::withFrame({0, 20, 768, 44});
    const auto shown = UIView::withFrame({0, 0, 100, 30});
    const auto title = UINavigationItem::withTitle("Title"_ns);
    const auto item = UIBarButtonItem::withCustomView(shown);
    title.setLeftBarButtonItem(item);
    bar.setItems(NSArray::of(title));
    lower.view().addSubview(bar);
    advance(0);
    const CGRect anchor = shown.convertRectToView(shown.bounds(), nullptr);

    popover().setBarButtonItem(item);
    present();

    double x = 0;
    double y = 0;
    std::istringstream(arrowFrame()) >> x >> y;
    EXPECT_EQ(x + 13, anchor.center().x);
    EXPECT_EQ(y, anchor.maxY());
}

TEST_F(Popover, HangsFromTheButtonOfABarItemWithATitle) {
    make();
    const auto bar = UINavigationBar::withFrame({0, 20, 768, 44});
    const auto title = UINavigationItem::withTitle("Title"_ns);
    const auto item = UIBarButtonItem::withTitle("Share"_ns, 0, nullptr, nullptr);
    title.setRightBarButtonItem(item);
    bar.setItems(NSArray::of(title));
    lower.view().addSubview(bar);

    popover().setBarButtonItem(item);
    present();

    double x = 0;
    std::istringstream(arrowFrame()) >> x;
    EXPECT_EQ(x, 768 - 10 - 13 - 26); // as near to the screen's edge as the bubble's corner lets it
}

TEST_F(Popover, DimsNothingAndGoesWhenSomewhereElseIsTouched) {
    openAt({300, 100, 100, 50});
    EXPECT_EQ(attribute(arrow().parent().first_child(), "background"), "#00000000");

    tap(700, 900);
    settle();

    EXPECT_EQ(takeProbed(), Lines{"handler nil no"});
    EXPECT_FALSE(lower.presentedViewController());
    EXPECT_FALSE(arrow());
}

TEST_F(Popover, DoesWhatIsTouchedInIt) {
    openAt({300, 100, 100, 50});

    tapOn("Copy");
    settle();

    EXPECT_EQ(phone::text(UIPasteboard::general().string()), "words");
    EXPECT_EQ(takeProbed(), Lines{"handler com.apple.UIKit.activity.CopyToPasteboard yes"});
}

TEST_F(Popover, IsOfASheetOnATabletAlone) {
    useDevice("iphone5");
    make();

    EXPECT_FALSE(popover());
    present();

    EXPECT_TRUE(isVisible("Cancel"));
    EXPECT_EQ(sheet.modalPresentationStyle(), UIModalPresentationStyle::Custom);
}

TEST_F(Popover, IsOfNoScreenThatIsPresentedOtherwise) {
    make();

    EXPECT_EQ(sheet.modalPresentationStyle(), UIModalPresentationStyle::Popover);
    EXPECT_FALSE(lower.popoverPresentationController());
}

TEST_F(Popover, IsUnknownToTheSystemBefore) {
    useSystem("7");
    make();

    EXPECT_FALSE(objc::responds<"popoverPresentationController">(sheet));
    EXPECT_EQ(objc_lookUpClass("UIPopoverPresentationController"), nullptr);
    present();

    EXPECT_TRUE(isVisible("Cancel"));
}

// Holds: sheet-needs-items
TEST_F(Popover, OfNothingIsRefused) {
    make();
    const auto raised = [](const NSArray& items) {
        try {
            (void)UIActivityViewController::with(items, nullptr);
        } catch (...) {
            return phone::caughtException().value().name;
        }
        return std::string();
    };

    EXPECT_EQ(raised(nullptr), "NSInvalidArgumentException");
    EXPECT_EQ(raised(NSArray::of()), "NSInvalidArgumentException");
    EXPECT_EQ(raised(NSArray::of(""_ns)), "");
}
