#include "tests/phone/PhoneTest.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Compositor.h"
#include "platform/uikit/UINavigationBar.h"

namespace {

/// Counts the actions it is sent.
class Receiver : public objc::Defines<Receiver, NSObject> {
public:
    static constexpr auto objc_name = "Receiver";
    static void define(objc::ClassTable<Receiver>& c) { c.action<"press:", &Receiver::press>(); }
    void press(const objc::Object& from) {
        ++count;
        sender = from;
    }

    int count = 0;
    objc::Object sender;
};

} // namespace

class NavigationBar : public PhoneTest {
protected:
    NavigationBar() { useClassesOnly(); }

    void show() {
        front = window();
        bar = UINavigationBar::withFrame({0, 0, 290, 44});
        front.addSubview(bar);
        receiver = objc::Ref<Receiver>::make();
        item = UINavigationItem::withTitle("Note"_ns);
        left = UIBarButtonItem::withTitle("Cancel"_ns, 1, receiver, objc::selector<"press:">());
        right = UIBarButtonItem::withTitle("Done"_ns, 2, receiver, objc::selector<"press:">());
    }
    void setItem() {
        run([&] {
            item.setLeftBarButtonItem(left);
            item.setRightBarButtonItem(right);
            bar.setItems(NSArray::of(item));
        });
    }

    UIWindow front;
    UINavigationBar bar;
    UINavigationItem item;
    UIBarButtonItem left;
    UIBarButtonItem right;
    objc::Ref<Receiver> receiver;
};

TEST_F(NavigationBar, HasNoTopItemWhileItIsEmpty) {
    show();

    EXPECT_FALSE(bar.topItem());
    bar.topItem().setTitle("Note"_ns); // goes nowhere

    EXPECT_FALSE(isVisible("Note"));
}

// Holds: bar-items-bottom-first
TEST_F(NavigationBar, ShowsTheLastOfItsItems) {
    show();
    const auto under = UINavigationItem::withTitle("Under"_ns);

    run([&] { bar.setItems(NSArray::of(under, item)); });

    EXPECT_EQ(bar.topItem(), item);
    EXPECT_EQ(bar.backItem(), under);
    EXPECT_TRUE(isVisible("Note"));
}

TEST_F(NavigationBar, SendsTheItemsActionOfATouchedButton) {
    show();
    setItem();

    tapOn("Done");

    EXPECT_EQ(receiver->count, 1);
    EXPECT_EQ(receiver->sender, right);
}

TEST_F(NavigationBar, MakesItsButtonsOfTheButtonClass) {
    show();
    setItem();

    EXPECT_EQ(countClass("UINavigationButton"), 2);
    const auto button = findClass("UINavigationButton");
    EXPECT_EQ(attribute(button, "text"), "Cancel");
}

TEST_F(NavigationBar, CentresABoldTitleBetweenItsButtons) {
    show();
    setItem();

    const auto title = find("Note");

    EXPECT_EQ(attribute(title, "font"), "system-bold 17");
    double x = 0;
    double width = 0;
    std::sscanf(title.attribute("screen").value(), "%lf %*lf %lf", &x, &width);
    EXPECT_NEAR(x + width / 2, 145, 0.5);
}

// Holds: bar-margins
TEST_F(NavigationBar, KeepsAMarginOfEightPointsBesideItsButtons) {
    show();
    setItem();

    double x = 0;
    std::sscanf(findClass("UINavigationButton", 0).attribute("frame").value(), "%lf", &x);
    EXPECT_EQ(x, 8);
    double width = 0;
    std::sscanf(findClass("UINavigationButton", 1).attribute("frame").value(), "%lf %*lf %lf", &x, &width);
    EXPECT_EQ(x + width, 290 - 8);
}

TEST_F(NavigationBar, FollowsItsItem) {
    show();
    setItem();

    run([&] {
        item.setTitle("Changed"_ns);
        item.setRightBarButtonItem(nullptr);
    });

    EXPECT_TRUE(isVisible("Changed"));
    EXPECT_FALSE(isVisible("Done"));
    EXPECT_TRUE(isVisible("Cancel"));
}

TEST_F(NavigationBar, DisablesTheButtonOfADisabledItem) {
    show();
    setItem();

    run([&] { right.setEnabled(false); });
    if (find("Done").attribute("touch")) {
        tapOn("Done");
    }

    EXPECT_EQ(receiver->count, 0);
}

