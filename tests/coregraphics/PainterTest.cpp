#include "phone/coregraphics/Painter.h"

#include <gtest/gtest.h>

namespace {

using namespace phone;

constexpr Color red{1, 0, 0};
constexpr Color blue{0, 0, 1};
constexpr unsigned opaqueRed = 0xffff0000;
constexpr unsigned opaqueBlue = 0xff0000ff;

unsigned alphaOf(unsigned pixel) { return pixel >> 24; }

TEST(Painter, FillsARectangleInPoints) {
    auto canvas = Canvas::make(20, 20, 2);

    canvas->painter().fill(CGRect(5, 5, 10, 10), red);

    EXPECT_EQ(canvas->pixel(9, 9), 0U);
    EXPECT_EQ(canvas->pixel(10, 10), opaqueRed);
    EXPECT_EQ(canvas->pixel(29, 29), opaqueRed);
    EXPECT_EQ(canvas->pixel(30, 30), 0U);
}

TEST(Painter, LeavesTheCornersOfARoundedRectangleFree) {
    auto canvas = Canvas::make(20, 20, 1);

    canvas->painter().fill(CGRect(0, 0, 20, 20), red, 5);

    EXPECT_EQ(canvas->pixel(0, 0), 0U);
    EXPECT_EQ(canvas->pixel(10, 0), opaqueRed);
    EXPECT_EQ(canvas->pixel(10, 10), opaqueRed);
}

TEST(Painter, TakesARadiusBeyondHalfASideAsACircle) {
    auto wide = Canvas::make(20, 20, 1);
    auto half = Canvas::make(20, 20, 1);

    wide->painter().fill(CGRect(0, 0, 20, 20), red, 400);
    half->painter().fill(CGRect(0, 0, 20, 20), red, 10);

    for (int at = 0; at < 20; ++at) {
        EXPECT_EQ(wide->pixel(at, at), half->pixel(at, at));
    }
}

TEST(Painter, DrawsNothingForARectangleWithoutArea) {
    auto canvas = Canvas::make(10, 10, 1);
    Painter& painter = canvas->painter();

    painter.fill(CGRect(2, 2, 0, 5), red);
    painter.fill(CGRect(2, 2, -4, 5), red);
    painter.fillEllipse(CGRect(2, 2, 0, 0), red);
    painter.glow(CGRect(2, 2, 0, 0), red);
    painter.blurBelow(CGRect(2, 2, 0, 0), 3);

    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(canvas->pixel(x, y), 0U);
        }
    }
}

TEST(Painter, StrokesHalfInsideAndHalfOutside) {
    auto canvas = Canvas::make(20, 20, 1);

    canvas->painter().stroke(CGRect(5, 5, 10, 10), red, 2);

    EXPECT_EQ(canvas->pixel(4, 10), opaqueRed);
    EXPECT_EQ(canvas->pixel(5, 10), opaqueRed);
    EXPECT_EQ(canvas->pixel(6, 10), 0U);
    EXPECT_EQ(canvas->pixel(3, 10), 0U);
}

TEST(Painter, RestoresTransformAndClip) {
    auto canvas = Canvas::make(20, 20, 1);
    Painter& painter = canvas->painter();
    painter.save();
    painter.translate(10, 0);
    painter.clip(CGRect(0, 0, 5, 5));
    painter.restore();

    painter.fill(CGRect(0, 10, 20, 10), red);

    EXPECT_EQ(canvas->pixel(0, 10), opaqueRed);
    EXPECT_EQ(canvas->pixel(19, 19), opaqueRed);
}

TEST(Painter, IgnoresARestoreThatHasNoSave) {
    auto canvas = Canvas::make(10, 10, 1);

    canvas->painter().restore();
    canvas->painter().fill(CGRect(0, 0, 10, 10), red);

    EXPECT_EQ(canvas->pixel(5, 5), opaqueRed);
}

TEST(Painter, DrawsNothingOutsideTheClip) {
    auto canvas = Canvas::make(20, 20, 1);
    Painter& painter = canvas->painter();
    painter.clip(CGRect(5, 5, 10, 10));

    painter.fill(CGRect(0, 0, 20, 20), red);

    EXPECT_EQ(canvas->pixel(4, 10), 0U);
    EXPECT_EQ(canvas->pixel(5, 10), opaqueRed);
}

