// The interface and the device that a person turns.

#include "phone/uikit/Interface.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/StatusBar.h"
#include "platform/foundation/NSNumber.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIScreen.h"
#include "tests/phone/EditingRecorder.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Raised.h"

#include <sstream>

namespace {

using Lines = std::vector<std::string>;

Lines& written() {
    static auto* lines = new Lines;
    return *lines;
}
Lines take() { return std::exchange(written(), {}); }

/// Writes down what it is told of rotations, with its bounds and its orientation at that moment. Of the questions it
/// answers the older one alone.
class Turner : public objc::Defines<Turner, UIViewController> {
public:
    static constexpr auto objc_name = "Turner";
    static void define(objc::ClassTable<Turner>& c) {
        c.overrides<"shouldAutorotateToInterfaceOrientation:", &Turner::shouldAutorotateTo>()
            .overrides<"willRotateToInterfaceOrientation:duration:", &Turner::willRotate>()
            .overrides<"willAnimateRotationToInterfaceOrientation:duration:", &Turner::willAnimate>()
            .overrides<"didRotateFromInterfaceOrientation:", &Turner::didRotate>();
    }
    static UIViewController with(const std::string& name, const std::string& allowed) {
        const auto turner = objc::Ref<Turner>::make();
        turner->_name = name;
        turner->_allowed = allowed;
        return objc::as<UIViewController>(turner);
    }

private:
    bool shouldAutorotateTo(UIInterfaceOrientation to) const {
        return _allowed.find(std::to_string(static_cast<int>(to))) != std::string::npos;
    }
    void note(const char* what, UIInterfaceOrientation argument) const {
        const CGSize size = view().bounds().size;
        std::ostringstream line;
        line << _name << ' ' << what << ' ' << static_cast<int>(argument) << ": " << size.width << 'x' << size.height
             << " in " << send<"interfaceOrientation", objc::Int>();
        written().push_back(line.str());
    }
    void willRotate(UIInterfaceOrientation to, double) { note("will", to); }
    void willAnimate(UIInterfaceOrientation to, double) { note("animates", to); }
    void didRotate(UIInterfaceOrientation from) { note("did", from); }

    std::string _name;
    std::string _allowed;
};

/// Answers the newer questions, and the older one to the contrary.
class ModernTurner : public objc::Defines<ModernTurner, UIViewController> {
public:
    static constexpr auto objc_name = "ModernTurner";
    static void define(objc::ClassTable<ModernTurner>& c) {
        c.overrides<"shouldAutorotate", &ModernTurner::shouldAutorotate>()
            .overrides<"supportedInterfaceOrientations", &ModernTurner::supported>()
            .overrides<"shouldAutorotateToInterfaceOrientation:", &ModernTurner::shouldAutorotateTo>();
    }
    static UIViewController with(bool turns, objc::UInt supported) {
        const auto turner = objc::Ref<ModernTurner>::make();
        turner->_turns = turns;
        turner->_supported = supported;
        return objc::as<UIViewController>(turner);
    }

private:
    bool shouldAutorotate() const { return _turns; }
    objc::UInt supported() const { return _supported; }
    bool shouldAutorotateTo(UIInterfaceOrientation to) const { return (_supported >> static_cast<int>(to) & 1) == 0; }

    bool _turns = true;
    objc::UInt _supported = 0;
};

constexpr objc::UInt portraitMask = 2;
constexpr objc::UInt landscapeRightMask = 8;
constexpr objc::UInt landscapeMask = 8 | 16;
constexpr objc::UInt allButUpsideDownMask = 2 | 8 | 16;
constexpr objc::UInt allMask = 2 | 4 | 8 | 16;

class Rotation : public PhoneTest {
protected:
    Rotation() {
        useClassesOnly();
        useDevice("ipad");
    }
    /// `allowed` are the numbers of the orientations.
    UIViewController turner(const std::string& name, const std::string& allowed = "1234") {
        boot();
        return Turner::with(name, allowed);
    }
    void show(const UIViewController& root) {
        screen = window();
        screen.setRootViewController(root);
        take();
    }
    void turn(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
    }
    /// Of a controller that says nothing.
    static objc::UInt defaultMask() {
        return objc::make<UIViewController>().send<"supportedInterfaceOrientations", objc::UInt>();
    }
    static UIInterfaceOrientation orientation() { return UIApplication::shared().statusBarOrientation(); }

