#include "phone/uikit/Keyboard.h"

#include "phone/uikit/Compositor.h"
#include "platform/foundation/NSNumber.h"
#include "tests/phone/EditingRecorder.h"
#include "tests/phone/PhoneTest.h"

#include <sstream>

namespace {

using Phase = phone::Screen::Phase;
using Entries = std::vector<std::string>;

class Keyboard : public PhoneTest {
protected:
    void start() {
        useClassesOnly();
        screen = window();
        field = UITextField::withFrame({20, 50, 200, 30});
        screen.addSubview(field);
        recorder = objc::Ref<EditingRecorder>::make();
        recorder->observeKeyboard();
    }
    void focus() {
        field.becomeFirstResponder();
        settle();
    }
    CGRect rect(id key) { return recorder->information.at<NSValue>(objc::borrow<NSString>(key)).CGRectValue(); }
    double value(id key) { return recorder->information.at<NSNumber>(objc::borrow<NSString>(key)).doubleValue(); }
    std::string typed() { return phone::text(field.text()); }
    pugi::xml_node shiftKey() { return findClass("UIKeyboardKeyView", 19); }
    /// As a person sees it: the arrow on the key is filled.
    bool isShiftLit() {
        double x = 0;
        double y = 0;
        std::istringstream(attribute(shiftKey(), "touch")) >> x >> y;
        return (phone::pictureOfScreen()->pixel(static_cast<int>(x * 2), static_cast<int>(y * 2)) & 0xff) < 0x40;
    }

