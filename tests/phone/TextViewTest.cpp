#include "phone/uikit/TextView.h"

#include "phone/uikit/Keyboard.h"
#include "tests/phone/EditingRecorder.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

using Phase = phone::Screen::Phase;
using Entries = std::vector<std::string>;

class TextView : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        recorder = objc::Ref<EditingRecorder>::make();
        note = UITextView::make();
        note.setFrame({15, 50, 290, 100});
        note.setFont(UIFont::system(17));
        note.setAccessibilityIdentifier("note"_ns);
        note.setDelegate(recorder);
        screen.addSubview(note);
    }
    std::string text() { return phone::text(note.text()); }

    UIWindow screen;
    objc::Ref<EditingRecorder> recorder;
    UITextView note;
};

TEST_F(TextView, ReadsBackAnEmptyTextForNil) {
    EXPECT_TRUE(note.text());
    note.setText("abc"_ns);
    note.setText(nullptr);

    EXPECT_TRUE(note.text());
    EXPECT_EQ(text(), "");
}

// Trap: keyboard-before-or-after
// Holds: text-view-after-the-keyboard
TEST_F(TextView, ShowsTheKeyboardBeforeItsDelegateIsTold) {
    recorder->observeKeyboard();

    tap(30, 60);
    settle();

    EXPECT_EQ(recorder->take(), (Entries{"shouldBegin note", "WillShow", "didBegin note", "DidShow"}));
}

TEST_F(TextView, EndsInThePlatformsOrder) {
    note.becomeFirstResponder();
    settle();
    recorder->observeKeyboard();
    recorder->take();

    run([&] { note.resignFirstResponder(); });
    settle();

    EXPECT_EQ(recorder->take(), (Entries{"shouldEnd note", "WillHide", "didEnd note", "DidHide"}));
}

TEST_F(TextView, LetsItsDelegateFocusAndSetDelegatesWhileTheFocusChanges) {
    recorder->during["didBegin note"] = [&] {
        note.setDelegate(recorder);
        note.setText(""_ns);
        EXPECT_TRUE(note.becomeFirstResponder());
    };
    recorder->during["didEnd note"] = [&] {
        note.setDelegate(recorder);
        note.setText("  Note"_ns);
        EXPECT_TRUE(note.resignFirstResponder());
    };

    note.becomeFirstResponder();
    note.resignFirstResponder();

    EXPECT_EQ(recorder->take(), (Entries{"shouldBegin note", "didBegin note", "shouldEnd note", "didEnd note"}));
    EXPECT_EQ(text(), "  Note");
}

// Holds: change-by-character
TEST_F(TextView, AsksForEveryCharacterAndTellsOfTheChange) {
    note.becomeFirstResponder();
    recorder->take();

    type("a");
    key("backspace");

    EXPECT_EQ(recorder->take(), (Entries{"change 0+0 'a'", "didChange note", "change 0+1 ''", "didChange note"}));
}

// Holds: text-view-return-is-text
TEST_F(TextView, TakesReturnAsALineBreak) {
    note.becomeFirstResponder();
    type("a");
    recorder->take();

    key("enter");
    type("b");

    EXPECT_EQ(text(), "a\nb");
    EXPECT_EQ(recorder->take().front(), "change 1+0 '\n'");
}

// Trap: keyboard-before-or-after
// Holds: text-in-code-tells-nobody
TEST_F(TextView, CallsNoDelegateForTextSetInCode) {
    note.setText("abc"_ns);
    note.send<"insertText:">("d"_ns);

    EXPECT_EQ(text(), "abcd");
    EXPECT_TRUE(recorder->take().empty());
}

TEST_F(TextView, PastesSeveralLinesInOneChange) {
    note.becomeFirstResponder();
    recorder->take();
    boot().setClipboard("milk\neggs");

    boot().pasteText();

    EXPECT_EQ(text(), "milk\neggs");
    EXPECT_EQ(recorder->take().front(), "change 0+0 'milk\neggs'");
}

