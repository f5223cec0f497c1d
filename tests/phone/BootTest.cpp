#include "tests/phone/PhoneTest.h"

namespace {

class Boot : public PhoneTest {};

TEST_F(Boot, ShowsTheApplicationsWindow) {
    settle();

    const auto window = findClass("UIWindow");

    EXPECT_EQ(attribute(window, "frame"), "0 0 320 568");
    EXPECT_EQ(attribute(window, "hidden"), "false");
}

TEST_F(Boot, WithClassesAloneShowsNothing) {
    useClassesOnly();
    boot();

    EXPECT_EQ(tree().child("screen").first_child(), pugi::xml_node());
}

TEST_F(Boot, ShowsTheNewerCallScreen) {
    call("+49 30 1234567");

    EXPECT_TRUE(isVisible("+49 30 1234567"));
    EXPECT_NE(boot().tree().find("controller=\"PHCallViewController\""), std::string::npos);
}

TEST_F(Boot, ShowsTheOlderCallScreen) {
    useDevice("iphone4");
    call("+49 30 1234567");

    EXPECT_TRUE(isVisible("+49 30 1234567"));
    EXPECT_NE(boot().tree().find("controller=\"InCallController\""), std::string::npos);
}

TEST_F(Boot, OpensTheShareSheetWhenTheTopOfTheCallScreenIsTapped) {
    call();

    tap(160, 60);
    settle();

    EXPECT_NE(boot().tree().find("excluded=\""), std::string::npos);
}

} // namespace