    UIWindow screen;
    UITextField field;
    objc::Ref<EditingRecorder> recorder;
};

// Holds: keyboard-heights
TEST_F(Keyboard, StandsAtTheBottom216PointsHigh) {
    start();
    focus();

    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 352 320 216");
}

TEST_F(Keyboard, StandsAtTheBottomOfTheSmallerScreenToo) {
    useDevice("iphone4");
    start();
    focus();

    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 264 320 216");
}

// Holds: keyboard-heights
TEST_F(Keyboard, IsAsHighAsEachDeviceHasIt) {
    EXPECT_EQ(phone::Keyboard::height(false, false), 216);
    EXPECT_EQ(phone::Keyboard::height(false, true), 162);
    EXPECT_EQ(phone::Keyboard::height(true, false), 264);
    EXPECT_EQ(phone::Keyboard::height(true, true), 352);
}

// Holds: keyboard-notifications
TEST_F(Keyboard, TellsWhereItComesFromAndGoesTo) {
    start();
    focus();

    EXPECT_EQ(recorder->take(), (Entries{"WillShow", "DidShow"}));
    EXPECT_EQ(rect(UIKeyboardFrameBeginUserInfoKey), CGRect(0, 568, 320, 216));
    EXPECT_EQ(rect(UIKeyboardFrameEndUserInfoKey), CGRect(0, 352, 320, 216));
    EXPECT_EQ(value(UIKeyboardAnimationDurationUserInfoKey), 0.25);
    EXPECT_EQ(value(UIKeyboardAnimationCurveUserInfoKey), 7);
}

// Holds: keyboard-notifications
TEST_F(Keyboard, ArrivesAndLeavesAQuarterOfASecondLater) {
    start();
    field.becomeFirstResponder();
    advance(0.2);
    EXPECT_EQ(recorder->take(), Entries{"WillShow"});
    advance(0.1);
    EXPECT_EQ(recorder->take(), Entries{"DidShow"});

    field.resignFirstResponder();
    advance(0.2);
    EXPECT_EQ(recorder->take(), Entries{"WillHide"});
    EXPECT_EQ(rect(UIKeyboardFrameEndUserInfoKey), CGRect(0, 568, 320, 216));
    advance(0.1);
    EXPECT_EQ(recorder->take(), Entries{"DidHide"});
    EXPECT_EQ(attribute(findClass("UITextEffectsWindow"), "hidden"), "true");
}

TEST_F(Keyboard, TypesByTouch) {
    start();
    focus();

    tapOn("H");
    tapOn("I");

    EXPECT_EQ(typed(), "Hi");
}

TEST_F(Keyboard, TypesOneCapitalAfterShift) {
    start();
    focus();
    type("x");

    tapOn(shiftKey());
    tapOn("H");
    tapOn("I");

    EXPECT_EQ(typed(), "xHi");
}

// Holds: autocapitalization
TEST_F(Keyboard, LightsShiftAtTheStartOfATextAndBehindAFullStopAndASpace) {
    start();
    EXPECT_EQ((field.send<"autocapitalizationType", objc::Int>()), 2);
    focus();
    EXPECT_TRUE(isShiftLit());

    type("a");
    EXPECT_FALSE(isShiftLit());
    type(".");
    EXPECT_FALSE(isShiftLit());
    type(" ");
    EXPECT_TRUE(isShiftLit());
    type("b c");
    EXPECT_FALSE(isShiftLit());
    key("backspace");
    EXPECT_FALSE(isShiftLit());
    key("home");
    EXPECT_TRUE(isShiftLit());

    EXPECT_EQ(typed(), "a. b "); // what is typed on a connected keyboard arrives as it is
}

// Holds: autocapitalization
TEST_F(Keyboard, TypesACapitalWhereShiftIsLit) {
    start();
    focus();

    tapOn("H");
    tapOn("I");
    tapOn("123");
    tapOn(".");
    tapOn("space");
    tapOn("I");

    EXPECT_EQ(typed(), "Hi. I");
}

TEST_F(Keyboard, LetsAPersonReleaseShift) {
    start();
    focus();

    tapOn(shiftKey());
    EXPECT_FALSE(isShiftLit());
    tapOn("H");

    EXPECT_EQ(typed(), "h");
}

TEST_F(Keyboard, LightsShiftAsTheFieldWantsIt) {
    start();
    focus();
    type("a");
    const auto litFor = [&](objc::Int kind) {
        run([&] { field.send<"setAutocapitalizationType:">(kind); });
        return isShiftLit();
    };

    EXPECT_TRUE(litFor(3)); // every letter
    EXPECT_FALSE(litFor(1));
    EXPECT_FALSE(litFor(0));
    type(" ");
    EXPECT_FALSE(isShiftLit());
    EXPECT_TRUE(litFor(1)); // every word
    EXPECT_FALSE(litFor(2));
}

TEST_F(Keyboard, HasDigitsAndSymbolsAndComesBackAfterASpace) {
    start();
    focus();

    tapOn("123");
    tapOn("7");
    tapOn("#+=");
    tapOn("€");
    tapOn("space");
    tapOn("Q");

    EXPECT_EQ(typed(), "7€ q");
}

TEST_F(Keyboard, ErasesAndReturnsByTouch) {
    start();
    field.setDelegate(recorder);
    focus();
    type("ab");
    recorder->take();

    tapOn(findClass("UIKeyboardKeyView", 27));
    tapOn("return");

    EXPECT_EQ(typed(), "a");
    EXPECT_EQ(recorder->take(), (Entries{"change 1+1 ''", "shouldReturn "}));
}

TEST_F(Keyboard, CoversItselfWithKeysWithoutGaps) {
    start();
    focus();

    for (double x = 1; x < 320; x += 2) {
        tap(x, 352 + 20);
    }

    EXPECT_EQ(typed().size(), 160U);
    EXPECT_EQ(typed().front(), 'Q');
    EXPECT_EQ(typed().back(), 'p');
}

TEST_F(Keyboard, HasUmlautsInGerman) {
    useLanguage("de");
    start();
    field.setReturnKeyType(UIReturnKeyType::Done);
    focus();

    tapOn("Z");
    tapOn("Ü");
    tapOn("Ö");
    tapOn("Ä");
    const auto s = find("S");
    std::istringstream place(s.attribute("touch").value());
    double x = 0;
    double y = 0;
    place >> x >> y;
    touch(Phase::Began, x, y);
    advance(0.6);
    touch(Phase::Ended, x, y);

    EXPECT_EQ(typed(), "Züöäß");
    EXPECT_TRUE(isVisible("Fertig"));
    EXPECT_TRUE(isVisible("Leerzeichen"));
}

TEST_F(Keyboard, NamesItsReturnKeyAfterItsType) {
    start();
    focus();
    EXPECT_TRUE(isVisible("return"));

    field.setReturnKeyType(UIReturnKeyType::Done);

    EXPECT_TRUE(isVisible("Done"));
}

TEST_F(Keyboard, LeavesTheTouchesBesideItToTheApplication) {
    start();
    focus();
    const auto behind = UITextField::withFrame({20, 200, 200, 30});
    screen.addSubview(behind);

    tap(40, 215);

    EXPECT_TRUE(behind.isFirstResponder());
}

TEST_F(Keyboard, RefusesKeysWhileNothingIsEdited) {
    start();

    EXPECT_THROW(type("a"), phone::ScreenError);
    EXPECT_THROW(key("enter"), phone::ScreenError);
    EXPECT_THROW(boot().pasteText(), phone::ScreenError);
}

TEST_F(Keyboard, RefusesAKeyThatItDoesNotHave) {
    start();
    focus();

    EXPECT_THROW(key("escape"), phone::ScreenError);
}

TEST_F(Keyboard, IsHiddenByADoneKeyAlone) {
    start();
    focus();
    EXPECT_THROW(boot().hideKeyboard(), phone::ScreenError);

    field.setDelegate(recorder);
    field.setReturnKeyType(UIReturnKeyType::Done);
    recorder->during["shouldReturn "] = [&] { field.resignFirstResponder(); };
    boot().hideKeyboard();

    EXPECT_FALSE(field.isFirstResponder());
}

TEST_F(Keyboard, ComesBackWhenItIsCalledWhileItLeaves) {
    start();
    focus();
    recorder->take();

    run([&] { field.resignFirstResponder(); });
    advance(0.1);
    run([&] { field.becomeFirstResponder(); });
    settle();

    EXPECT_EQ(recorder->take(), (Entries{"WillHide", "WillShow", "DidShow"}));
    EXPECT_EQ(attribute(findClass("UITextEffectsWindow"), "hidden"), "false");
}

// Holds: return-key-numbers
TEST_F(Keyboard, NumbersItsReturnKeysAsThePlatformDoes) {
    start();
    const char* const names[] = {"default", "go",   "google", "join", "next",         "route",
                                 "search",  "send", "yahoo",  "done", "emergencycall"};

    for (objc::Int number = 0; number <= 10; ++number) {
        field.setReturnKeyType(static_cast<UIReturnKeyType>(number));
        EXPECT_EQ(attribute(findClass("UITextField"), "returnKey"), names[number]);
    }
}

} // namespace