TEST_F(TextView, WritesAfterTheTextThatWasSetInCode) {
    note.setText("abc"_ns);
    note.becomeFirstResponder();

    type("d");

    EXPECT_EQ(text(), "abcd");
}

TEST_F(TextView, PutsTheCaretWhereItIsTouched) {
    note.setText("abc\ndef"_ns);

    tap(15 + 5, 50 + 8 + 5);
    type("x");

    EXPECT_EQ(text(), "xabc\ndef");
}

TEST_F(TextView, WritesEachParagraphFromItsOwnSide) {
    screen.setBackgroundColor(UIColor::white());
    note.setText("\u0645\u0631\u062d\u0628\u0627\nhello"_ns); // Arabic, then English
    advance(0);
    const Picture picture;
    const CGFloat line = note.font().lineHeight();

    const CGRect arabic = picture.ink({0, 58, 320, line - 2});
    const CGRect english = picture.ink({0, 58 + line + 4, 320, line - 8});

    EXPECT_NEAR(arabic.maxX(), 300, 3);
    EXPECT_GT(arabic.origin.x, 200);
    EXPECT_NEAR(english.origin.x, 20, 3);
    EXPECT_LT(english.maxX(), 120);
}

TEST_F(TextView, ReplacesWhatIsSelected) {
    note.setText("abcdef"_ns);
    note.setSelectedRange({1, 3});
    note.becomeFirstResponder();
    recorder->take();

    type("X");

    EXPECT_EQ(text(), "aXef");
    EXPECT_EQ(recorder->take().front(), "change 1+3 'X'");
    EXPECT_EQ(note.selectedRange(), (NSRange{2, 0}));
}

TEST_F(TextView, NeverDividesACharacterWithItsCaret) {
    note.setText("a😀b"_ns);

    note.setSelectedRange({2, 0});

    EXPECT_EQ(note.selectedRange(), (NSRange{1, 0}));
}

TEST_F(TextView, ErasesAComposedCharacterAtOnce) {
    note.setText("a😀"_ns);
    note.becomeFirstResponder();

    key("backspace");

    EXPECT_EQ(text(), "a");
}

TEST_F(TextView, ScrollsToKeepTheCaretInSight) {
    note.becomeFirstResponder();

    type("1\n2\n3\n4\n5\n6\n7\n8");

    const CGFloat bottom = note.contentOffset().y + 100;
    EXPECT_GT(note.contentOffset().y, 0);
    EXPECT_EQ(bottom, note.contentSize().height);
}

TEST_F(TextView, IsDraggedByAFinger) {
    note.setText("1\n2\n3\n4\n5\n6\n7\n8"_ns);

    touch(Phase::Began, 100, 140);
    touch(Phase::Moved, 100, 120);
    touch(Phase::Moved, 100, 110);
    touch(Phase::Ended, 100, 110);

    EXPECT_EQ(note.contentOffset().y, 30);
    EXPECT_FALSE(note.isFirstResponder());
}

TEST_F(TextView, DoesNotBeginWhileItIsNotEditable) {
    note.setEditable(false);

    tap(30, 60);

    EXPECT_FALSE(note.isFirstResponder());
}

TEST_F(TextView, AlwaysCarriesItsTextInTheTree) {
    EXPECT_EQ(attribute(findClass("UITextView"), "text"), "");
    note.setText("a\nb"_ns);
    EXPECT_EQ(attribute(findClass("UITextView"), "text"), "a\nb");
}

TEST_F(TextView, BlinksItsCaretByTheAnimationClock) {
    note.becomeFirstResponder();
    EXPECT_EQ(attribute(findClass("UITextSelectionView"), "hidden"), "false");
    advance(0.5);
    EXPECT_EQ(attribute(findClass("UITextSelectionView"), "hidden"), "true");
    type("a");
    EXPECT_EQ(attribute(findClass("UITextSelectionView"), "hidden"), "false");
}

} // namespace
