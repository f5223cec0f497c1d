#include "phone/coregraphics/CGColor.h"
#include "phone/coregraphics/Painter.h"

#include <gtest/gtest.h>

namespace {

using namespace phone;

constexpr double grayLevel = 192.0 / 255;
constexpr unsigned opaqueGray = 0xffc0c0c0;

TEST(GraphicsContext, IsNullOutsideDrawing) { EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr); }

TEST(GraphicsContext, DoesNothingWithoutAContext) {
    CGColor gray{{grayLevel, grayLevel, grayLevel}};

    CGContextSetStrokeColorWithColor(nullptr, &gray);
    CGContextSetLineWidth(nullptr, 2);
    CGContextMoveToPoint(nullptr, 0, 0);
    CGContextAddLineToPoint(nullptr, 20, 20);
    CGContextStrokePath(nullptr);
}

TEST(GraphicsContext, StrokesADiagonalOfTwoPointsAndNothingElse) {
    auto canvas = Canvas::make(100, 100, 1);
    CurrentPainter drawing(canvas->painter());
    CGColor gray{{grayLevel, grayLevel, grayLevel}};
    CGContextRef context = UIGraphicsGetCurrentContext();

    CGContextSetStrokeColorWithColor(context, &gray);
    CGContextSetLineWidth(context, 2);
    CGContextMoveToPoint(context, 0, 0);
    CGContextAddLineToPoint(context, 20, 20);
    CGContextStrokePath(context);

    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
            const unsigned pixel = canvas->pixel(x, y);
            if (x == y && x < 19) {
                EXPECT_EQ(pixel, opaqueGray) << x;
            } else if (x > 20 || y > 20 || x - y > 2 || y - x > 2) {
                EXPECT_EQ(pixel, 0U) << x << " " << y;
            }
        }
    }
}

TEST(GraphicsContext, EmptiesThePathWhenItIsStroked) {
    auto canvas = Canvas::make(20, 20, 1);
    CGContextRef context = canvas->painter().context();
    CGContextSetLineWidth(context, 2);
    CGContextMoveToPoint(context, 0, 5);
    CGContextAddLineToPoint(context, 20, 5);
    CGContextStrokePath(context);
    const unsigned before = canvas->pixel(10, 5);
    CGColor red{{1, 0, 0}};

    CGContextSetStrokeColorWithColor(context, &red);
    CGContextStrokePath(context);

    EXPECT_EQ(canvas->pixel(10, 5), before);
    EXPECT_EQ(before, 0xff000000U); // black until set
}

TEST(GraphicsContext, IgnoresALineWithoutAStart) {
    auto canvas = Canvas::make(20, 20, 1);
    CGContextRef context = canvas->painter().context();

    CGContextAddLineToPoint(context, 20, 20);
    CGContextStrokePath(context);

    EXPECT_EQ(canvas->pixel(10, 10), 0U);
}

TEST(GraphicsContext, IgnoresAColourThatIsNull) {
    auto canvas = Canvas::make(20, 20, 1);
    CGContextRef context = canvas->painter().context();

    CGContextSetStrokeColorWithColor(context, nullptr);
    CGContextSetLineWidth(context, 4);
    CGContextMoveToPoint(context, 0, 10);
    CGContextAddLineToPoint(context, 20, 10);
    CGContextStrokePath(context);

    EXPECT_EQ(canvas->pixel(10, 10), 0xff000000U);
}

} // namespace
