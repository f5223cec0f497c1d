#include "tests/phone/PhoneTest.h"

#include "phone/applications/CallService.h"

class CallScreen : public PhoneTest {
protected:
    /// The phone's own screens are looked at alone, without any library.
    CallScreen() { remove("/Library/MobileSubstrate/DynamicLibraries"); }

    void tapAndWait(const std::string& text) {
        tapOn(text);
        settle();
    }
    /// The button with this caption.
    pugi::xml_node button(const std::string& caption) {
        const pugi::xml_node found = find(caption);
        return found.name() == std::string("CallButton") ? found : found.parent();
    }
    std::vector<std::string> callbacks(const std::string& name) {
        std::vector<std::string> all;
        for (const auto& entry : log("appearance")) {
            if (entry.at("class") == name) {
                all.push_back(entry.at("callback"));
            }
        }
        return all;
    }
    static bool hasClass(const char* name) { return objc_getClass(name) != nullptr; }
};

TEST_F(CallScreen, IsOneOfTwoClassesByTheApplication) {
    boot();

    EXPECT_TRUE(hasClass("PHCallViewController"));
    EXPECT_FALSE(hasClass("InCallController"));
}

TEST_F(CallScreen, IsTheOlderOneInTheOlderApplication) {
    useApplication("older");

    call();

    EXPECT_FALSE(hasClass("PHCallViewController"));
    EXPECT_EQ(callbacks("InCallController"), (std::vector<std::string>{"viewWillAppear:", "viewDidAppear:"}));
}

TEST_F(CallScreen, IdlesWhileThereIsNoCall) {
    boot();

    EXPECT_TRUE(isVisible("No call"));
}

TEST_F(CallScreen, RingsWithTheCallersNumber) {
    call("+49 30 1234567");

    EXPECT_TRUE(isVisible("+49 30 1234567"));
    EXPECT_TRUE(isVisible("incoming call"));
    EXPECT_TRUE(isVisible("Accept"));
    EXPECT_FALSE(isVisible("mute"));
    EXPECT_EQ(callbacks("PHCallViewController"), (std::vector<std::string>{"viewWillAppear:", "viewDidAppear:"}));
}

TEST_F(CallScreen, CountsTheTimeSinceTheCallWasAccepted) {
    call();
    advance(5);

    tapOn("Accept");
    EXPECT_TRUE(isVisible("00:00"));
    advance(65);

    EXPECT_TRUE(isVisible("01:05"));
}

TEST_F(CallScreen, EndsARejectedCallAndGoes) {
    call();

    tapOn("Decline");
    EXPECT_TRUE(isVisible("call ended"));
    settle();

    EXPECT_TRUE(isVisible("No call"));
    EXPECT_FALSE(isVisible("call ended"));
}

TEST_F(CallScreen, EndsACallFromItsButton) {
    call();
    phoneCall("accept");

    tapOn("End");
    EXPECT_TRUE(isVisible("call ended"));
    settle();

    EXPECT_TRUE(isVisible("No call"));
}

TEST_F(CallScreen, TogglesMuteAndSpeaker) {
    call();
    phoneCall("accept");

    tapOn("mute");
    EXPECT_EQ(attribute(button("mute"), "state"), "selected");
    tapOn("mute");

    EXPECT_EQ(attribute(button("mute"), "state"), "normal");
}

TEST_F(CallScreen, HoldsTheCallAndGoesOn) {
    call();
    phoneCall("accept");

    tapOn("hold");
    EXPECT_TRUE(isVisible("on hold"));
    tapOn("hold");

    EXPECT_FALSE(isVisible("on hold"));
}

TEST_F(CallScreen, IsHeldByTheOtherSideOfTheTelephoneToo) {
    call();
    phoneCall("accept");

    phoneCall("hold");

    EXPECT_TRUE(isVisible("on hold"));
    EXPECT_EQ(attribute(button("hold"), "state"), "selected");
}

TEST_F(CallScreen, WritesTheDigitsOfItsKeypad) {
    call();
    phoneCall("accept");

    tapOn("keypad");
    for (const char* key : {"1", "5", "#", "0"}) {
        tapOn(key);
    }

    EXPECT_TRUE(isVisible("15#0"));
    EXPECT_FALSE(isVisible("mute"));
    tapOn("Hide");
    EXPECT_TRUE(isVisible("mute"));
    EXPECT_FALSE(isVisible("15#0"));
}

TEST_F(CallScreen, HasNoButtonUnderItsTop) {
    for (const char* key : {"mute", "keypad", "speaker", "hold", "End"}) {
        call();
        phoneCall("accept");
        double y = 0;
        std::sscanf(button(key).attribute("screen").value(), "%*lf %lf", &y);
        EXPECT_GE(y, 82) << key;
        phoneCall("cancel");
        settle();
    }
}

TEST_F(CallScreen, FitsOnTheShorterPhone) {
    useDevice("iphone4");
    call();
    phoneCall("accept");

    for (const char* key : {"mute", "keypad", "speaker", "hold", "End"}) {
        double y = 0;
        double height = 0;
        std::sscanf(button(key).attribute("screen").value(), "%*lf %lf %*lf %lf", &y, &height);
        EXPECT_GE(y, 82) << key;
        EXPECT_LE(y + height, 480) << key;
    }
    tapOn("keypad");
    tapOn("0");
    EXPECT_TRUE(isVisible("0"));
}

TEST_F(CallScreen, SpeaksGerman) {
    useLanguage("de-AT");

    call();

    EXPECT_TRUE(isVisible("eingehender Anruf"));
    EXPECT_TRUE(isVisible("Annehmen"));
}

TEST_F(CallScreen, AppearsAgainForTheNextCall) {
    call("1");
    phoneCall("cancel");
    settle();

    call("2");

    EXPECT_TRUE(isVisible("2"));
    EXPECT_TRUE(isVisible("incoming call"));
}

TEST_F(CallScreen, RefusesWhatTheCallDoesNotAllow) {
    boot();

    EXPECT_THROW(phoneCall("accept"), phone::ScreenError);
    EXPECT_THROW(phoneCall("cancel"), phone::ScreenError);
    EXPECT_THROW(phoneCall("transfer"), phone::ScreenError);
    call();
    EXPECT_THROW(phoneCall("call"), phone::ScreenError);
    EXPECT_THROW(phoneCall("hold"), phone::ScreenError);
}

TEST_F(CallScreen, StaysUntilWhatItPresentsHasFinished) {
    call();
    phoneCall("accept");
    const UIViewController screen = UIApplication::shared().keyWindow().rootViewController();
    run([&] { screen.present(objc::make<UIViewController>(), true, nullptr); });
    settle();

    phoneCall("cancel");
    advance(10);
    EXPECT_EQ(UIApplication::shared().keyWindow().rootViewController(), screen);
    run([&] { screen.dismiss(true, nullptr); });
    advance(0.5);
    EXPECT_TRUE(isVisible("call ended"));
    settle();

    EXPECT_TRUE(isVisible("No call"));
}

TEST_F(CallScreen, AppearsAgainAfterAFullScreen) {
    call();
    const UIViewController screen = UIApplication::shared().keyWindow().rootViewController();
    run([&] { screen.present(objc::make<UIViewController>(), true, nullptr); });
    settle();

    run([&] { screen.dismiss(true, nullptr); });
    settle();

    const auto all = callbacks("PHCallViewController");
    EXPECT_EQ(std::count(all.begin(), all.end(), "viewDidAppear:"), 2);
}
