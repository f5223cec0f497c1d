// What the platform may tell the note screen at any moment, told here by itself: messages whose work a touch alone
// would not show, since the platform does a part of it too.

#include "platform/foundation/NSNotification.h"
#include "platform/foundation/NSNumber.h"
#include "platform/uikit/UIKeyboard.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"
#include "tests/quorvan/CallTest.h"
#include "tests/quorvan/Messages.h"
#include "tests/quorvan/Screens.h"

namespace {

using Texts = std::vector<std::string>;

class NoteTold : public CallTest {
protected:
    void startWithTitle(const std::string& device = "iphone5") {
        turnOn({3});
        start({.device = device});
        startNote();
    }
    static UIViewController screen() { return screenAt(0); }
    /// The text and the title field of the panel on the screen.
    template <class View>
    static View input() {
        const NSArray built = screen().view().subviews();
        const auto panel = built.at<UIView>(built.count() - 1);
        for (const auto& view : panel.subviews()) {
            if (objc::isKind<View>(view)) {
                return objc::as<View>(view);
            }
        }
        return nullptr;
    }
    std::string panelFrame() { return attribute(panel(), "frame"); }
    /// A keyboard of this height, told by the message itself or by who registered for it.
    static NSDictionary keyboardInfo(CGFloat height) {
        const auto info = objc::make<NSMutableDictionary>();
        info.set(NSValue::withCGRect({0, 0, 320, height}), objc::borrow<NSString>(UIKeyboardFrameBeginUserInfoKey));
        return info;
    }
    void tellKeyboardOf(CGFloat height) {
        run([&] {
            screen().send<"registerForKeyboardNotifications">();
            NSNotificationCenter::defaultCenter().post(objc::borrow<NSString>(UIKeyboardDidShowNotification), nullptr,
                                                       keyboardInfo(height));
        });
        settle();
    }
    bool turns(UIInterfaceOrientation orientation) {
        bool answer = false;
        run([&] { answer = screen().send<"shouldAutorotateToInterfaceOrientation:", bool>(orientation); });
        return answer;
    }
    /// The animations by this name: "duration curve".
    Texts moves(const std::string& name) {
        Texts found;
        for (const auto& entry : log("animation")) {
            if (entry.at("name") == name) {
                found.push_back(entry.at("duration").dump() + " " + entry.at("curve").dump());
            }
        }
        return found;
    }
};

} // namespace

TEST_F(NoteTold, ThatAKeyboardWasShownRisesAboveItsWholeHeight) {
    start();
    startNote();

    tellKeyboardOf(300);

    EXPECT_EQ(panelFrame(), "15 21.5 290 225"); // the middle of 568 - 300 points
    EXPECT_EQ(moves("noteView"), (Texts{"0.27 1"}));
}

TEST_F(NoteTold, ThatAKeyboardWasShownStaysWhereItIsOnATablet) {
    start({.device = "ipad"});
    startNote();
    const std::string before = panelFrame();

    tellKeyboardOf(300);

    EXPECT_EQ(panelFrame(), before);
    EXPECT_EQ(moves("noteView"), Texts{});
}

TEST_F(NoteTold, NothingOfKeyboardsUnlessItRegisters) {
    start();
    startNote();

    run([] {
        NSNotificationCenter::defaultCenter().post(objc::borrow<NSString>(UIKeyboardDidShowNotification), nullptr,
                                                   keyboardInfo(300));
    });
    settle();

    EXPECT_EQ(panelFrame(), "15 171.5 290 225");
}

TEST_F(NoteTold, NothingOfKeyboardsOnceItIsGone) {
    start();
    startNote();
    run([] { screen().send<"registerForKeyboardNotifications">(); });
    cancel();
    openSheet();
    openNote();

    run([] {
        NSNotificationCenter::defaultCenter().post(objc::borrow<NSString>(UIKeyboardDidShowNotification), nullptr,
                                                   keyboardInfo(300));
    });
    settle();

    EXPECT_EQ(panelFrame(), "15 171.5 290 225");
}

TEST_F(NoteTold, ThatEditingBeginsTakesTheKeyboardAndTheDelegatesPlace) {
    start();
    startNote();

    run([] {
        const auto text = input<UITextView>();
        text.setDelegate(nullptr);
        screen().send<"textViewDidBeginEditing:">(text);
    });
    settle();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    type("milk\n");
    EXPECT_EQ(shownText(), "milk\n");
    run([] {
        EXPECT_EQ(Messages::described(input<UITextView>().send<"delegate", objc::Object>().raw()), "NoteController");
    });
}

