// The note on the tablet, and on devices that are neither a phone nor a tablet.

#include "platform/uikit/UIApplication.h"
#include "tests/quorvan/CallTest.h"

namespace {

using Lines = std::vector<std::string>;

class TabletNote : public CallTest {
protected:
    void startTablet(const std::string& language = "en") {
        start({.device = "ipad", .app = "newer", .language = language});
        startNote();
    }
    void turn(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
    }
    /// "Class frame" of every view of the panel, in order.
    static Lines layoutOf(const pugi::xml_node& panel) {
        Lines lines;
        for (const auto& child : panel.children()) {
            lines.push_back(std::string(child.name()) + " " + child.attribute("frame").value());
        }
        return lines;
    }
    std::string panelFrame() { return attribute(panel(), "frame"); }
    /// The root view of the note screen or of the chooser.
    pugi::xml_node screenOf(const std::string& controller) {
        return tree().select_node(("//*[@controller='" + controller + "']").c_str()).node();
    }
    /// The panel of the account chooser.
    pugi::xml_node chooser() { return screenOf("NoteAccountController").child("UIView"); }
    /// The last animation of this name, for its duration and curve.
    nlohmann::ordered_json lastMove(const std::string& name) {
        nlohmann::ordered_json last;
        for (const auto& entry : log("animation")) {
            last = entry.at("name") == name ? entry : last;
        }
        return last;
    }
};

TEST_F(TabletNote, HasItsPartsInOrderWithoutATitle) {
    startTablet();

    EXPECT_EQ(layoutOf(panel()), (Lines{
                                     "UINavigationBar 0 0 538 44",
                                     "UITextView 0 45 538 162",
                                     "UITableView 0 206 538 44",
                                     "LineCreator 0 205 538 1",
                                     "LineCreator 0 44 538 1",
                                 }));
}

TEST_F(TabletNote, HasItsPartsInOrderWithATitle) {
    turnOn({3});
    startTablet();

    EXPECT_EQ(layoutOf(panel()), (Lines{
                                     "UINavigationBar 0 0 538 44",
                                     "LineCreator 14 80.4375 524 1",
                                     "UITextField 15 55.8125 523 23.625",
                                     "UITextView 0 81.4375 538 162",
                                     "UITableView 0 206 538 44",
                                     "LineCreator 0 205 538 1",
                                     "LineCreator 0 44 538 1",
                                 }));
}

TEST_F(TabletNote, IsCentredOnItsBackdropInAllOrientations) {
    startTablet();

    EXPECT_EQ(panelFrame(), "115 387 538 250");
    EXPECT_EQ(attribute(panel().previous_sibling(), "frame"), "0 0 768 1024");
    for (const char* lying : {"LANDSCAPE_LEFT", "LANDSCAPE_RIGHT"}) {
        turn(lying);
        EXPECT_EQ(panelFrame(), "243 259 538 250") << lying;
        EXPECT_EQ(attribute(panel(), "screen"), "243 259 538 250") << lying;
        EXPECT_EQ(attribute(panel().previous_sibling(), "frame"), "0 0 1024 768") << lying;
    }
    turn("UPSIDE_DOWN");
    EXPECT_EQ(attribute(panel(), "screen"), "115 387 538 250");
}

TEST_F(TabletNote, OpensLyingWhenTheCallWasTurnedBefore) {
    start({.device = "ipad"});
    startCall();
    turn("LANDSCAPE_LEFT");
    openSheet();
    openNote();

    EXPECT_EQ(attribute(panel(), "screen"), "243 259 538 250");
    EXPECT_EQ(attribute(screenOf("NoteController"), "frame"), "0 0 1024 768");
}

TEST_F(TabletNote, StaysWhereItIsWhenTheTextIsTouchedInPortrait) {
    startTablet();

    touchAndWait(noteText());

    EXPECT_EQ(panelFrame(), "115 387 538 250");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(shownText(), "");
    EXPECT_TRUE(lastMove("noteView").is_null());
}

TEST_F(TabletNote, RisesAboveTheKeyboardWhenTheTextIsTouchedLying) {
    for (const char* lying : {"LANDSCAPE_LEFT", "LANDSCAPE_RIGHT"}) {
        if (!isStarted()) {
            startTablet();
        }
        turn(lying);

        touchAndWait(noteText());

        EXPECT_EQ(panelFrame(), "243 83 538 250") << lying; // the centre of 1024 × (768 − 352)
        EXPECT_EQ(lastMove("noteView").at("duration"), 0.27);
        EXPECT_EQ(lastMove("noteView").at("curve"), 1);
    }
}

TEST_F(TabletNote, RisesByTheAllowanceForALyingKeyboardUpsideDownToo) {
    startTablet();
    turn("UPSIDE_DOWN");

    touchAndWait(noteText());

    EXPECT_EQ(panelFrame(), "115 211 538 250"); // the centre of 768 × (1024 − 352)
}

TEST_F(TabletNote, SinksWhenTheKeyboardIsPutAwayLying) {
    startTablet();
    turn("LANDSCAPE_LEFT");
    touchAndWait(noteText());

    boot().hideKeyboard();
    settle();

    EXPECT_EQ(panelFrame(), "243 259 538 250");
    EXPECT_EQ(shownText(), "  Note");
}

TEST_F(TabletNote, StaysWhereItIsWhenTheTitleIsTouchedInPortrait) {
    turnOn({3});
    startTablet();

    touchAndWait(titleField());

    EXPECT_EQ(panelFrame(), "115 387 538 250");
    EXPECT_EQ(attribute(titleField(), "firstResponder"), "true");
}

TEST_F(TabletNote, GoesToTheTopWhenTheTitleIsTouchedInAnyOtherOrientation) {
    turnOn({3});
    startTablet();

    turn("LANDSCAPE_LEFT");
    touchAndWait(titleField());
    EXPECT_EQ(panelFrame(), "243 20.6 538 250");
    EXPECT_EQ(lastMove("theBox").at("duration"), 0.27);
    EXPECT_EQ(lastMove("theBox").at("curve"), 1);
    turn("UPSIDE_DOWN");
    touchAndWait(titleField());
    EXPECT_EQ(panelFrame(), "115 20.6 538 250");
    turn("LANDSCAPE_RIGHT");
    touchAndWait(titleField());
    EXPECT_EQ(panelFrame(), "243 20.6 538 250");
}

TEST_F(TabletNote, GoesBackToTheMiddleByTheDoneKeyOfTheTitle) {
    turnOn({3});
    startTablet();
    turn("LANDSCAPE_RIGHT");
    touchAndWait(titleField());

    key("enter");
    settle();

    EXPECT_EQ(panelFrame(), "243 259 538 250");
    EXPECT_EQ(attribute(titleField(), "firstResponder"), "false");
}

TEST_F(TabletNote, KeepsWhatIsTypedWhenItIsTurned) {
    turnOn({3});
    startTablet();
    typeTitle("Shopping");
    typeNote("milk\n  eggs 🥚");

    for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT", "PORTRAIT"}) {
        turn(held);
        EXPECT_EQ(shownText(), "milk\n  eggs 🥚") << held;
        EXPECT_EQ(shownTitle(), "Shopping") << held;
        EXPECT_EQ(attribute(noteText(), "textColor"), "#000000ff") << held;
        EXPECT_EQ(attribute(noteText(), "firstResponder"), "false") << held;
    }
}

