#include "phone/uikit/TextField.h"

#include "phone/uikit/Compositor.h"
#include "phone/uikit/Keyboard.h"
#include "tests/phone/EditingRecorder.h"
#include "tests/phone/EventNumbers.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

using Entries = std::vector<std::string>;

class TextField : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        recorder = objc::Ref<EditingRecorder>::make();
        first = makeField("first", 50);
        second = makeField("second", 100);
    }
    UITextField makeField(const char* name, CGFloat y) {
        const auto field = UITextField::withFrame({20, y, 200, 30});
        field.setAccessibilityIdentifier(NSString::utf8(name));
        field.setDelegate(recorder);
        screen.addSubview(field);
        return field;
    }
    std::string firstText() { return phone::text(first.text()); }

    UIWindow screen;
    objc::Ref<EditingRecorder> recorder;
    UITextField first;
    UITextField second;
};

// Trap: keyboard-before-or-after
// Holds: untouched-field-is-empty
TEST_F(TextField, IsEmptyUntilSomethingIsTyped) {
    EXPECT_TRUE(first.text());
    EXPECT_EQ(firstText(), "");
    first.setText(nullptr);
    EXPECT_TRUE(first.text());
}

// Trap: keyboard-before-or-after
// Holds: editing-order, field-before-the-keyboard
TEST_F(TextField, BeginsToEditWhenTouched) {
    recorder->observeKeyboard();

    tap(30, 60);
    settle();

    EXPECT_TRUE(first.isFirstResponder());
    EXPECT_EQ(recorder->take(), (Entries{"shouldBegin first", "didBegin first", "WillShow", "DidShow"}));
}

TEST_F(TextField, DoesNotBeginWhenItsDelegateRefuses) {
    recorder->refused = {"shouldBegin first"};

    tap(30, 60);

    EXPECT_FALSE(first.isFirstResponder());
    EXPECT_EQ(recorder->take(), Entries{"shouldBegin first"});
}

// Holds: editing-order
TEST_F(TextField, EndsInThePlatformsOrder) {
    first.becomeFirstResponder();
    settle();
    recorder->observeKeyboard();
    recorder->take();

    run([&] { EXPECT_TRUE(first.resignFirstResponder()); });
    settle();

    EXPECT_EQ(recorder->take(), (Entries{"shouldEnd first", "WillHide", "didEnd first", "DidHide"}));
}

// Holds: focus-moves-with-the-keyboard
TEST_F(TextField, KeepsTheKeyboardWhenTheFocusMoves) {
    first.becomeFirstResponder();
    settle();
    recorder->observeKeyboard();
    recorder->take();

    tap(30, 110);
    settle();

    EXPECT_EQ(recorder->take(), (Entries{"shouldBegin second", "shouldEnd first", "didEnd first", "didBegin second"}));
    EXPECT_TRUE(phone::Keyboard::shared().isShown());
}

TEST_F(TextField, KeepsTheFocusWhenItsDelegateDoesNotLetItGo) {
    first.becomeFirstResponder();
    recorder->refused = {"shouldEnd first"};

    EXPECT_FALSE(first.resignFirstResponder());
    EXPECT_FALSE(second.becomeFirstResponder());

    EXPECT_TRUE(first.isFirstResponder());
}

// Holds: editing-ends-by-force
TEST_F(TextField, EndsWithoutBeingAskedWhenItLeavesItsWindow) {
    first.becomeFirstResponder();
    recorder->refused = {"shouldEnd first"};
    recorder->take();

    first.removeFromSuperview();

    EXPECT_EQ(recorder->take(), Entries{"didEnd first"});
    EXPECT_FALSE(phone::Keyboard::shared().isShown());
}

// Holds: editing-ends-by-force
TEST_F(TextField, EndsForGoodWhenEditingIsEndedByForce) {
    first.becomeFirstResponder();
    recorder->refused = {"shouldEnd first"};

    EXPECT_TRUE(screen.endEditing(true));

    EXPECT_FALSE(first.isFirstResponder());
    EXPECT_EQ(recorder->take().back(), "didEnd first");
}

