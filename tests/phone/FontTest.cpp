#include "phone/uikit/Font.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Register.h"
#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

namespace {

using namespace phone;

class Fonts : public testing::Test {
protected:
    void SetUp() override { registerDrawingClasses(); }

private:
    objc::Pool _pool;
};

TEST_F(Fonts, OfTheSystemAreDescribedAsSuch) {
    EXPECT_EQ(fontDescription(UIFont::system(17)), "system 17");
    EXPECT_EQ(fontDescription(UIFont::system(10.5)), "system 10.5");
    EXPECT_EQ(fontDescription(UIFont::boldSystem(14)), "system-bold 14");
    EXPECT_EQ(fontDescription(nullptr), "");
}

TEST_F(Fonts, WithANameKeepIt) {
    const auto font = UIFont::named("HelveticaNeue-Light"_ns, 12);

    EXPECT_EQ(text(font.fontName()), "HelveticaNeue-Light");
    EXPECT_EQ(fontDescription(font), "HelveticaNeue-Light 12");
    EXPECT_EQ(typefaceOf(font), (Typeface{Typeface::Weight::Light, 12}));
}

TEST_F(Fonts, WithANameThatNobodyKnowsAreNil) {
    EXPECT_FALSE(UIFont::named("NoSuchFont"_ns, 12));
    EXPECT_FALSE(UIFont::named(nullptr, 12));
}

TEST_F(Fonts, KeepTheirFaceAtAnotherSize) {
    const auto font = UIFont::boldSystem(17).withSize(14);

    EXPECT_EQ(fontDescription(font), "system-bold 14");
    EXPECT_EQ(font.pointSize(), 14);
}

TEST_F(Fonts, AreEqualWhenFaceAndSizeAre) {
    EXPECT_TRUE(UIFont::system(17).isEqual(UIFont::system(17)));
    EXPECT_FALSE(UIFont::system(17).isEqual(UIFont::system(18)));
    EXPECT_FALSE(UIFont::system(17).isEqual(UIFont::boldSystem(17)));
}

TEST_F(Fonts, KnowTheHeightOfTheirLines) {
    const auto font = UIFont::system(17);

    EXPECT_EQ(font.lineHeight(), TextLayout::lineHeight({Typeface::Weight::Regular, 17}));
    EXPECT_GT(font.lineHeight(), 17);
    EXPECT_NEAR((font.send<"ascender", CGFloat>() - font.send<"descender", CGFloat>()), font.lineHeight(), 0.001);
}

TEST_F(Fonts, OfNilDrawAsTheSystemsAtSeventeenPoints) {
    EXPECT_EQ(typefaceOf(nullptr), (Typeface{Typeface::Weight::Regular, 17}));
}

} // namespace