    UIWindow screen;
};

// Holds: orientation-numbers, device-orientation-is-crossed
TEST_F(Rotation, NamesTheInterfaceAfterTheSideOfTheButton) {
    show(turner("a"));

    EXPECT_EQ(static_cast<int>(orientation()), 1);
    turn("LANDSCAPE_LEFT");
    EXPECT_EQ(static_cast<int>(orientation()), 3);
    turn("UPSIDE_DOWN");
    EXPECT_EQ(static_cast<int>(orientation()), 2);
    turn("LANDSCAPE_RIGHT");
    EXPECT_EQ(static_cast<int>(orientation()), 4);
    turn("PORTRAIT");
    EXPECT_EQ(static_cast<int>(orientation()), 1);
}

// Trap: rotation-begins-with-old-bounds
// Holds: rotation-order
TEST_F(Rotation, IsToldWithTheOldBoundsThenTheNewOnesThenThatItIsOver) {
    show(turner("a"));

    boot().setOrientation("LANDSCAPE_LEFT");
    EXPECT_EQ(take(), (Lines{"a will 3: 768x1024 in 1", "a animates 3: 1024x768 in 3"}));
    settle();

    EXPECT_EQ(take(), Lines{"a did 1: 1024x768 in 3"});
}

TEST_F(Rotation, TakesTwiceAsLongForHalfATurn) {
    show(turner("a"));

    boot().setOrientation("UPSIDE_DOWN");
    take();
    advance(phone::Interface::quarterSeconds + 0.1);
    EXPECT_EQ(take(), Lines());
    advance(phone::Interface::quarterSeconds);

    EXPECT_EQ(take(), Lines{"a did 1: 768x1024 in 2"});
}

TEST_F(Rotation, TakesNoTouchesOnTheWay) {
    show(turner("a"));

    boot().setOrientation("LANDSCAPE_LEFT");
    EXPECT_TRUE(UIApplication::shared().isIgnoringInteractionEvents());
    settle();

    EXPECT_FALSE(UIApplication::shared().isIgnoringInteractionEvents());
}

TEST_F(Rotation, FollowsADeviceThatIsTurnedOnAfterTheFirstTurnIsOver) {
    show(turner("a"));

    boot().setOrientation("LANDSCAPE_LEFT");
    advance(0.1);
    boot().setOrientation("PORTRAIT");
    settle();

    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
    EXPECT_EQ(attribute(tree().child("screen"), "orientation"), "PORTRAIT");
}

// Trap: rotation-begins-with-old-bounds
// Holds: screen-stays-upright
TEST_F(Rotation, LeavesScreenWindowsAndStatusBarFrameUpright) {
    show(turner("a"));

    turn("LANDSCAPE_LEFT");

    ASSERT_EQ(screen.rootViewController().view().bounds(), CGRect(0, 0, 1024, 768));
    EXPECT_EQ(UIScreen::main().bounds(), CGRect(0, 0, 768, 1024));
    EXPECT_EQ(screen.frame(), CGRect(0, 0, 768, 1024));
    EXPECT_EQ(UIApplication::shared().statusBarFrame(), CGRect(748, 0, 20, 1024));
    EXPECT_EQ((UIScreen::main().send<"applicationFrame", CGRect>()), CGRect(0, 0, 748, 1024));
    turn("LANDSCAPE_RIGHT");
    EXPECT_EQ(UIApplication::shared().statusBarFrame(), CGRect(0, 0, 20, 1024));
}

// Trap: rotation-begins-with-old-bounds
// Holds: screen-stays-upright, keyboard-heights
TEST_F(Rotation, LeavesTheFramesOfTheKeyboardUpright) {
    const auto controller = turner("a");
    show(controller);
    const auto field = UITextField::withFrame({20, 50, 200, 30});
    controller.view().addSubview(field);
    const auto recorder = objc::Ref<EditingRecorder>::make();
    recorder->observeKeyboard();
    turn("LANDSCAPE_LEFT");

    run([&] { field.becomeFirstResponder(); });
    settle();

    auto rect = [&](id key) { return recorder->information.at<NSValue>(objc::borrow<NSString>(key)).CGRectValue(); };
    EXPECT_EQ(rect(UIKeyboardFrameBeginUserInfoKey), CGRect(-352, 0, 352, 1024));
    EXPECT_EQ(rect(UIKeyboardFrameEndUserInfoKey), CGRect(0, 0, 352, 1024));
    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "frame"), "0 0 352 1024");
    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 416 1024 352");
}