// Holds: no-focus-outside-a-window
TEST_F(TextField, DoesNotBeginOutsideAWindow) {
    first.removeFromSuperview();

    EXPECT_FALSE(first.becomeFirstResponder());
    EXPECT_TRUE(recorder->take().empty());
}

// Holds: change-by-character
TEST_F(TextField, AsksForEveryCharacterTyped) {
    first.becomeFirstResponder();
    recorder->take();

    type("ab");
    key("backspace");

    EXPECT_EQ(firstText(), "a");
    EXPECT_EQ(recorder->take(), (Entries{"change 0+0 'a'", "change 1+0 'b'", "change 1+1 ''"}));
}

TEST_F(TextField, LeavesOutWhatItsDelegateRefuses) {
    first.becomeFirstResponder();
    recorder->refused = {"change 1+0 'b'"};

    type("abc");

    EXPECT_EQ(firstText(), "ac");
}

TEST_F(TextField, TakesAndErasesAComposedCharacterAsOne) {
    first.becomeFirstResponder();
    recorder->take();

    type("👩‍👩‍👧e\u0301");
    EXPECT_EQ(recorder->take(), (Entries{"change 0+0 '👩‍👩‍👧'", "change 8+0 'e\u0301'"}));
    key("backspace");
    key("backspace");

    EXPECT_EQ(firstText(), "");
    EXPECT_EQ(recorder->take(), (Entries{"change 8+2 ''", "change 0+8 ''"}));
}

TEST_F(TextField, FollowsTheArrowsOfAConnectedKeyboard) {
    first.becomeFirstResponder();
    type("aé👩‍👩‍👧d");
    recorder->take();

    key("left");
    key("left");
    key("delete");
    key("right");
    key("right");
    type("x");

    EXPECT_EQ(firstText(), "aédx");
    EXPECT_EQ(recorder->take(), (Entries{"change 2+8 ''", "change 3+0 'x'"}));
}

TEST_F(TextField, AsksNothingForADeleteAtItsEnd) {
    first.becomeFirstResponder();
    type("a");
    recorder->take();

    key("delete");

    EXPECT_TRUE(recorder->take().empty());
}

TEST_F(TextField, AsksNothingForABackspaceAtItsStart) {
    first.becomeFirstResponder();
    recorder->take();

    key("backspace");

    EXPECT_TRUE(recorder->take().empty());
}

// Trap: keyboard-before-or-after
// Holds: text-in-code-tells-nobody
TEST_F(TextField, CallsNoDelegateForTextSetInCode) {
    first.setText("abc"_ns);
    first.send<"insertText:">("d"_ns);
    first.send<"deleteBackward">();

    EXPECT_EQ(firstText(), "abc");
    EXPECT_TRUE(recorder->take().empty());
}

TEST_F(TextField, PastesInOneChange) {
    first.becomeFirstResponder();
    first.setText("x"_ns);
    recorder->take();
    boot().setClipboard("two\nwords");

    boot().pasteText();

    EXPECT_EQ(firstText(), "xtwo words");
    EXPECT_EQ(recorder->take(), Entries{"change 1+0 'two words'"});
}

// Holds: field-return-only-asks
TEST_F(TextField, OnlyAsksWhenReturnIsPressed) {
    first.becomeFirstResponder();
    recorder->take();

    key("enter");

    EXPECT_EQ(recorder->take(), Entries{"shouldReturn first"});
    EXPECT_TRUE(first.isFirstResponder());
    EXPECT_EQ(firstText(), "");
}

TEST_F(TextField, EndsOnReturnWhenATargetWaitsForThat) {
    first.addTarget(recorder, objc::selector<"edited:">(), UIControlEventEditingDidEndOnExit);
    first.becomeFirstResponder();
    recorder->take();

    key("enter");

    EXPECT_EQ(recorder->take(), (Entries{"shouldReturn first", "edited first", "shouldEnd first", "didEnd first"}));
}

