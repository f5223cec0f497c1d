#include "phone/uikit/Activity.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Compositor.h"
#include "tests/phone/PhoneTest.h"

namespace {

/// One with a picture.
class Pictured : public objc::Defines<Pictured, UIActivity> {
public:
    static constexpr auto objc_name = "Pictured";
    static void define(objc::ClassTable<Pictured>& c) {
        c.overrides<"activityImage", &Pictured::image>()
            .overrides<"canPerformWithActivityItems:", &Pictured::can>()
            .overrides<"performActivity", &Pictured::perform>();
    }
    UIImage image() const { return UIImage::withContentsOfFile("/Library/picture.png"_ns); }
    bool can(const NSArray&) const { return true; }
    void perform() {} // one that does nothing would be greyed
};

class Activity : public PhoneTest {
protected:
    Activity() { useClassesOnly(); }
};

// Holds: activity-defaults
TEST_F(Activity, DoesNothingUnlessASubclassDoes) {
    boot();
    const auto activity = objc::make<UIActivity>();

    activity.prepare(NSArray::of("words"_ns));
    activity.performActivity();

    EXPECT_FALSE(activity.activityType());
    EXPECT_FALSE(activity.activityTitle());
    EXPECT_FALSE(activity.activityImage());
    EXPECT_FALSE(activity.activityViewController());
    EXPECT_FALSE(activity.canPerform(NSArray::of("words"_ns)));
    EXPECT_TRUE(log("finish").empty());
}

// Holds: activity-category
TEST_F(Activity, IsAnActionUnlessASubclassSaysOtherwise) {
    boot();

    EXPECT_EQ((objc::sendClass<UIActivity, "activityCategory", objc::Int>()), 0);
    EXPECT_EQ(static_cast<objc::Int>(phone::ActivityCategory::Share), 1);
}

// Holds: activity-picture-is-a-stencil
TEST_F(Activity, ShowsItsPictureAsAStencilOfSixtyPointsAtMost) {
    const UIWindow front = window();
    const auto picture = phone::Canvas::make(400, 200, 1);
    picture->painter().fill(CGRect(0, 0, 400, 200), {1, 0, 0});
    ASSERT_TRUE(picture->writePng(hostPath("/Library/picture.png").string()));
    const auto root = objc::make<UIViewController>();
    run([&] { front.setRootViewController(root); });

    run([&] {
        root.present(UIActivityViewController::with(NSArray::of("words"_ns), NSArray::of(objc::Ref<Pictured>::make())),
                     true, nullptr);
    });
    settle();

    const auto icon = findClass("UIActivityIcon", countClass("UIActivityIcon") - 1);
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    std::sscanf(icon.attribute("screen").value(), "%lf %lf %lf %lf", &x, &y, &width, &height);
    EXPECT_EQ(width, 60);
    EXPECT_EQ(height, 60);
    const auto screen = phone::pictureOfScreen();
    const unsigned inside = screen->pixel(static_cast<int>(2 * (x + 2)), static_cast<int>(2 * (y + 30)));
    const unsigned above = screen->pixel(static_cast<int>(2 * (x + 30)), static_cast<int>(2 * (y + 10)));
    const unsigned red = inside >> 16 & 0xff;
    const unsigned blue = inside & 0xff;
    EXPECT_LT(red, 0x80U);                // dark
    EXPECT_NEAR(red, blue, 0x10);         // and without the picture's colour
    EXPECT_GT(above >> 16 & 0xff, 0xc0U); // half as high as wide: the tile shows above it
}

} // namespace
