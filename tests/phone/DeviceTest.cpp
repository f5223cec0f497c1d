#include "tests/phone/PhoneTest.h"

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

} // namespace
