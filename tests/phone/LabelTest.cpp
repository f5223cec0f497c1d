#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Font.h"
#include "phone/uikit/Register.h"
#include "platform/objc/Pool.h"
#include "platform/uikit/UILabel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace phone;

/// The pixels that a view's drawing touches, from its top left corner on; one pixel a point.
struct Ink {
    int left = 1000;
    int top = 1000;
    int right = -1;
    int bottom = -1;
    unsigned darkest = 0;

    bool none() const { return right < 0; }
};

class Label : public testing::Test {
protected:
    void SetUp() override {
        registerViewClasses();
        registerDrawingClasses();
    }

    static UILabel label(const char* text, CGRect frame = CGRect(0, 0, 200, 40)) {
        auto made = UILabel::withFrame(frame);
        made.setText(NSString::utf8(text));
        return made;
    }
    static Ink inkOf(const UIView& view) {
        auto canvas = Canvas::make(300, 300, 1);
        {
            CurrentPainter drawing(canvas->painter());
            view.send<"drawRect:">(view.bounds());
        }
        Ink ink;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 300; ++x) {
                const unsigned pixel = canvas->pixel(x, y);
                if (pixel == 0) {
                    continue;
                }
                ink.left = std::min(ink.left, x);
                ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y);
                ink.bottom = std::max(ink.bottom, y);
                ink.darkest = std::max(ink.darkest, pixel);
            }
        }
        return ink;
    }

private:
    objc::Pool _pool;
};

TEST_F(Label, StartsWithThePlatformsDefaults) {
    const auto fresh = UILabel::withFrame(CGRect(0, 0, 100, 20));

    EXPECT_FALSE(fresh.text());
    EXPECT_EQ(fontDescription(fresh.font()), "system 17");
    EXPECT_EQ(colorOf(fresh.textColor()), (Color{0, 0, 0, 1}));
    EXPECT_EQ(fresh.textAlignment(), NSTextAlignment::Left);
    EXPECT_EQ(fresh.numberOfLines(), 1);
    EXPECT_FALSE(fresh.isUserInteractionEnabled());
    EXPECT_TRUE(inkOf(fresh).none());
}

TEST_F(Label, ReturnsToTheDefaultsForNil) {
    auto made = label("text");
    made.setFont(UIFont::boldSystem(30));
    made.setTextColor(UIColor::white());

    made.setFont(nullptr);
    made.setTextColor(nullptr);
    made.setText(nullptr);

    EXPECT_EQ(fontDescription(made.font()), "system 17");
    EXPECT_EQ(colorOf(made.textColor()), (Color{0, 0, 0, 1}));
    EXPECT_FALSE(made.text());
    EXPECT_TRUE(inkOf(made).none());
}

TEST_F(Label, DrawsItsTextInItsColour) {
    auto made = label("HHH");
    made.setTextColor(UIColor::rgba(1, 0, 0, 1));

    const Ink ink = inkOf(made);

    ASSERT_FALSE(ink.none());
    EXPECT_EQ(ink.darkest & 0x0000ffff, 0U);
}

TEST_F(Label, CentresItsTextVertically) {
    const Ink low = inkOf(label("H", CGRect(0, 0, 100, 30)));
    const Ink tall = inkOf(label("H", CGRect(0, 0, 100, 130)));

    EXPECT_EQ(tall.top - low.top, 50);
}

TEST_F(Label, AlignsItsTextWithinItsWidth) {
    auto made = label("H");
    const Ink left = inkOf(made);
    made.setTextAlignment(NSTextAlignment::Right);
    const Ink right = inkOf(made);
    made.setTextAlignment(NSTextAlignment::Center);
    const Ink center = inkOf(made);

    EXPECT_LT(left.left, 5);
    EXPECT_GT(right.right, 195);
    EXPECT_NEAR((center.left + center.right) / 2.0, 100, 2);
}

TEST_F(Label, DrawsAnEllipsisWhenTheTextDoesNotFit) {
    const Ink ink = inkOf(label("HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH", CGRect(0, 0, 100, 40)));

    EXPECT_LE(ink.right, 100);
    EXPECT_GT(ink.right, 70);
    EXPECT_LT(ink.bottom - ink.top, 20); // still one line
}

TEST_F(Label, DrawsAsManyLinesAsItMay) {
    auto made = label("one\ntwo\nthree", CGRect(0, 0, 200, 100));
    const Ink one = inkOf(made);
    made.setNumberOfLines(2);
    const Ink two = inkOf(made);
    made.setNumberOfLines(0);
    const Ink all = inkOf(made);

    EXPECT_LT(one.bottom - one.top, two.bottom - two.top);
    EXPECT_LT(two.bottom - two.top, all.bottom - all.top);
}

TEST_F(Label, FitsItsTextInWholePixels) {
    const auto made = label("note");

    const CGSize size = made.sizeThatFits({});

    EXPECT_EQ(size.width * 2, std::round(size.width * 2));
    EXPECT_GT(size.width, 20);
    EXPECT_NEAR(size.height, made.font().lineHeight(), 0.5);
    EXPECT_EQ(label("").sizeThatFits({100, 100}), CGSize());
}

TEST_F(Label, FitsMoreLinesIntoTheWidthOffered) {
    auto made = label("one two three four five six seven");
    made.setNumberOfLines(0);

    const CGSize size = made.sizeThatFits({100, 1000});

    EXPECT_LE(size.width, 100);
    EXPECT_GT(size.height, 2 * made.font().lineHeight());
}

TEST_F(Label, IsNotChangedByALaterChangeOfAMutableText) {
    auto text = objc::adopt<NSString>("note"_ns.send<"mutableCopy", NSString>().relinquish());
    auto made = UILabel::withFrame(CGRect(0, 0, 100, 20));
    made.setText(text);

    text.send<"appendString:">("book"_ns);

    EXPECT_EQ(phone::text(made.text()), "note");
}

} // namespace
