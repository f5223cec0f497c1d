#include "phone/uikit/Button.h"

#include "phone/foundation/Text.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;

class Button : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        button = UIButton::withType(UIButtonType::Custom);
        button.setFrame({100, 100, 120, 44});
        screen.addSubview(button);
    }
    std::string shownTitle() { return phone::text(button.titleLabel().text()); }

    UIWindow screen;
    UIButton button;
};

// Holds: button-falls-back-to-normal
TEST_F(Button, ShowsTheNormalTitleForStatesWithoutOneOfTheirOwn) {
    button.setTitle("Go"_ns, UIControlStateNormal);
    button.setTitle("Gone"_ns, UIControlStateDisabled);

    EXPECT_EQ(phone::text(button.titleForState(UIControlStateSelected)), "Go");
    EXPECT_EQ(phone::text(button.titleForState(UIControlStateDisabled)), "Gone");
    EXPECT_EQ(shownTitle(), "Go");
    button.setEnabled(false);
    EXPECT_EQ(shownTitle(), "Gone");
    EXPECT_EQ(phone::text(button.currentTitle()), "Gone");
}

// Holds: button-falls-back-to-normal
TEST_F(Button, ShowsTheNormalPicturesForStatesWithoutOnesOfTheirOwn) {
    const auto picture = UIImage::withContentsOfFile("/Library/Quorvan/back.png"_ns);
    ASSERT_TRUE(picture);

    button.setImage(picture, UIControlStateNormal);
    button.setBackgroundImage(picture, UIControlStateNormal);

    EXPECT_EQ(button.imageForState(UIControlStateHighlighted), picture);
    EXPECT_EQ(button.backgroundImageForState(UIControlStateSelected), picture);
}

// Holds: button-custom
TEST_F(Button, OfTheCustomTypeIsClearWithAWhiteTitle) {
    EXPECT_FALSE(button.backgroundColor());
    EXPECT_TRUE(button.titleColorForState(UIControlStateNormal).isEqual(UIColor::white()));
}

TEST_F(Button, OfTheSystemTypeHasATitleInTheTint) {
    const auto system = UIButton::withType(UIButtonType::System);
    system.setTintColor(UIColor::rgba(1, 0, 0, 1));

    EXPECT_TRUE(system.titleColorForState(UIControlStateNormal).isEqual(UIColor::rgba(1, 0, 0, 1)));
}

TEST_F(Button, ShowsTheColourOfAHighlightWhileTheFingerIsDown) {
    const auto blue = UIColor::rgba(0, 0, 1, 1);
    button.setTitle("Back"_ns, UIControlStateNormal);
    button.setTitleColor(blue, UIControlStateHighlighted);

    touch(Phase::Began, 110, 110);

    EXPECT_TRUE(button.titleLabel().textColor().isEqual(blue));
}

TEST_F(Button, KeepsItsBackgroundPictureBehindEverything) {
    button.setTitle("Back"_ns, UIControlStateNormal);
    button.setBackgroundImage(UIImage::withContentsOfFile("/Library/Quorvan/back.png"_ns), UIControlStateNormal);
    advance(0);

    const auto parts = button.subviews();
    ASSERT_EQ(parts.count(), 2U);
    EXPECT_TRUE(objc::isKind<UIImageView>(parts.at(0)));
    EXPECT_EQ(parts.at<UIView>(0).frame(), CGRect(0, 0, 120, 44));
    EXPECT_TRUE(parts.at(1) == button.titleLabel());
}

TEST_F(Button, CentresItsTitleUnlessToldOtherwise) {
    button.setTitle("Back"_ns, UIControlStateNormal);
    advance(0);
    EXPECT_EQ(button.titleLabel().center().x, 60);

    button.setContentHorizontalAlignment(UIControlContentHorizontalAlignment::Left);
    advance(0);
    EXPECT_EQ(button.titleLabel().frame().origin.x, 0);

    button.setContentHorizontalAlignment(UIControlContentHorizontalAlignment::Right);
    advance(0);
    EXPECT_EQ(button.titleLabel().frame().maxX(), 120);
    EXPECT_EQ(button.titleLabel().center().y, 22);
}

TEST_F(Button, CarriesItsTitleInTheTree) {
    button.setTitle("Back"_ns, UIControlStateNormal);

    EXPECT_EQ(attribute(findClass("UIButton"), "text"), "Back");
}

} // namespace