TEST_F(NoteTold, ThatEditingEndsGivesTheKeyboardUpAndTakesTheDelegatesPlace) {
    start();
    startNote();
    typeNote("milk");

    run([] {
        const auto text = input<UITextView>();
        text.setDelegate(nullptr);
        screen().send<"textViewDidEndEditing:">(text);
    });
    settle();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "false");
    run([] {
        EXPECT_EQ(Messages::described(input<UITextView>().send<"delegate", objc::Object>().raw()), "NoteController");
    });
}

// What its loading built; a row that is tapped would hide it besides.
TEST_F(NoteTold, ThatItWillAppearHidesWhatWasBuiltBefore) {
    start();

    startNote();

    const auto views = panel().parent().select_nodes("*");
    ASSERT_EQ(views.size(), 4U);
    for (std::size_t i = 0; i < views.size(); ++i) {
        EXPECT_EQ(attribute(views[i].node(), "hidden"), i + 2 < views.size() ? "true" : "false") << i;
    }
}

TEST_F(NoteTold, ThatARowIsTappedHidesEverythingAtOnce) {
    start();
    startNote();

    tapOn("Account");

    const auto root = tree().select_node("//*[@controller='NoteController']").node();
    ASSERT_TRUE(root.first_child());
    for (const auto& view : root.children()) {
        EXPECT_EQ(attribute(view, "hidden"), "true") << view.name();
    }
    settle();
}

TEST_F(NoteTold, ThatItHasTurnedKeepsWhatWasWrittenSinceItBeganTo) {
    startWithTitle("ipad");

    run([] {
        const auto text = input<UITextView>();
        const auto title = input<UITextField>();
        screen().send<"willRotateToInterfaceOrientation:duration:">(UIInterfaceOrientation::LandscapeLeft, 0.4);
        text.setText(NSString::utf8("eggs"));
        title.setText(NSString::utf8("Shopping"));
        screen().send<"didRotateFromInterfaceOrientation:">(UIInterfaceOrientation::Portrait);
    });
    settle();

    EXPECT_EQ(shownText(), "eggs");
    EXPECT_EQ(shownTitle(), "Shopping");
}

TEST_F(NoteTold, ThatItTurnsDoesNothingOnAPhone) {
    startWithTitle();
    typeNote("milk");
    const auto before = panel().parent().select_nodes("*").size();

    run([] {
        screen().send<"willRotateToInterfaceOrientation:duration:">(UIInterfaceOrientation::LandscapeLeft, 0.4);
        screen().send<"didRotateFromInterfaceOrientation:">(UIInterfaceOrientation::Portrait);
    });
    settle();

    EXPECT_EQ(panel().parent().select_nodes("*").size(), before);
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(shownText(), "milk");
}

TEST_F(NoteTold, ThatItsTitleIsLeftGivesTheKeyboardUp) {
    startWithTitle();
    typeTitle("Shopping");

    run([] { EXPECT_TRUE((screen().send<"textFieldShouldReturn:", bool>(input<UITextField>()))); });
    settle();

    EXPECT_EQ(attribute(titleField(), "firstResponder"), "false");
    EXPECT_EQ(panelFrame(), "15 171.5 290 225");
}

TEST_F(NoteTold, ToLetATextChangeItAlwaysDoes) {
    start();
    startNote();

    run([] {
        for (const char* replacement : {"", "\n", "milk"}) {
            EXPECT_TRUE((screen().send<"textView:shouldChangeTextInRange:replacementText:", bool>(
                input<UITextView>(), NSRange{0, 0}, NSString::utf8(replacement))))
                << replacement;
        }
    });
}

TEST_F(NoteTold, ToTurnItDoesOnATablet) {
    start({.device = "ipad"});
    startNote();

    EXPECT_TRUE(turns(UIInterfaceOrientation::Portrait));
    EXPECT_TRUE(turns(UIInterfaceOrientation::LandscapeLeft));
}

TEST_F(NoteTold, ToTurnItDoesNotOnAPhone) {
    start();
    startNote();

    EXPECT_FALSE(turns(UIInterfaceOrientation::Portrait));
    EXPECT_FALSE(turns(UIInterfaceOrientation::LandscapeLeft));
}