TEST_F(Rotation, SendsAShownKeyboardAwayAndBringsItAtTheNewEdge) {
    const auto controller = turner("a");
    show(controller);
    const auto field = UITextField::withFrame({20, 50, 200, 30});
    controller.view().addSubview(field);
    const auto recorder = objc::Ref<EditingRecorder>::make();
    recorder->observeKeyboard();
    run([&] { field.becomeFirstResponder(); });
    settle();
    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 760 768 264");
    recorder->take();

    turn("LANDSCAPE_RIGHT");

    EXPECT_EQ(recorder->take(), (Lines{"WillHide", "DidHide", "WillShow", "DidShow"}));
    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 416 1024 352");
    EXPECT_TRUE(field.isFirstResponder());
    tapOn("H");
    EXPECT_EQ(phone::text(field.text()), "H");
}

TEST_F(Rotation, TurnsTheRootViewByATransform) {
    const auto controller = turner("a");
    show(controller);

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(controller.view().frame(), CGRect(0, 0, 768, 1024));
    EXPECT_EQ(controller.view().bounds(), CGRect(0, 0, 1024, 768));
}

TEST_F(Rotation, GivesAScreenInANavigationControllerAFrameOfItsOwnSize) {
    const auto top = turner("top");
    show(UINavigationController::withRoot(top));

    turn("LANDSCAPE_RIGHT");

    EXPECT_EQ(top.view().frame(), CGRect(0, 0, 1024, 768));
    EXPECT_EQ(top.view().bounds(), CGRect(0, 0, 1024, 768));
}

TEST_F(Rotation, TakesTouchesAndShowsViewsAsThePersonHoldsTheDevice) {
    const auto controller = turner("a");
    show(controller);
    const auto field = UITextField::withFrame({900, 40, 100, 30});
    controller.view().addSubview(field);

    for (const char* held : {"LANDSCAPE_LEFT", "LANDSCAPE_RIGHT"}) {
        turn(held);
        EXPECT_EQ(attribute(findClass("UITextField"), "frame"), "900 40 100 30");
        EXPECT_EQ(attribute(findClass("UITextField"), "screen"), "900 40 100 30");
        EXPECT_EQ(attribute(findClass("UITextField"), "touch"), "950 55");
        tap(905, 45);
        EXPECT_TRUE(field.isFirstResponder());
        run([&] { field.resignFirstResponder(); });
        settle();
    }
}

TEST_F(Rotation, ConvertsPointsBetweenATurnedViewAndItsWindow) {
    const auto controller = turner("a");
    show(controller);

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(controller.view().convertPointToView({10, 20}, screen), CGPoint(748, 10));
    EXPECT_EQ(controller.view().convertPointFromView({748, 10}, screen), CGPoint(10, 20));
    EXPECT_EQ(controller.view().convertRectToView({10, 20, 30, 40}, screen), CGRect(708, 10, 40, 30));
}

TEST_F(Rotation, TurnsOnlyWhereTheControllerInFrontAllowsIt) {
    show(turner("a", "13"));

    turn("LANDSCAPE_RIGHT");
    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
    EXPECT_EQ(take(), Lines());
    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
}

TEST_F(Rotation, TurnsUnderAControllerThatSaysNothing) {
    boot();
    show(objc::make<UIViewController>());

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
}

// Holds: orientations-by-default
TEST_F(Rotation, IsTakenInEveryDirectionByAControllerThatSaysNothingOnATablet) {
    boot();

    EXPECT_EQ(defaultMask(), allMask);
}

// Holds: orientations-by-default
TEST_F(Rotation, IsTakenInEveryDirectionButUpsideDownByAControllerThatSaysNothingOnAPhone) {
    useDevice("iphone5");
    boot();

    EXPECT_EQ(defaultMask(), allButUpsideDownMask);
}

// Holds: older-rotation-question
TEST_F(Rotation, LeavesTheOlderQuestionOutWhereTheNewerOnesAreAnswered) {
    boot();
    show(ModernTurner::with(true, portraitMask | landscapeRightMask));

    turn("LANDSCAPE_RIGHT");
    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
}

// Holds: front-decides-rotation
TEST_F(Rotation, DoesNotFollowTheDeviceUnderAControllerThatDoesNotAutorotate) {
    boot();
    show(ModernTurner::with(false, allMask));

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
}

TEST_F(Rotation, BringsAControllerThatDoesNotAutorotateUpAsTheInterfaceStands) {
    boot();
    const auto below = ModernTurner::with(true, portraitMask);
    show(below);
    turn("LANDSCAPE_LEFT");

    run([&] { below.present(ModernTurner::with(false, allMask), true, nullptr); });
    settle();

    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
}

