// What a view draws by itself, and how long that is kept.

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/Compositor.h"
#include "phone/uikit/ContentMode.h"
#include "platform/uikit/UILabel.h"
#include "tests/phone/PhoneTest.h"

namespace {

constexpr unsigned red = 0xffff0000;
constexpr unsigned blue = 0xff0000ff;
constexpr unsigned white = 0xffffffff;

/// Fills the left half of its bounds, and counts how often it does.
class Half : public objc::Defines<Half, UIView> {
public:
    static constexpr auto objc_name = "TestHalf";
    static void define(objc::ClassTable<Half>& c) { c.overrides<"drawRect:", &Half::drawRect>(); }

    phone::Color color{1, 0, 0, 1};
    int drawings = 0;
    CGRect asked;

private:
    void drawRect(CGRect rect) {
        ++drawings;
        asked = rect;
        const CGSize size = bounds().size;
        phone::Painter::current()->fill({0, 0, size.width / 2, size.height}, color);
    }
};

class Drawing : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        screen.setBackgroundColor(UIColor::white());
        half = objc::Ref<Half>::make();
        view = objc::as<UIView>(half);
        view.setFrame({0, 100, 100, 100});
    }
    void show() {
        run([&] { screen.addSubview(view); });
    }
    /// The colour on the screen, in points.
    static unsigned shown(double x, double y) {
        return phone::pictureOfScreen()->pixel(static_cast<int>(x * 2), static_cast<int>(y * 2));
    }

    UIWindow screen;
    objc::Ref<Half> half;
    UIView view;
};

// Holds: drawing-is-kept
TEST_F(Drawing, IsDoneAtTheEndOfTheCycleWhetherOrNotAPictureIsTaken) {
    EXPECT_EQ(half->drawings, 0);

    show();

    EXPECT_EQ(half->drawings, 1);
    EXPECT_EQ(half->asked, CGRect(0, 0, 100, 100));
}

// Holds: drawing-is-kept
TEST_F(Drawing, IsKeptUntilTheViewIsToldToDrawAgain) {
    show();
    EXPECT_EQ(shown(25, 150), red);
    half->color = {0, 0, 1, 1};

    run([&] { view.setFrame({10, 100, 100, 100}); });
    EXPECT_EQ(shown(25, 150), red) << "a view that is told nothing shows what it drew";
    EXPECT_EQ(half->drawings, 1);
    run([&] { view.setNeedsDisplay(); });

    EXPECT_EQ(shown(25, 150), blue);
    EXPECT_EQ(half->drawings, 2);
}

// Holds: drawing-is-kept
TEST_F(Drawing, IsStretchedWithTheBounds) {
    show();

    run([&] { view.setFrame({0, 100, 200, 100}); });

    EXPECT_EQ(shown(90, 150), red);
    EXPECT_EQ(shown(110, 150), white);
    EXPECT_EQ(half->drawings, 1);
}

// Holds: drawing-is-kept
TEST_F(Drawing, IsPlacedInNewBoundsByTheContentMode) {
    view.setContentMode(UIViewContentMode::BottomRight);
    show();

    run([&] { view.setFrame({0, 100, 200, 200}); });

    EXPECT_EQ(shown(90, 250), white);
    EXPECT_EQ(shown(110, 250), red);
    EXPECT_EQ(shown(110, 150), white);
    EXPECT_EQ(shown(160, 250), white);
}

// Holds: drawing-is-kept
TEST_F(Drawing, IsDoneAgainForNewBoundsWhereTheModeSaysSo) {
    view.setContentMode(UIViewContentMode::Redraw);
    show();
    half->color = {0, 0, 1, 1};

    run([&] { view.setFrame({0, 100, 200, 100}); });
    EXPECT_EQ(half->drawings, 2);
    EXPECT_EQ(half->asked, CGRect(0, 0, 200, 100));
    EXPECT_EQ(shown(90, 150), blue);
    run([&] { view.setCenter({100, 200}); });

    EXPECT_EQ(half->drawings, 2);
}

TEST_F(Drawing, IsNotDoneWhileTheViewIsHiddenOrWithoutArea) {
    view.setHidden(true);
    show();
    EXPECT_EQ(half->drawings, 0);

    run([&] {
        view.setHidden(false);
        view.setFrame({0, 100, 0, 100});
    });
    EXPECT_EQ(half->drawings, 0);
    run([&] { view.setFrame({0, 100, 100, 100}); });

    EXPECT_EQ(half->drawings, 1);
}

TEST_F(Drawing, NeverLeavesTheBounds) {
    view.setContentMode(UIViewContentMode::Center);
    show();

    run([&] { view.setFrame({100, 100, 20, 20}); });

    EXPECT_EQ(shown(105, 110), red);
    EXPECT_EQ(shown(95, 110), white);
    EXPECT_EQ(shown(105, 95), white);
}

TEST_F(Drawing, OfALabelFollowsItsText) {
    const auto label = UILabel::withFrame({0, 100, 200, 30});
    run([&] { screen.addSubview(label); });
    const auto ink = [] {
        int dark = 0;
        const auto picture = phone::pictureOfScreen();
        for (int x = 0; x < 400; ++x) {
            for (int y = 200; y < 260; ++y) {
                dark += (picture->pixel(x, y) & 0xff) < 0x80 ? 1 : 0;
            }
        }
        return dark;
    };
    EXPECT_EQ(ink(), 0);

    label.setText("Text"_ns);

    EXPECT_GT(ink(), 50);
}

TEST(ContentMode, PlacesContentAtTheEdgesThatItNames) {
    const CGRect bounds(100, 200, 60, 60);
    const CGSize content{20, 10};
    using Mode = UIViewContentMode;
    const auto at = [&](Mode mode) { return phone::placed(content, bounds, mode).origin; };

    EXPECT_EQ(phone::placed(content, bounds, Mode::Redraw), bounds);
    EXPECT_EQ(at(Mode::Center), CGPoint(120, 225));
    EXPECT_EQ(at(Mode::Top), CGPoint(120, 200));
    EXPECT_EQ(at(Mode::Bottom), CGPoint(120, 250));
    EXPECT_EQ(at(Mode::Left), CGPoint(100, 225));
    EXPECT_EQ(at(Mode::Right), CGPoint(140, 225));
    EXPECT_EQ(at(Mode::TopLeft), CGPoint(100, 200));
    EXPECT_EQ(at(Mode::TopRight), CGPoint(140, 200));
    EXPECT_EQ(at(Mode::BottomLeft), CGPoint(100, 250));
    EXPECT_EQ(at(Mode::BottomRight), CGPoint(140, 250));
}

} // namespace
