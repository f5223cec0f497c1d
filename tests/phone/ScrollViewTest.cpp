#include "phone/uikit/ScrollView.h"

#include "platform/uikit/UIControl.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;

class ScrollView : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        scroll = objc::make<UIScrollView, "initWithFrame:">(CGRect(0, 0, 200, 200));
        scroll.setContentSize({200, 1000});
        screen.addSubview(scroll);
    }
    void drag(double fromY, double toY) {
        touch(Phase::Began, 50, fromY);
        touch(Phase::Moved, 50, (fromY + toY) / 2);
        touch(Phase::Moved, 50, toY);
        touch(Phase::Ended, 50, toY);
    }

    UIWindow screen;
    UIScrollView scroll;
};

TEST_F(ScrollView, HasItsOffsetInTheOriginOfItsBounds) {
    scroll.setContentOffset({0, 30});

    EXPECT_EQ(scroll.bounds(), CGRect(0, 30, 200, 200));
    EXPECT_EQ(scroll.frame(), CGRect(0, 0, 200, 200));
}

TEST_F(ScrollView, FollowsTheFingerAndStaysWhereItIsLeft) {
    drag(150, 50);
    settle();

    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 100}));
}

TEST_F(ScrollView, EndsWithItsContent) {
    drag(50, 150);
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 0}));

    scroll.setContentOffset({0, 780});
    drag(150, 50);
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 800}));
}

TEST_F(ScrollView, WithScrollingOffIsMovedByCodeAlone) {
    scroll.setScrollEnabled(false);

    drag(150, 50);
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 0}));

    scroll.setContentOffset({0, 10});
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 10}));
}

TEST_F(ScrollView, ComesBackWhenItsContentShrinks) {
    scroll.setScrollEnabled(false);
    scroll.setContentOffset({0, 500});

    scroll.setContentSize({200, 300});

    EXPECT_EQ(scroll.contentOffset(), (CGPoint{0, 100}));
}

TEST_F(ScrollView, TakesTheTouchFromWhatItDrags) {
    const auto control = objc::make<UIControl, "initWithFrame:">(CGRect(0, 0, 200, 200));
    scroll.addSubview(control);

    touch(Phase::Began, 50, 150);
    EXPECT_TRUE(control.isHighlighted());
    touch(Phase::Moved, 50, 100);

    EXPECT_FALSE(control.isHighlighted());
}

} // namespace