// Holds: orientations-intersect
TEST_F(Rotation, RaisesWhereControllerAndApplicationHaveNoOrientationInCommon) {
    useDevice("iphone5");
    boot();

    const auto exception = raised([&] { show(ModernTurner::with(true, landscapeMask)); });

    EXPECT_EQ(exception.name, "UIApplicationInvalidInterfaceOrientation");
    EXPECT_EQ(exception.reason, "Supported orientations has no common orientation with the application, and "
                                "shouldAutorotate is returning YES");
}

// Holds: front-decides-rotation
TEST_F(Rotation, DoesNotAskTheScreensOfANavigationController) {
    const auto navigation = UINavigationController::withRoot(turner("root", "1"));
    show(navigation);

    turn("LANDSCAPE_LEFT");
    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
    run([&] { navigation.push(ModernTurner::with(true, portraitMask), true); });
    settle();
    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
    turn("LANDSCAPE_RIGHT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeLeft);
}

// Holds: front-decides-rotation
TEST_F(Rotation, DoesNotAskWhatLiesOverTheScreenWithoutFillingIt) {
    const auto below = turner("below");
    const auto above = turner("above", "1");
    above.send<"setModalPresentationStyle:">(objc::Int(4)); // custom
    show(below);
    run([&] { below.present(above, true, nullptr); });
    settle();

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
}

// Holds: rotation-tells-children
TEST_F(Rotation, TellsTheTopOfANavigationControllerAlone) {
    const auto navigation = UINavigationController::withRoot(turner("root"));
    show(navigation);
    run([&] { navigation.push(turner("top"), true); });
    settle();

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(take(),
              (Lines{"top will 3: 768x1024 in 1", "top animates 3: 1024x768 in 3", "top did 1: 1024x768 in 3"}));
}

TEST_F(Rotation, LaysOutWhatComesBackBeforeItAppears) {
    const auto root = turner("root");
    const auto navigation = UINavigationController::withRoot(root);
    show(navigation);
    run([&] { navigation.push(turner("top"), true); });
    settle();
    turn("LANDSCAPE_LEFT");

    run([&] { navigation.popToRoot(true); });
    settle();

    EXPECT_EQ(root.view().frame(), CGRect(0, 0, 1024, 768));
}

TEST_F(Rotation, AsksAndTellsWhatIsPresented) {
    const auto below = turner("below");
    show(below);
    run([&] { below.present(turner("above"), true, nullptr); });
    settle();

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(take(),
              (Lines{"above will 3: 768x1024 in 1", "above animates 3: 1024x768 in 3", "above did 1: 1024x768 in 3"}));
}

TEST_F(Rotation, TurnsToAnOrientationThatThePresentedControllerAllowsAndBack) {
    const auto below = turner("below");
    const auto above = turner("above", "1");
    show(below);
    turn("LANDSCAPE_LEFT");

    run([&] { below.present(above, true, nullptr); });
    settle();
    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
    EXPECT_EQ(above.view().bounds(), CGRect(0, 0, 768, 1024));
    run([&] { below.dismiss(true, nullptr); });
    settle();

    EXPECT_EQ(orientation(), UIInterfaceOrientation::LandscapeRight);
    EXPECT_EQ(below.view().bounds(), CGRect(0, 0, 1024, 768));
}

TEST_F(Rotation, RaisesWhatIsPresentedFromThePersonsLowerEdge) {
    const auto below = turner("below");
    const auto above = turner("above");
    show(below);
    turn("LANDSCAPE_LEFT");

    run([&] { below.present(above, true, nullptr); });
    settle();
    run([&] { below.dismiss(true, nullptr); });
    advance(0);

    EXPECT_EQ(above.view().frame(), CGRect(-768, 0, 768, 1024));
}

// Holds: rotation-of-the-root-only
TEST_F(Rotation, TellsNothingToAControllerWhoseViewWasMerelyAdded) {
    show(turner("root"));
    const auto stranger = turner("stranger");
    screen.addSubview(stranger.view());

    turn("LANDSCAPE_LEFT");

    for (const std::string& line : take()) {
        EXPECT_TRUE(line.starts_with("root ")) << line;
    }
    EXPECT_EQ(stranger.view().bounds(), CGRect(0, 0, 768, 1024));
}

// Holds: orientations-intersect
TEST_F(Rotation, NeverTurnsAPhone) {
    useDevice("iphone5");
    show(turner("a"));

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
    EXPECT_EQ(take(), Lines());
    EXPECT_EQ(attribute(tree().child("screen"), "width"), "568");
}

TEST_F(Rotation, NeverTurnsADeviceOfAnotherKind) {
    useDevice("other");
    show(turner("a"));

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(orientation(), UIInterfaceOrientation::Portrait);
}

} // namespace
