// The phone applications' own screens and the share sheet on the tablet.

#include "tests/phone/PhoneTest.h"

#include "platform/uikit/UIActivity.h"

namespace {

class TabletScreens : public PhoneTest {
protected:
    TabletScreens() {
        useDevice("ipad");
        remove("/Library/MobileSubstrate/DynamicLibraries"); // the screens alone
    }
    void turn(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
    }
    void acceptCall() {
        call();
        phoneCall("accept");
        settle();
    }
    /// Presents a sheet for a text over what the application shows.
    void openSheet() {
        boot();
        const UIViewController below = UIApplication::shared().keyWindow().rootViewController();
        run([&] {
            below.present(UIActivityViewController::with(NSArray::of("text"_ns), NSArray::of()), true, nullptr);
        });
        settle();
    }
};

TEST_F(TabletScreens, TurnTheCallScreenWithTheDevice) {
    acceptCall();

    for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT", "PORTRAIT"}) {
        turn(held);
        const bool lies = std::string(held).starts_with("LANDSCAPE");
        EXPECT_EQ(attribute(findClass("CallView"), "screen"), lies ? "0 0 1024 768" : "0 0 768 1024") << held;
    }
}

TEST_F(TabletScreens, KeepTheButtonsOfACallTogetherInTheMiddle) {
    useApplication("older");
    acceptCall();

    EXPECT_EQ(attribute(find("End"), "frame"), "164 952 440 50");
    turn("LANDSCAPE_LEFT");
    EXPECT_EQ(attribute(find("End"), "frame"), "292 696 440 50");
}

TEST_F(TabletScreens, TurnTheScreenWithoutACall) {
    boot();

    turn("LANDSCAPE_RIGHT");

    EXPECT_EQ(attribute(tree().select_node("//*[@controller='PhoneIdleController']").node(), "screen"), "0 0 1024 768");
}

TEST_F(TabletScreens, ShowTheSheetInTheMiddleOfTheLowerEdge) {
    openSheet();
    const auto cancel = [&] { return attribute(find("Cancel"), "screen"); };

    EXPECT_EQ(cancel(), "114 972 540 44");
    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(cancel(), "242 716 540 44");
}

TEST_F(TabletScreens, ShowLargerPicturesInTheSheet) {
    openSheet();

    EXPECT_EQ(attribute(findClass("UIActivityIcon"), "frame"), "8 12 76 76");
}

// Holds: sheet-goes-with-the-controller
TEST_F(TabletScreens, TakeTheSheetAwayWithTheActivitysController) {
    openSheet();
    tapOn("Message");
    settle();
    turn("LANDSCAPE_LEFT");

    tapOn("Cancel");
    settle();

    EXPECT_EQ(countClass("UIActivityTile"), 0);
    EXPECT_EQ(attribute(tree().select_node("//*[@controller='PhoneIdleController']").node(), "screen"), "0 0 1024 768");
}

} // namespace
