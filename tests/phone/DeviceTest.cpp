#include "tests/phone/PhoneTest.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/StatusBar.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIScreen.h"

namespace {

class Device : public PhoneTest {
public:
    Device() { useClassesOnly(); }
};

TEST_F(Device, IsAPhoneOfFourInches) {
    boot();

    EXPECT_EQ(UIScreen::main().bounds(), CGRect(0, 0, 320, 568));
    EXPECT_EQ(UIScreen::main().scale(), 2);
    EXPECT_EQ(UIDevice::current().userInterfaceIdiom(), 0);
}

TEST_F(Device, IsAPhoneOfThreeAndAHalfInches) {
    useDevice("iphone4");
    boot();

    EXPECT_EQ(UIScreen::main().bounds(), CGRect(0, 0, 320, 480));
}

TEST_F(Device, IsATablet) {
    useDevice("ipad");
    boot();

    EXPECT_EQ(UIDevice::current().userInterfaceIdiom(), 1);
}

TEST_F(Device, HasAStatusBarOfTwentyPoints) {
    boot();

    EXPECT_EQ(UIApplication::shared().statusBarFrame(), CGRect(0, 0, 320, 20));
    EXPECT_EQ(UIApplication::shared().statusBarOrientation(), UIInterfaceOrientation::Portrait);
}

TEST_F(Device, SaysWhichSystemItHas) {
    boot();
    EXPECT_EQ(phone::text(UIDevice::current().systemVersion()), "7.0");
}

TEST_F(Device, SaysThatItsSystemIsTheNewerOne) {
    useSystem("8");
    boot();
    EXPECT_EQ(phone::text(UIDevice::current().systemVersion()), "8.0");
}

TEST_F(Device, ShowsTheTimeAsIsUsualInTheRegion) {
    boot();
    EXPECT_EQ(phone::statusBarTime(), "2:37 PM");
}

TEST_F(Device, ShowsTheTimeAsIsUsualInAnotherRegion) {
    useRegion("GB");
    useZone("Europe/Berlin");
    boot();
    EXPECT_EQ(phone::statusBarTime(), "15:37");
}

// Holds: hours-are-the-persons
TEST_F(Device, ShowsTheTimeInTheHoursThatThePersonHasChosen) {
    useHours("24");
    boot();
    EXPECT_EQ(phone::statusBarTime(), "14:37");
}

TEST_F(Device, ShowsTheTimeInTheDigitsOfTheLanguage) {
    useLanguage("ar");
    useRegion("DE");
    boot();
    EXPECT_EQ(phone::statusBarTime(), "١٤:٣٧");
}

} // namespace