TEST(Painter, TurnsClockwise) {
    auto canvas = Canvas::make(20, 20, 1);
    Painter& painter = canvas->painter();
    painter.translate(20, 0);
    painter.rotate(3.14159265358979 / 2);

    painter.fill(CGRect(0, 0, 5, 5), red); // the corner at the origin is now at the top right

    EXPECT_EQ(canvas->pixel(17, 2), opaqueRed);
    EXPECT_EQ(canvas->pixel(2, 2), 0U);
}

TEST(Painter, LaysAGroupOverTheRestAsOnePicture) {
    auto canvas = Canvas::make(10, 10, 1);
    Painter& painter = canvas->painter();
    painter.beginGroup();
    painter.fill(CGRect(0, 0, 10, 10), red);
    painter.fill(CGRect(0, 0, 10, 10), blue);

    painter.endGroup(0.5);

    const unsigned pixel = canvas->pixel(5, 5);
    EXPECT_EQ(pixel & 0x00ff0000, 0U); // nothing of the red shows through
    EXPECT_NEAR(alphaOf(pixel), 128, 1);
}

TEST(Painter, FadesAGradientFromTopToBottom) {
    auto canvas = Canvas::make(10, 100, 1);

    canvas->painter().gradient(CGRect(0, 0, 10, 100), red, blue);

    EXPECT_GT(canvas->pixel(5, 1) >> 16 & 0xff, 240U);
    EXPECT_GT(canvas->pixel(5, 98) & 0xff, 240U);
}

TEST(Painter, FadesAGlowToNothingAtItsEdge) {
    auto canvas = Canvas::make(40, 40, 1);

    canvas->painter().glow(CGRect(0, 0, 40, 40), red);

    EXPECT_GT(alphaOf(canvas->pixel(20, 20)), 240U);
    EXPECT_LT(alphaOf(canvas->pixel(0, 20)), 5U);
    EXPECT_EQ(canvas->pixel(1, 1), 0U);
}

TEST(Painter, BlursWhatLiesBelowInsideTheRectangleOnly) {
    auto canvas = Canvas::make(40, 40, 2);
    Painter& painter = canvas->painter();
    painter.fill(CGRect(0, 0, 20, 40), red);
    painter.fill(CGRect(20, 0, 20, 40), blue);

    painter.blurBelow(CGRect(0, 0, 40, 20), 6);

    const unsigned mixed = canvas->pixel(40, 20);
    EXPECT_GT(mixed & 0xff, 60U);
    EXPECT_GT(mixed >> 16 & 0xff, 60U);
    EXPECT_EQ(alphaOf(mixed), 255U);
    EXPECT_EQ(canvas->pixel(39, 60), opaqueRed);
    EXPECT_EQ(canvas->pixel(40, 60), opaqueBlue);
}

TEST(Painter, BlursAnEvenColourIntoItself) {
    auto canvas = Canvas::make(20, 20, 1);
    Painter& painter = canvas->painter();
    painter.fill(CGRect(0, 0, 20, 20), red);

    painter.blurBelow(CGRect(0, 0, 20, 20), 8);

    EXPECT_EQ(canvas->pixel(0, 0), opaqueRed);
    EXPECT_EQ(canvas->pixel(19, 19), opaqueRed);
}

TEST(Painter, IsCurrentOnlyWithinTheScope) {
    auto outer = Canvas::make(1, 1, 1);
    auto inner = Canvas::make(1, 1, 1);

    {
        CurrentPainter first(outer->painter());
        {
            CurrentPainter second(inner->painter());
            EXPECT_EQ(Painter::current(), &inner->painter());
        }
        EXPECT_EQ(Painter::current(), &outer->painter());
    }

    EXPECT_EQ(Painter::current(), nullptr);
}

TEST(Canvas, IsNotMadeWithoutAreaOrTooLarge) {
    EXPECT_EQ(Canvas::make(0, 10, 2), nullptr);
    EXPECT_EQ(Canvas::make(10, -1, 2), nullptr);
    EXPECT_EQ(Canvas::make(8000, 10, 2), nullptr);
}

TEST(Canvas, SaysWhenAFileCannotBeWritten) {
    auto canvas = Canvas::make(10, 10, 2);

    EXPECT_FALSE(canvas->writePng("/nowhere/at/all.png"));
}

} // namespace
