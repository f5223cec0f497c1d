#include "tests/phone/PhoneTest.h"

#include "platform/uikit/UIEvent.h"

namespace {

class HitTesting : public PhoneTest {
public:
    HitTesting() { useClassesOnly(); }

    void SetUp() override {
        root = window();
        back = add({0, 0, 200, 200});
        front = add({50, 50, 100, 100});
    }

    UIView add(CGRect frame) {
        auto view = UIView::withFrame(frame);
        root.addSubview(view);
        return view;
    }
    UIView hit(CGFloat x, CGFloat y) { return root.hitTest({x, y}, nullptr); }

    UIWindow root;
    UIView back;
    UIView front;
};

// Holds: front-is-asked-first
TEST_F(HitTesting, AsksTheFrontmostViewFirst) {
    EXPECT_EQ(hit(60, 60), front);
    EXPECT_EQ(hit(10, 10), back);
    EXPECT_EQ(hit(300, 300), root);
}

// Holds: hit-skips-what-takes-no-touch, hidden-hides-what-is-inside
TEST_F(HitTesting, SkipsHiddenViewsWithWhatIsInside) {
    front.addSubview(UIView::withFrame({0, 0, 100, 100}));

    front.setHidden(true);

    EXPECT_EQ(hit(60, 60), back);
    EXPECT_FALSE(front.subviews().at<UIView>(0).isHidden());
}

// Holds: hit-skips-what-takes-no-touch
TEST_F(HitTesting, SkipsViewsThatTakeNoInteraction) {
    front.addSubview(UIView::withFrame({0, 0, 100, 100}));

    front.setUserInteractionEnabled(false);

    EXPECT_EQ(hit(60, 60), back);
}

// Trap: touches-pass-by
// Holds: hit-skips-what-takes-no-touch
TEST_F(HitTesting, SkipsAnAlphaOfOneHundredth) {
    front.setAlpha(0.01);
    EXPECT_EQ(hit(60, 60), back);

    front.setAlpha(0.02);
    EXPECT_EQ(hit(60, 60), front);
}

// Trap: touches-pass-by
// Holds: clear-views-take-touches
TEST_F(HitTesting, TakesTouchesWithoutAnyBackground) {
    front.setBackgroundColor(UIColor::clear());
    EXPECT_EQ(hit(60, 60), front);

    front.setBackgroundColor(nullptr);
    EXPECT_EQ(hit(60, 60), front);
}

// Trap: touches-pass-by
// Holds: outside-the-parent-no-touch
TEST_F(HitTesting, NeverReachesWhatSticksOutOfItsParent) {
    const auto sticksOut = UIView::withFrame({80, 0, 100, 100});
    front.addSubview(sticksOut);

    EXPECT_EQ(hit(140, 60), sticksOut);
    EXPECT_EQ(hit(160, 60), back);
}

// Holds: round-corners-and-masks
TEST_F(HitTesting, IgnoresClippingAndRoundCorners) {
    front.layer().setCornerRadius(50);
    front.setClipsToBounds(true);

    EXPECT_EQ(hit(51, 51), front);
}

TEST_F(HitTesting, TakesTheLeftAndTopEdgesButNotTheOthers) {
    EXPECT_EQ(hit(50, 50), front);
    EXPECT_EQ(hit(150, 60), back);
}

} // namespace