TEST_F(TabletNote, KeepsTheTitleThatIsBeingTypedWhenItIsTurned) {
    turnOn({3});
    startTablet();
    typeTitle("Shop");

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(shownTitle(), "Shop");
    EXPECT_EQ(shownText(), "  Note");
    EXPECT_EQ(attribute(findClass("UITextEffectsWindow"), "hidden"), "true");
}

TEST_F(TabletNote, ShowsThePlaceholderAgainWhenAnEmptyTextIsTurned) {
    startTablet();
    touchAndWait(noteText());

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(shownText(), "  Note");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
}

TEST_F(TabletNote, IsBuiltAnewWhenItIsTurned) {
    startTablet();

    turn("LANDSCAPE_LEFT");

    const auto screen = screenOf("NoteController");
    EXPECT_EQ(layoutOf(screen), (Lines{"UIImageView 0 0 1024 768", "UIView 243 259 538 250"}));
}

TEST_F(TabletNote, IsWrittenAfterItWasTurnedWhileTyping) {
    startTablet();
    typeNote("milk");
    turn("LANDSCAPE_LEFT");
    typeNote(" and eggs");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes().front().title, "milk and eggs");
}

TEST_F(TabletNote, ReturnsToTheCallInTheOrientationOfTheDevice) {
    startTablet();
    turn("LANDSCAPE_LEFT");

    cancel();

    EXPECT_FALSE(panel());
    EXPECT_EQ(attribute(screenOf("PHCallViewController"), "screen"), "0 0 1024 768");
    openSheet();
    EXPECT_TRUE(isVisible("Note"));
}

// The account chooser

TEST_F(TabletNote, ChoosesItsAccountOnAPanelOfItsOwnSize) {
    startTablet();

    touchAndWait("Account");

    EXPECT_EQ(attribute(chooser(), "frame"), "115 387 538 250");
    EXPECT_EQ(layoutOf(chooser()), (Lines{
                                       "UINavigationBar 0 0 538 44",
                                       "UITableView 0 45 538 205",
                                       "LineCreator 0 44 538 1",
                                   }));
    EXPECT_EQ(attribute(screenOf("NoteAccountController").child("UIImageView"), "frame"), "0 0 768 1024");
}

