#include "phone/coregraphics/Painter.h"
#include "platform/uikit/UIView.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

class Lines : public CallTest {
protected:
    /// Opaque grey or nothing: the alpha of a drawn pixel in per cent, rounded.
    static int coverage(const phone::Canvas& canvas, int x, int y) {
        return static_cast<int>((canvas.pixel(x, y) >> 24) * 100 / 255);
    }
};

TEST_F(Lines, AHairlineIsGreyAcrossItsWholeWidth) {
    start();
    startNote();

    const auto line = panel().select_node("LineCreator[@frame='0 44 290 0.5']").node();
    const std::string picture = hostPath("/var/mobile/picture.png").string();
    boot().screenshot(picture);
    const auto canvas = phone::Canvas::make(320, 568, 2);
    canvas->painter().image(*phone::Bitmap::load(picture), CGRect(0, 0, 320, 568));

    ASSERT_TRUE(line);
    EXPECT_EQ(attribute(line, "background"), "#c0c0c0ff");
    const int y = static_cast<int>((171.5 + 44) * 2);
    for (int x : {(15 + 30) * 2, (15 + 145) * 2, (15 + 280) * 2}) {
        EXPECT_EQ(canvas->pixel(x, y), 0xffc0c0c0U) << x;
    }
}

TEST_F(Lines, ALargerViewShowsTheFixedDiagonalAndNothingElse) {
    start();
    startNote(); // from here on the class exists
    id made = objc::detail::call<id>(reinterpret_cast<id>(objc_getClass("LineCreator")), objc::selector<"alloc">());
    const auto line =
        objc::adopt<UIView>(objc::detail::call<id>(made, objc::selector<"initWithFrame:">(), CGRect(0, 0, 100, 100)));
    const auto canvas = phone::Canvas::make(100, 100, 2);

    {
        phone::CurrentPainter current(canvas->painter());
        line.send<"drawRect:">(CGRect(0, 0, 100, 100));
    }

    EXPECT_EQ(coverage(*canvas, 20, 20), 100); // on the diagonal at (10, 10)
    EXPECT_EQ(canvas->pixel(20, 20), 0xffc0c0c0U);
    EXPECT_EQ(coverage(*canvas, 24, 20), 0); // two points beside it
    EXPECT_EQ(coverage(*canvas, 46, 46), 0); // beyond (20, 20)
    EXPECT_EQ(coverage(*canvas, 150, 20), 0);
    EXPECT_EQ(coverage(*canvas, 20, 150), 0);
}

} // namespace