TEST_F(TextField, SendsItsTargetsTheEventsOfEditing) {
    first.setDelegate(nullptr);
    first.addTarget(recorder, objc::selector<"edited:">(), UIControlEventEditingChanged);
    first.becomeFirstResponder();

    type("a");
    first.setText("set"_ns);

    EXPECT_EQ(recorder->take(), Entries{"edited first"});
}

// Holds: control-event-numbers
TEST_F(TextField, SendsTheEventsOfEditingByTheirNumbers) {
    EventNumbers events(first);

    first.becomeFirstResponder();
    EXPECT_EQ(events.take(), std::set<unsigned>{65536});
    type("a");
    EXPECT_EQ(events.take(), std::set<unsigned>{131072});
    key("enter");
    EXPECT_EQ(events.take(), (std::set<unsigned>{262144, 524288}));
}

TEST_F(TextField, PutsTheCaretWhereItIsTouched) {
    first.setText("abc"_ns);

    tap(21, 60);
    type("x");

    EXPECT_EQ(firstText(), "xabc");
}

TEST_F(TextField, ShowsItsPlaceholderInTheTree) {
    first.setPlaceholder("Title"_ns);

    const auto element = findClass("UITextField");
    EXPECT_EQ(attribute(element, "text"), "");
    EXPECT_EQ(attribute(element, "placeholder"), "Title");
    EXPECT_EQ(attribute(element, "returnKey"), "default");
}

TEST_F(TextField, AsksNobodyAgainWhileItIsBecomingOrResigning) {
    recorder->during["didBegin first"] = [&] { first.becomeFirstResponder(); };
    recorder->during["didEnd first"] = [&] { first.resignFirstResponder(); };

    first.becomeFirstResponder();
    first.resignFirstResponder();

    EXPECT_EQ(recorder->take(), (Entries{"shouldBegin first", "didBegin first", "shouldEnd first", "didEnd first"}));
}

TEST_F(TextField, WritesFromTheRightWhereItsTextIsWrittenThatWay) {
    screen.setBackgroundColor(UIColor::white());
    first.becomeFirstResponder();
    settle();
    type("\u05e9\u05dc\u05d5\u05dd"); // Hebrew
    first.resignFirstResponder();
    settle();

    const CGRect ink = Picture().ink({0, 50, 320, 30});

    EXPECT_NEAR(ink.maxX(), 220, 2);
    EXPECT_GT(ink.origin.x, 150);
}

// Holds: field-placeholder
TEST_F(TextField, DrawsItsPlaceholderInGreyUntilThereIsText) {
    first.removeFromSuperview();
    first.setBackgroundColor(UIColor::white());
    EXPECT_FALSE(first.placeholder());
    screen.addSubview(first);
    // The darkest spot of what the field shows.
    auto darkest = [&] {
        const auto picture = phone::pictureOfScreen();
        unsigned found = 0xffffffff;
        for (int y = 2 * 50; y < 2 * 80; ++y) {
            for (int x = 2 * 20; x < 2 * 220; ++x) {
                found = std::min(found, picture->pixel(x, y));
            }
        }
        return found;
    };
    EXPECT_EQ(darkest(), 0xffffffffU);

    first.setPlaceholder("MMMM"_ns);
    const unsigned grey = darkest();
    EXPECT_NEAR((grey >> 16) & 0xff, 0.78 * 0xff, 1);
    EXPECT_NEAR((grey >> 8) & 0xff, 0.78 * 0xff, 1);
    EXPECT_NEAR(grey & 0xff, (0.78 + 0.22 * 0.098) * 0xff, 1); // a little bluer than grey
    first.setText("MMMM"_ns);

    EXPECT_EQ(darkest(), 0xff000000U);
}

} // namespace