TEST_F(TabletNote, ChoosesItsAccountInTheMiddleLying) {
    startTablet();
    turn("LANDSCAPE_RIGHT");

    touchAndWait("Account");

    EXPECT_EQ(attribute(chooser(), "screen"), "243 259 538 250");
    EXPECT_EQ(attribute(screenOf("NoteAccountController").child("UIImageView"), "screen"), "0 0 1024 768");
}

TEST_F(TabletNote, SwapsTheSizesOfTheAccountChooserUpsideDownAsDesigned) {
    startTablet();
    turn("UPSIDE_DOWN");

    touchAndWait("Account");

    EXPECT_EQ(attribute(screenOf("NoteAccountController").child("UIImageView"), "frame"), "0 0 1024 768");
    EXPECT_EQ(attribute(chooser(), "frame"), "243 259 538 250");
}

TEST_F(TabletNote, BuildsTheAccountChooserAnewWhenItIsTurned) {
    startTablet();
    touchAndWait("Account");

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(layoutOf(screenOf("NoteAccountController")),
              (Lines{"UIImageView 0 0 1024 768", "UIView 243 259 538 250"}));
    touchAndWait("Mail");
    touchAndWait("Back");
    EXPECT_TRUE(panel().select_node(".//UILabel[@text='Mail']"));
    EXPECT_EQ(attribute(panel(), "screen"), "243 259 538 250");
}

TEST_F(TabletNote, KeepsWhatIsTypedWhenTheAccountChooserIsTurned) {
    turnOn({3});
    startTablet();
    typeTitle("Shopping");
    typeNote("milk");
    touchAndWait("Account");

    turn("LANDSCAPE_LEFT");
    touchAndWait("Back");

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(shownTitle(), "Shopping");
}

TEST_F(TabletNote, NamesTheDevicesOwnAccountAfterTheTablet) {
    startTablet();

    touchAndWait("Account");

    EXPECT_TRUE(isVisible("On My iPad"));
}

TEST_F(TabletNote, NamesTheDevicesOwnAccountAfterTheTabletInGerman) {
    startTablet("de");

    touchAndWait("Account");

    EXPECT_TRUE(isVisible("Auf meinem iPad"));
}

TEST_F(TabletNote, HasItsPartsInTheOlderApplicationToo) {
    start({.device = "ipad", .app = "older"});
    startNote();

    EXPECT_EQ(panelFrame(), "115 387 538 250");
    turn("LANDSCAPE_LEFT");
    EXPECT_EQ(attribute(panel(), "screen"), "243 259 538 250");
}

// Other devices

class OtherNote : public TabletNote {};

TEST_F(OtherNote, LooksAsOnAPhone) {
    start({.device = "other"});
    startNote();

    EXPECT_EQ(panelFrame(), "15 171.5 290 225");
    EXPECT_EQ(attribute(noteText(), "frame"), "0 44.5 290 137.5");
}

TEST_F(OtherNote, HasANameOfItsOwnForItsAccount) {
    start({.device = "other"});
    startNote();

    touchAndWait("Account");

    EXPECT_TRUE(isVisible("On My iPod touch"));
}

TEST_F(OtherNote, IsAPhoneWhereTheDeviceCannotSayWhatItIs) {
    withholdIdiom();
    start({.device = "iphone4", .app = "older"});
    startNote();

    EXPECT_EQ(panelFrame(), "15 127.5 290 225");
    touchAndWait(noteText());
    EXPECT_EQ(panelFrame(), "15 19.5 290 225");
    touchAndWait("Account");
    EXPECT_TRUE(isVisible("On My iPhone"));
}

TEST_F(OtherNote, IsAPhonesNoteOnATabletThatCannotSayWhatItIs) {
    withholdIdiom();
    start({.device = "ipad"});
    startNote();

    EXPECT_EQ(panelFrame(), "239 399.5 290 225");
    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(UIApplication::shared().statusBarOrientation(), UIInterfaceOrientation::LandscapeRight);
    EXPECT_EQ(panelFrame(), "239 399.5 290 225"); // it turns with the screen around it, and is not built anew
}

TEST_F(OtherNote, StaysUprightOnAPhoneThatIsTurned) {
    start();
    startNote();
    typeNote("milk");

    turn("LANDSCAPE_LEFT");

    EXPECT_EQ(panelFrame(), "15 63.5 290 225");
    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(tree().child("screen"), "orientation"), "LANDSCAPE_LEFT");
}

} // namespace
