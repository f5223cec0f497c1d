#include "tests/elements/Canned.h"

namespace phone::webdriver {

namespace {

Element first(const AccessibilityTree& tree) { return tree.application().children().at(0); }

} // namespace

TEST(AccessibilityTree, BeginsWithTheApplicationAndItsWindows) {
    const AccessibilityTree tree(screen(form()), "Phone");
    const Element application = tree.application();

    EXPECT_EQ(application.type(), "XCUIElementTypeApplication");
    EXPECT_EQ(application.name(), "Phone");
    EXPECT_EQ(application.identity(), 0U);
    EXPECT_EQ(application.rect().height, 568);
    EXPECT_FALSE(application.parent());
    ASSERT_EQ(application.children().size(), 1U);
    EXPECT_EQ(first(tree).type(), "XCUIElementTypeWindow");
    EXPECT_EQ(first(tree).parent(), application);
}

TEST(AccessibilityTree, RefusesWhatIsNoScreen) {
    EXPECT_EQ(refusalOf([] { AccessibilityTree("<screen><", "Phone"); }),
              "unknown error: the phone application gave no tree of its screen");
    EXPECT_NE(refusalOf([] { AccessibilityTree("", "Phone"); }), "");
}

TEST_F(Form, KnowsAnElementAgainByItsIdentity) {
    EXPECT_EQ(one(3).label(), "Done");
    EXPECT_EQ(one(3).identity(), 3U);
    EXPECT_FALSE(one(4711));
}

TEST_F(Form, NamesByIdentifierAndElseByLabel) {
    EXPECT_EQ(one(3).name(), "finish");
    EXPECT_EQ(one(3).label(), "Done");
    EXPECT_EQ(one(2).name(), "Äpfel & Birnen");
    EXPECT_EQ(one(6).name(), std::nullopt);
}

TEST_F(Form, GivesValuesByType) {
    EXPECT_EQ(one(2).value(), "Äpfel & Birnen");
    EXPECT_EQ(one(3).value(), std::nullopt);
    EXPECT_EQ(one(5).value(), "Title");
    EXPECT_EQ(one(5).placeholder(), "Title");
    EXPECT_EQ(one(3).text(), "Done");
    EXPECT_EQ(one(6).text(), "");
}

TEST_F(Form, PutsFramesOnWholePoints) {
    const Rect rect = one(2).rect();

    EXPECT_EQ(rect.x, 15);
    EXPECT_EQ(rect.y, 20);
    EXPECT_EQ(rect.width, 100);
    EXPECT_EQ(rect.height, 22);
    EXPECT_EQ(one(2).attribute("nativeFrame"), "{{15, 20.6}, {100, 21}}");
}

TEST_F(Form, JoinsTheTextsOfARowAndStillHasThem) {
    EXPECT_EQ(one(10).label(), "Calendar, Work");
    EXPECT_TRUE(one(10).isAccessible());
    EXPECT_EQ(one(12).label(), "Work");
    EXPECT_FALSE(one(12).isAccessible());
}

TEST_F(Form, MakesAButtonOfAButtonsLabel) {
    EXPECT_TRUE(one(3).isAccessible());
    EXPECT_EQ(one(4).type(), "XCUIElementTypeStaticText");
    EXPECT_FALSE(one(4).isAccessible());
    EXPECT_EQ(one(3).traits(), "Button");
}

TEST_F(Form, AnswersTheAttributesThatTestersAskFor) {
    EXPECT_EQ(one(3).attribute("type"), "XCUIElementTypeButton");
    EXPECT_EQ(one(3).attribute("hittable"), "true");
    EXPECT_EQ(one(3).attribute("wdVisible"), "true");
    EXPECT_EQ(one(3).attribute("isWDEnabled"), "true");
    EXPECT_EQ(one(3).attribute("value"), std::nullopt);
    EXPECT_EQ(one(3).attribute("index"), "1");
    EXPECT_EQ(one(2).attribute("rect"), R"({"x":15,"y":20,"width":100,"height":22})");
    EXPECT_EQ(
        refusalOf([&] { one(3).attribute("colour"); }),
        "invalid argument: there is no attribute \"colour\"; there are type, value, name, label, enabled, visible, "
        "accessible, selected, hittable, focused, x, y, width, height, rect, index, placeholderValue, traits, "
        "nativeFrame");
}

TEST(AccessibilityTree, LeavesOutWhatIsHidden) {
    const AccessibilityTree tree(
        screen(view("UIWindow", "UIWindow", 1, "",
                    view("UIView", "UIView", 2, "hidden=\"true\"", view("UILabel", "UILabel", 3, "text=\"in it\"")) +
                        view("UILabel", "UILabel", 4, "visible=\"false\" text=\"below the edge\""))),
        "Phone");

    EXPECT_FALSE(tree.byIdentity(2));
    EXPECT_FALSE(tree.byIdentity(3));
    ASSERT_TRUE(tree.byIdentity(4));
    EXPECT_FALSE(tree.byIdentity(4).isVisible());
}

TEST(AccessibilityTree, ReadsSwitchesAndSelectedButtons) {
    const AccessibilityTree tree(
        screen(view("UISwitch", "UISwitch", 1, "state=\"normal\" on=\"true\"") +
               view("UISwitch", "UISwitch", 2, "state=\"disabled\" on=\"false\" enabled=\"false\"") +
               view("CallButton", "UIControl", 3, "state=\"selected\" text=\"mute\" accessibilityLabel=\"mute\"")),
        "Phone");

    EXPECT_EQ(tree.byIdentity(1).value(), "1");
    EXPECT_EQ(tree.byIdentity(1).traits(), "Button, ToggleButton");
    EXPECT_EQ(tree.byIdentity(2).value(), "0");
    EXPECT_EQ(tree.byIdentity(2).traits(), "Button, NotEnabled, ToggleButton");
    EXPECT_EQ(tree.byIdentity(3).type(), "XCUIElementTypeButton");
    EXPECT_EQ(tree.byIdentity(3).value(), "1");
    EXPECT_TRUE(tree.byIdentity(3).isSelected());
    EXPECT_EQ(tree.byIdentity(3).traits(), "Button, Selected");
}

TEST(AccessibilityTree, CallsPicturesByTheirFiles) {
    const AccessibilityTree tree(
        screen(view("UIImageView", "UIImageView", 1, "image=\"/Library/Quorvan/arrow@2x~ipad.png\"") +
               view("UIImageView", "UIImageView", 2) +
               view("UIButton", "UIButton", 3, "image=\"arrow.png\" state=\"normal\"")),
        "Phone");

    EXPECT_EQ(tree.byIdentity(1).label(), "arrow");
    EXPECT_FALSE(tree.byIdentity(1).isAccessible());
    EXPECT_EQ(tree.byIdentity(2).label(), std::nullopt);
    EXPECT_EQ(tree.byIdentity(3).label(), "arrow");
}

TEST(AccessibilityTree, HoldsTheScreenReaderInAnAlert) {
    const std::string button = view("UIButton", "UIButton", 3, "text=\"OK\" state=\"normal\"");
    const std::string alert = view("UIWindow", "UIWindow", 1, "",
                                   view("_UIModalItemAlertContentView", "UIView", 2, "",
                                        view("UILabel", "UILabel", 4, "text=\"May it?\"") + button));
    const AccessibilityTree tree(
        screen(view("UIWindow", "UIWindow", 5, "", view("UILabel", "UILabel", 6, "text=\"behind\"")) + alert), "Phone");

    EXPECT_EQ(tree.byIdentity(2).type(), "XCUIElementTypeAlert");
    EXPECT_EQ(tree.byIdentity(2).label(), "May it?");
    EXPECT_TRUE(tree.byIdentity(3).isAccessible());
    EXPECT_TRUE(tree.byIdentity(4).isAccessible());
    EXPECT_FALSE(tree.byIdentity(6).isAccessible());
    EXPECT_TRUE(tree.byIdentity(6).isVisible());
}

} // namespace phone::webdriver
