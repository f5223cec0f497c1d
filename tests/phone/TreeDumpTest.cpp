#include "tests/phone/PhoneTest.h"

#include "platform/uikit/UIButton.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITextField.h"

namespace {

class TreeDump : public PhoneTest {
public:
    TreeDump() { useClassesOnly(); }

    void SetUp() override { root = window(); }

    UILabel label(CGRect frame, const char* text) {
        auto made = UILabel::withFrame(frame);
        made.setText(NSString::utf8(text));
        return made;
    }

    UIWindow root;
};

TEST_F(TreeDump, NamesTheScreen) {
    const auto screen = tree().child("screen");

    EXPECT_EQ(attribute(screen, "width"), "320");
    EXPECT_EQ(attribute(screen, "height"), "568");
    EXPECT_EQ(attribute(screen, "orientation"), "PORTRAIT");
}

TEST_F(TreeDump, PrintsPlacesInTheSuperviewAndOnTheScreen) {
    const auto panel = UIView::withFrame({15, 20.6, 290, 225});
    root.addSubview(panel);
    panel.addSubview(label({5, 0.5, 100, 21}, "Title"));

    EXPECT_EQ(attribute(find("Title"), "frame"), "5 0.5 100 21");
    EXPECT_EQ(attribute(find("Title"), "screen"), "20 21.1 100 21");
    EXPECT_EQ(attribute(findClass("UIView"), "frame"), "15 20.6 290 225");
}

TEST_F(TreeDump, PrintsHowAViewLooks) {
    const auto panel = UIView::withFrame({0, 0, 10, 10});
    panel.setBackgroundColor(UIColor::rgba(1, 0.5, 0, 0.2));
    panel.setAlpha(0.3);
    panel.layer().setCornerRadius(5);
    panel.layer().setMasksToBounds(true);
    root.addSubview(panel);

    const auto element = findClass("UIView");

    EXPECT_EQ(attribute(element, "background"), "#ff800033");
    EXPECT_EQ(attribute(element, "alpha"), "0.3");
    EXPECT_EQ(attribute(element, "hidden"), "false");
    EXPECT_EQ(attribute(element, "cornerRadius"), "5");
    EXPECT_EQ(attribute(element, "clips"), "true");
}

TEST_F(TreeDump, PrintsLineBreaksInTexts) {
    root.addSubview(label({0, 0, 100, 100}, "one\ntwo <&\""));

    EXPECT_NE(boot().tree().find("text=\"one&#10;two &lt;&amp;&quot;\""), std::string::npos);
}

TEST_F(TreeDump, PrintsTheTextOfAnUntouchedField) {
    const auto field = UITextField::withFrame({0, 0, 100, 30});
    field.setPlaceholder("Title"_ns);
    field.setReturnKeyType(UIReturnKeyType::Done);
    root.addSubview(field);

    const auto element = find("Title");

    ASSERT_TRUE(element.attribute("text"));
    EXPECT_EQ(attribute(element, "text"), "");
    EXPECT_EQ(attribute(element, "placeholder"), "Title");
    EXPECT_EQ(attribute(element, "returnKey"), "done");
    EXPECT_EQ(attribute(element, "firstResponder"), "false");
}

TEST_F(TreeDump, CallsInvisibleWhatIsClippedAway) {
    const auto panel = UIView::withFrame({0, 0, 100, 100});
    panel.setClipsToBounds(true);
    root.addSubview(panel);
    panel.addSubview(label({0, 120, 100, 20}, "below"));
    panel.addSubview(label({0, 20, 100, 20}, "inside"));

    EXPECT_FALSE(isVisible("below"));
    EXPECT_TRUE(isVisible("inside"));
}

TEST_F(TreeDump, CallsInvisibleWhatIsHiddenUpTheChain) {
    const auto panel = UIView::withFrame({0, 0, 100, 100});
    root.addSubview(panel);
    panel.addSubview(label({0, 20, 100, 20}, "inside"));

    panel.setHidden(true);
    EXPECT_FALSE(isVisible("inside"));
    panel.setHidden(false);
    panel.setAlpha(0.01);
    EXPECT_FALSE(isVisible("inside"));
}

TEST_F(TreeDump, FindsAPointBesideWhatCoversTheMiddle) {
    const auto below = UIView::withFrame({0, 0, 100, 100});
    below.setAccessibilityIdentifier("below"_ns);
    root.addSubview(below);
    root.addSubview(UIView::withFrame({20, 20, 60, 60}));

    const auto element = findClass("UIView");

    EXPECT_EQ(attribute(element, "id"), "below");
    EXPECT_TRUE(element.attribute("touch"));
    EXPECT_NE(attribute(element, "touch"), "50 50");
}

TEST_F(TreeDump, FindsNoPointInWhatIsCovered) {
    root.addSubview(UIView::withFrame({20, 20, 60, 60}));
    root.addSubview(UIView::withFrame({0, 0, 100, 100}));

    EXPECT_FALSE(findClass("UIView").attribute("touch"));
    EXPECT_EQ(attribute(findClass("UIView", 1), "touch"), "50 50");
}

TEST_F(TreeDump, ReachesALabelThroughTheViewAroundIt) {
    const auto panel = UIView::withFrame({0, 0, 100, 100});
    root.addSubview(panel);
    panel.addSubview(label({0, 20, 100, 20}, "inside"));

    EXPECT_EQ(attribute(find("inside"), "touch"), "50 30");
}

TEST_F(TreeDump, PrintsTheScreenAsItIsHeld) {
    root.addSubview(label({10, 20, 100, 30}, "corner"));

    boot().setOrientation("LANDSCAPE_LEFT");

    EXPECT_EQ(attribute(tree().child("screen"), "width"), "568");
    EXPECT_EQ(attribute(find("corner"), "frame"), "10 20 100 30");
    EXPECT_EQ(attribute(find("corner"), "screen"), "20 210 30 100");
}

TEST_F(TreeDump, TellsOfEachViewForFindingAloneWhichItIs) {
    root.addSubview(label({0, 0, 100, 20}, "one"));
    root.addSubview(label({0, 20, 100, 20}, "two"));
    const std::string one = attribute(find("one"), "identity");

    EXPECT_NE(one, "");
    EXPECT_NE(one, attribute(find("two"), "identity"));
    EXPECT_EQ(one, attribute(find("one"), "identity"));
    EXPECT_EQ(attribute(find("one"), "kind"), "UILabel");
    for (const char* name : {"identity=", "kind=", "enabled=", "visible=", "touch="}) {
        EXPECT_EQ(boot().tree().find(name), std::string::npos) << name;
    }
}

TEST_F(TreeDump, CallsDisabledWhatAPersonCannotUse) {
    const auto button = UIButton::withType(UIButtonType::System);
    button.setFrame({0, 0, 100, 20});
    button.setTitle("Done"_ns, UIControlStateNormal);
    const auto panel = UIView::withFrame({0, 0, 100, 100});
    root.addSubview(panel);
    panel.addSubview(button);
    panel.addSubview(label({0, 50, 100, 20}, "beside"));
    EXPECT_EQ(attribute(findClass("UIButton"), "enabled"), "true");

    panel.setUserInteractionEnabled(false);
    EXPECT_EQ(attribute(findClass("UIButton"), "enabled"), "false");
    EXPECT_EQ(attribute(find("beside"), "enabled"), "true");

    panel.setUserInteractionEnabled(true);
    button.setEnabled(false);
    EXPECT_EQ(attribute(findClass("UIButton"), "enabled"), "false");
    EXPECT_EQ(attribute(findClass("UIButton").child("UILabel"), "enabled"), "false");
}

} // namespace
