#include "phone/uikit/Color.h"

#include "phone/uikit/Register.h"
#include "platform/foundation/NSString.h"
#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

namespace {

using namespace phone;

class ColorObjects : public testing::Test {
protected:
    void SetUp() override { registerDrawingClasses(); }

    static UIColor named(const char* selector) {
        return objc::borrow<UIColor>(
            objc::detail::call<id>(reinterpret_cast<id>(objc::classOf<UIColor>()), sel_registerName(selector)));
    }

private:
    objc::Pool _pool;
};

TEST_F(ColorObjects, KeepTheirComponents) {
    const Color color = colorOf(UIColor::rgba(0.25, 0.5, 0.75, 0.5));

    EXPECT_EQ(color, (Color{0.25, 0.5, 0.75, 0.5}));
}

TEST_F(ColorObjects, CutComponentsBeyondZeroAndOne) {
    EXPECT_EQ(colorOf(UIColor::rgba(-1, 2, 0.5, 7)), (Color{0, 1, 0.5, 1}));
}

TEST_F(ColorObjects, HaveThePlatformsNames) {
    EXPECT_EQ(colorOf(UIColor::white()), (Color{1, 1, 1, 1}));
    EXPECT_EQ(colorOf(UIColor::black()), (Color{0, 0, 0, 1}));
    EXPECT_EQ(colorOf(UIColor::clear()), (Color{0, 0, 0, 0}));
    EXPECT_EQ(colorOf(named("redColor")), (Color{1, 0, 0, 1}));
    EXPECT_EQ(colorOf(named("greenColor")), (Color{0, 1, 0, 1}));
    EXPECT_EQ(colorOf(named("blueColor")), (Color{0, 0, 1, 1}));
    EXPECT_EQ(colorOf(named("grayColor")), (Color{0.5, 0.5, 0.5, 1}));
    EXPECT_EQ(colorOf(named("brownColor")), (Color{0.6, 0.4, 0.2, 1}));
}

TEST_F(ColorObjects, AreEqualWhenTheirComponentsAre) {
    const auto one = UIColor::rgba(0.1, 0.2, 0.3, 1);
    const auto same = UIColor::rgba(0.1, 0.2, 0.3, 1);
    const auto other = UIColor::rgba(0.1, 0.2, 0.3, 0.5);

    EXPECT_TRUE(one.isEqual(same));
    EXPECT_EQ((one.send<"hash", objc::UInt>()), (same.send<"hash", objc::UInt>()));
    EXPECT_FALSE(one.isEqual(other));
    EXPECT_FALSE(one.isEqual(nullptr));
    EXPECT_FALSE(one.isEqual("red"_ns));
}

TEST_F(ColorObjects, OfGreyAndOfThreeComponentsAreNeverEqual) {
    EXPECT_FALSE(UIColor::white().isEqual(UIColor::rgba(1, 1, 1, 1)));
    EXPECT_TRUE(UIColor::white().isEqual(UIColor::white()));
}

TEST_F(ColorObjects, GiveACopyOfAnotherAlpha) {
    const auto color = UIColor::rgba(0, 0, 1, 1);

    const auto half = color.send<"colorWithAlphaComponent:", UIColor>(CGFloat{0.5});

    EXPECT_EQ(colorOf(half), (Color{0, 0, 1, 0.5}));
    EXPECT_EQ(colorOf(color), (Color{0, 0, 1, 1}));
}

TEST_F(ColorObjects, GiveTheirColourToTheGraphicsContext) {
    const auto color = UIColor::rgba(1, 0, 0, 1);

    EXPECT_EQ(color.CGColor()->color, (Color{1, 0, 0, 1}));
    EXPECT_EQ(UIColor().CGColor(), nullptr);
}

TEST_F(ColorObjects, OfNilAreTransparent) { EXPECT_EQ(colorOf(nullptr), (Color{0, 0, 0, 0})); }

} // namespace