// Holds: bar-custom-view
TEST_F(NavigationBar, ShowsACustomViewAtItsOwnSize) {
    show();
    const auto custom = UIView::withFrame({50, 50, 61, 23});

    run([&] {
        item.setLeftBarButtonItem(UIBarButtonItem::withCustomView(custom));
        bar.setItems(NSArray::of(item));
    });

    EXPECT_EQ(custom.frame().size, (CGSize{61, 23}));
    EXPECT_EQ(custom.frame().origin.y, 10.5);
    EXPECT_EQ(custom.superview(), bar);
}

// Holds: bar-margins
TEST_F(NavigationBar, KeepsAMarginOfSixteenPointsBesideACustomView) {
    show();
    const auto one = UIView::withFrame({0, 0, 61, 23});
    const auto other = UIView::withFrame({0, 0, 40, 20});

    run([&] {
        item.setLeftBarButtonItem(UIBarButtonItem::withCustomView(one));
        item.setRightBarButtonItem(UIBarButtonItem::withCustomView(other));
        bar.setItems(NSArray::of(item));
    });

    EXPECT_EQ(one.frame().origin.x, 16);
    EXPECT_EQ(other.frame().maxX(), 290 - 16);
}

// Holds: bar-margins
TEST_F(NavigationBar, KeepsAMarginOfEightPointsBesideTheWayBack) {
    show();

    run([&] { bar.setItems(NSArray::of(UINavigationItem::withTitle("Under"_ns), item)); });

    EXPECT_TRUE(attribute(findClass("UINavigationButton"), "frame").starts_with("8 "));
}

// Holds: bar-hairline
TEST_F(NavigationBar, HasItsHairlineBelowItsBounds) {
    show();
    front.setBackgroundColor(UIColor::white());
    setItem();

    const auto line = findClass("_UINavigationBarBackground").child("UIImageView");
    EXPECT_EQ(attribute(line, "frame"), "0 44 290 0.5");
    const auto picture = phone::pictureOfScreen();
    EXPECT_LT(picture->pixel(290, 88) & 0xff, 0xc0U);
    EXPECT_EQ(picture->pixel(290, 87), picture->pixel(290, 80)); // nothing is drawn inside
    EXPECT_EQ(picture->pixel(290, 89), 0xffffffffU);
}

// Holds: bar-title-view
TEST_F(NavigationBar, PrefersATitleViewToTheTitle) {
    show();
    const auto view = UIView::withFrame({0, 0, 40, 20});

    run([&] {
        item.setTitleView(view);
        bar.setItems(NSArray::of(item));
    });

    EXPECT_FALSE(isVisible("Note"));
    EXPECT_EQ(view.frame(), CGRect(125, 12, 40, 20));
}

// Holds: bar-way-back
TEST_F(NavigationBar, LeadsBackToTheItemBelow) {
    show();
    const auto under = UINavigationItem::withTitle("Under"_ns);
    run([&] { bar.setItems(NSArray::of(under, item)); });

    tapOn("Under");

    EXPECT_EQ(bar.topItem(), under);
}

// Holds: bar-way-back
TEST_F(NavigationBar, NamesTheWayBackInThePhonesLanguageWhereTheItemHasNoTitle) {
    useLanguage("de-DE");
    show();

    run([&] { bar.setItems(NSArray::of(UINavigationItem::withTitle(nullptr), item)); });

    EXPECT_TRUE(isVisible("Zurück"));
}

// Holds: bar-way-back
TEST_F(NavigationBar, ShowsALeftItemInPlaceOfTheWayBack) {
    show();

    run([&] {
        item.setLeftBarButtonItem(left);
        bar.setItems(NSArray::of(UINavigationItem::withTitle("Under"_ns), item));
    });

    EXPECT_TRUE(isVisible("Cancel"));
    EXPECT_FALSE(isVisible("Under"));
}

// Holds: bar-custom-view
TEST_F(NavigationBar, IgnoresTheActionOfAnItemWithAViewOfItsOwn) {
    show();
    const auto own = UIBarButtonItem::withCustomView(UIView::withFrame({0, 0, 61, 23}));
    own.send<"setTarget:">(static_cast<const objc::Object&>(receiver));
    own.send<"setAction:">(objc::selector<"press:">());
    run([&] {
        item.setLeftBarButtonItem(own);
        bar.setItems(NSArray::of(item));
    });

    tap(30, 22);

    EXPECT_EQ(receiver->count, 0);
}
