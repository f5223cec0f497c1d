#include "platform/foundation/NSObject.h"
#include "tests/quorvan/CallTest.h"
#include "tests/quorvan/Messages.h"

#include <gtest/gtest.h>

namespace {

const Start newer{};
const Start older{.device = "iphone4", .app = "older"};

class CallScreenHooks : public CallTest {
protected:
    bool sheetIsOpen() { return !tree().select_nodes("//*[@excluded]").empty(); }
    std::size_t tapAreas() { return tree().select_nodes("//UIView[@frame='0 22 320 60']").size(); }
    std::string callScreen() {
        return tree()
            .select_node("//*[@controller='PHCallViewController' or @controller='InCallController']")
            .node()
            .attribute("controller")
            .value();
    }
};

class BothCallScreens : public CallScreenHooks, public ::testing::WithParamInterface<Start> {};

INSTANTIATE_TEST_SUITE_P(, BothCallScreens, ::testing::Values(newer, older),
                         [](const auto& info) { return info.param.app; });

TEST_P(BothCallScreens, ATapInsideTheAreaOpensTheSheet) {
    const std::pair<double, double> points[] = {{160, 50}, {0.5, 22.5}, {319.5, 22.5}, {0.5, 81.5}, {319.5, 81.5}};
    start(GetParam());
    startCall();

    for (const auto& [x, y] : points) {
        tap(x, y);
        settle();

        EXPECT_TRUE(sheetIsOpen()) << x << ", " << y;
        touchAndWait("Cancel");
        EXPECT_FALSE(sheetIsOpen());
    }
}

TEST_P(BothCallScreens, ATapJustOutsideTheAreaOpensNothing) {
    start(GetParam());
    startCall();

    for (const auto& [x, y] : {std::pair{160.0, 21.0}, {160.0, 82.5}}) {
        tap(x, y);
        settle();

        EXPECT_FALSE(sheetIsOpen()) << x << ", " << y;
    }
}

TEST_P(BothCallScreens, TheCallScreensOwnControlsWorkBeneathTheArea) {
    start(GetParam());
    startCall();

    touchAndWait("mute");

    EXPECT_EQ(attribute(find("mute"), "state"), "selected");
    EXPECT_FALSE(sheetIsOpen());
}

TEST_P(BothCallScreens, TheAreaIsClearAndLiesInFrontOfTheScreensOwnViews) {
    start(GetParam());
    startCall();

    const auto area = tree().select_node("//*[@controller]/UIView[@frame='0 22 320 60']").node();

    ASSERT_TRUE(area);
    EXPECT_EQ(attribute(area, "background"), "#00000000");
    EXPECT_FALSE(area.next_sibling());
    EXPECT_FALSE(area.first_child());
}

TEST_P(BothCallScreens, TheSheetShowsTheThreeActivitiesInOrder) {
    start(GetParam());
    startCall();

    openSheet();

    std::vector<std::string> ours;
    for (const auto& node : tree().select_nodes("//*[@text='Note' or @text='Reminder' or @text='Event']")) {
        if (std::string(node.node().name()) == "UILabel") {
            ours.emplace_back(node.node().attribute("text").value());
        }
    }
    EXPECT_EQ(ours, (std::vector<std::string>{"Note", "Reminder", "Event"}));
}

TEST_P(BothCallScreens, TheSheetsIconsNameThePicturesOfTheActivitiesThatHaveOne) {
    start(GetParam());
    startCall();
    tap(160, 50);
    settle();

    std::vector<std::string> pictures;
    for (const auto& icon : tree().select_nodes("//UIActivityIcon")) {
        pictures.push_back(attribute(icon.node(), "image"));
    }

    EXPECT_EQ(pictures, (std::vector<std::string>{"", "", "/Library/Quorvan/notes.png",
                                                  "/Library/Quorvan/Reminders.png", "/Library/Quorvan/Events.png"}));
}

TEST_P(BothCallScreens, TheSheetOffersNoneOfTheNineExcludedTypes) {
    start(GetParam());
    startCall();

    openSheet();

    EXPECT_STREQ(tree().select_node("//*[@excluded]").node().attribute("excluded").value(),
                 "com.apple.UIKit.activity.Print com.apple.UIKit.activity.CopyToPasteboard "
                 "com.apple.UIKit.activity.AssignToContact com.apple.UIKit.activity.SaveToCameraRoll "
                 "com.apple.UIKit.activity.PostToFacebook com.apple.UIKit.activity.PostToTwitter "
                 "com.apple.UIKit.activity.PostToWeibo com.apple.UIKit.activity.AirDrop "
                 "com.apple.UIKit.activity.AddToReadingList");
    for (const char* system : {"Copy", "Facebook", "Twitter", "Weibo", "AirDrop"}) {
        EXPECT_FALSE(find(system)) << system;
    }
    EXPECT_TRUE(find("Message"));
    EXPECT_TRUE(find("Mail"));
}

TEST_P(BothCallScreens, EveryActivityCanBeTapped) {
    start(GetParam());
    startCall();

    openSheet();

    for (const char* activity : {"Note", "Reminder", "Event"}) {
        const auto title = find(activity);
        EXPECT_EQ(attribute(title.parent(), "state"), "normal") << activity;
        EXPECT_TRUE(title.attribute("touch")) << activity;
    }
}

TEST_P(BothCallScreens, TheActionsEncodingNamesNoArgument) {
    start(GetParam());
    const char* name = GetParam().app == "newer" ? "PHCallViewController" : "InCallController";

    const Method action = class_getInstanceMethod(objc_getClass(name), objc::selector<"invokeShare:">());

    ASSERT_NE(action, nullptr);
    EXPECT_STREQ(method_getTypeEncoding(action), "v@:");
}

TEST_P(BothCallScreens, TheOtherGenerationsClassDoesNotExist) {
    start(GetParam());

    EXPECT_EQ(objc_getClass("PHCallViewController") != nullptr, GetParam().app == "newer");
    EXPECT_EQ(objc_getClass("InCallController") != nullptr, GetParam().app == "older");
}

TEST_P(BothCallScreens, TheScreensOwnBehaviourRunsBeforeTheAreaIsAdded) {
    start(GetParam());
    startCall();
    openSheet();
    openNote();
    cancel();

    // Nothing of the screen's own lies above the area, though the screen has appeared again since.
    const std::string areas = "//*[@controller='" + callScreen() + "']/UIView[@frame='0 22 320 60']";
    const auto first = tree().select_node(areas.c_str()).node();
    ASSERT_TRUE(first);
    for (auto above = first.next_sibling(); above; above = above.next_sibling()) {
        EXPECT_EQ(attribute(above, "frame"), "0 22 320 60");
    }
    const auto callbacks = logged("appearance", "callback");
    EXPECT_GT(std::count(callbacks.begin(), callbacks.end(), "viewDidAppear:"), 1);
}

TEST_P(BothCallScreens, TheScreenIsToldBeforeTheAreaIsBuilt) {
    const bool isNewer = GetParam().app == "newer";
    start(GetParam());
    Messages messages;
    messages.watch<"UIViewController", "viewDidAppear:", void, objc::UInt>();
    messages.watch<"UIViewController", "viewDidLoad">();
    messages.watch<"UIView", "addGestureRecognizer:", void, id>();

    startCall();

    auto heard = messages.take();
    const std::string area = "UIView addGestureRecognizer: UITapGestureRecognizer";
    EXPECT_EQ(std::count(heard.begin(), heard.end(), area), 1);
    const std::string told = isNewer ? "PHCallViewController viewDidAppear: " : "InCallController viewDidLoad";
    const auto built = std::find(heard.begin(), heard.end(), area);
    ASSERT_NE(built, heard.begin());
    EXPECT_EQ(built[-1].substr(0, told.size()), told);
}

TEST_F(CallScreenHooks, TheNewerScreenShownTwiceHasTwoAreasAndOneTapOpensOneSheet) {
    start();
    startCall();
    EXPECT_EQ(tapAreas(), 1U);
    openSheet();
    openNote();
    cancel();
    EXPECT_EQ(tapAreas(), 2U);

    openSheet();

    EXPECT_EQ(tree().select_nodes("//*[@excluded]").size(), 1U);
    touchAndWait("Cancel");
    EXPECT_FALSE(sheetIsOpen());
}

TEST_F(CallScreenHooks, EveryStepOfTheOlderScreenPassesThroughTheLibrary) {
    start(older);
    const Class screen = objc_getClass("InCallController");
    const auto place = [&](SEL selector) {
        return reinterpret_cast<std::intptr_t>(class_getMethodImplementation(screen, selector));
    };

    const std::intptr_t library = place(objc::selector<"invokeShare:">());

    for (SEL step :
         {objc::selector<"viewDidLoad">(), objc::selector<"loadView">(), objc::selector<"viewDidAppear:">()}) {
        EXPECT_LT(std::abs(place(step) - library), 0x1000) << sel_getName(step);
    }
    EXPECT_GT(std::abs(place(objc::selector<"view">()) - library), 0x1000);
}

TEST_F(CallScreenHooks, TheOlderScreenKeepsItsOneAreaAfterANote) {
    start(older);
    startCall();
    openSheet();
    openNote();
    cancel();

    EXPECT_EQ(tapAreas(), 1U);
}

TEST_F(CallScreenHooks, TheSheetAloneCausesNoAppearanceOfTheCallScreen) {
    start();
    startCall();
    const auto before = logged("appearance", "callback").size();

    openSheet();
    touchAndWait("Cancel");

    const auto classes = logged("appearance", "class");
    for (std::size_t i = before; i < classes.size(); ++i) {
        EXPECT_NE(classes[i], "PHCallViewController");
    }
    EXPECT_EQ(tapAreas(), 1U);
}

TEST_F(CallScreenHooks, ACallThatEndsWhileANoteIsOpenLosesNothing) {
    start();
    startNote();
    typeNote("call back on Monday");

    phoneCall("cancel");
    advance(5);
    EXPECT_EQ(attribute(noteText(), "text"), "call back on Monday");
    done();
    advance(5);

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].content, "call back on Monday");
    EXPECT_EQ(callScreen(), "");
}

} // namespace
