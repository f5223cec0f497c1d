#include "tests/quorvan/CallTest.h"

#include <sstream>

namespace {

class AccountChooser : public CallTest {
protected:
    void openChooser() { touchAndWait("Account"); }
    pugi::xml_node chooser() { return CallTest::chooser("NoteAccountController"); }
    std::vector<std::string> rows() { return CallTest::rows(chooser()); }
    std::vector<std::string> marked() { return CallTest::marked(chooser()); }
    void pick(const std::string& account) { touchAndWait(account); }
    std::string shownAccount() { return shownValue(0); }
};

TEST_F(AccountChooser, HasItsPartsInOrder) {
    start();
    startNote();

    openChooser();

    const auto shown = chooser();
    expectPanel(shown, "15 171.5 290 225");
    EXPECT_EQ(layout(shown), (std::vector<std::string>{
                                 "UINavigationBar 0 0 290 44",
                                 "UITableView 0 44.5 290 180.5",
                                 "LineCreator 0 44 290 0.5",
                             }));
    EXPECT_EQ(attribute(shown.child("LineCreator"), "background"), "#c0c0c0ff");
    EXPECT_EQ(attribute(shown.child("UITableView"), "style"), "plain");
}

TEST_F(AccountChooser, LiesOverTheBackdropAndDoesNotFadeIn) {
    start();
    startNote();
    const auto before = log("animation").size();

    openChooser();

    const auto screen = chooser().parent();
    EXPECT_EQ(layout(screen), (std::vector<std::string>{"UIImageView 0 0 320 568", "UIView 15 171.5 290 225"}));
    EXPECT_EQ(attribute(screen.child("UIImageView"), "image"), "/Library/Quorvan/bg.png");
    EXPECT_EQ(attribute(screen, "title"), "Note");
    const auto animations = log("animation");
    for (std::size_t i = before; i < animations.size(); ++i) {
        EXPECT_FALSE(animations[i].at("view") == "UIView" && animations[i].at("duration") == 0.3);
    }
}

TEST_F(AccountChooser, IsCentredOnTheSmallerPhone) {
    start({.device = "iphone4", .app = "older"});
    startNote();

    openChooser();

    EXPECT_EQ(attribute(chooser(), "frame"), "15 127.5 290 225");
}

TEST_F(AccountChooser, HasABackControlSizedByItsPicture) {
    start();
    startNote();

    openChooser();

    const auto container = chooser().select_node(".//UIView[UIButton]").node();
    EXPECT_EQ(layout(container), (std::vector<std::string>{"UIButton -8 1 23 42", "UIButton 18 2 75 42"}));
    std::istringstream frame(attribute(container, "frame"));
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    frame >> x >> y >> width >> height;
    EXPECT_EQ(width, 103);
    EXPECT_EQ(height, 42);
    const auto word = container.select_node("UIButton[@text='Back']/UILabel").node();
    EXPECT_EQ(attribute(word, "textColor"), "#0079ffff");
}

TEST_F(AccountChooser, TheWordTurnsDarkUnderTheFinger) {
    start();
    startNote();
    openChooser();
    std::istringstream point(attribute(find("Back"), "touch"));
    double x = 0;
    double y = 0;
    point >> x >> y;

    touch(phone::Screen::Phase::Began, x, y);

    EXPECT_EQ(attribute(chooser().select_node(".//UIButton[@text='Back']/UILabel").node(), "textColor"), "#004088ff");
    touch(phone::Screen::Phase::Ended, x, y);
}

TEST_F(AccountChooser, WithoutTheBackPictureCannotBeLeft) {
    remove(resource("back.png"));
    remove(resource("back@2x.png"));
    start();
    startNote();

    openChooser();

    const auto container = chooser().select_node(".//UIView[UIButton]").node();
    EXPECT_EQ(layout(container), (std::vector<std::string>{"UIButton -8 1 0 0", "UIButton -5 2 75 0"}));
    EXPECT_NE(attribute(container, "frame").find(" 80 0"), std::string::npos);
    EXPECT_FALSE(find("Back").attribute("touch"));
}

TEST_F(AccountChooser, TheArrowGoesBackAsTheWordDoes) {
    start();
    startNote();
    openChooser();

    touchAndWait(chooser().select_node(".//UIButton[@frame='-8 1 23 42']").node());

    EXPECT_TRUE(panel());
    EXPECT_FALSE(chooser());
}

TEST_F(AccountChooser, GoingBackPopsFirstAndThenReloadsTheRow) {
    start();
    startNote();
    openChooser();
    pick("Mail");

    goBack();

    EXPECT_EQ(logged("navigation", "action").back(), "pop");
    EXPECT_EQ(shownAccount(), "Mail");
}

TEST_F(AccountChooser, GoingBackShowsTheNoteWhereItWas) {
    start();
    startNote();
    openChooser();

    goBack();

    EXPECT_EQ(attribute(panel(), "frame"), "15 171.5 290 225");
    EXPECT_EQ(attribute(panel(), "alpha"), "1");
}

TEST_F(AccountChooser, ListsTheStoresInTheirOrderWithNoneMarked) {
    useAccounts({{"Work", false}, {"LOCAL_NOTES_ACCOUNT", false}, {"Home", true}});
    start();
    startNote();

    openChooser();

    EXPECT_EQ(rows(), (std::vector<std::string>{"Work", "On My iPhone", "Home"}));
    EXPECT_TRUE(marked().empty());
}

TEST_F(AccountChooser, AsksForTheDefaultStoreWithEveryRow) {
    start();
    startNote();

    openChooser();

    const auto messages = logged("store", "message");
    EXPECT_EQ(std::count(messages.begin(), messages.end(), "defaultStoreForNewNote"), 2);
}

TEST_F(AccountChooser, CallsTheLocalAccountByTheDevicesNameInThePersonsLanguage) {
    start({.language = "de"});
    startNote();

    openChooser();

    EXPECT_EQ(rows(), (std::vector<std::string>{"Auf meinem iPhone", "Mail"}));
    EXPECT_TRUE(find("Zurück"));
}

TEST_F(AccountChooser, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    start();
    startNote();

    openChooser();

    EXPECT_EQ(rows().front(), "Omiphone");
    EXPECT_TRUE(find("Back"));
}

TEST_F(AccountChooser, MovesTheCheckmarkAndWritesIntoTheStoreChosenLast) {
    useAccounts({{"Home", true}, {"Work", false}, {"Mail", false}});
    start();
    startNote();
    openChooser();

    pick("Mail");
    EXPECT_EQ(marked(), (std::vector<std::string>{"Mail"}));
    pick("Home");
    EXPECT_EQ(marked(), (std::vector<std::string>{"Home"}));
    EXPECT_TRUE(chooser().select_nodes(".//*[@selected='true']").empty());
    goBack();

    EXPECT_EQ(shownAccount(), "Home");
    typeNote("milk");
    done();
    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].store, "Home");
}

TEST_F(AccountChooser, KeepsTheChoiceForTheNextNoteThoughTheRowSaysDefault) {
    start();
    startNote();
    openChooser();
    pick("Mail");
    goBack();
    cancel();

    openSheet();
    openNote();

    EXPECT_EQ(shownAccount(), "Default");
    typeNote("milk");
    done();
    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].store, "Mail");
}

TEST_F(AccountChooser, OpenedAgainMarksNothingUntilARowIsPicked) {
    start();
    startNote();
    openChooser();
    pick("Mail");
    goBack();

    openChooser();
    EXPECT_TRUE(marked().empty());
    pick("On My iPhone");

    EXPECT_EQ(marked(), (std::vector<std::string>{"On My iPhone"}));
    goBack();
    EXPECT_EQ(shownAccount(), "On My iPhone");
}

TEST_F(AccountChooser, WithoutAnyChoiceTheDefaultStoreIsUsedWhereverItStands) {
    useAccounts({{"Home", false}, {"Work", false}, {"Mail", true}});
    start();
    startNote();
    typeNote("milk");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].store, "Mail");
}

TEST_F(AccountChooser, WithoutAccountsIsEmptyAndTheNoteIsLostInSilence) {
    useAccounts({});
    start();
    startNote();

    openChooser();
    EXPECT_TRUE(rows().empty());
    goBack();
    typeNote("milk");
    done();

    EXPECT_TRUE(notes().empty());
    EXPECT_EQ(logged("finish", "completed"), (std::vector<std::string>{"true"}));
}

TEST_F(AccountChooser, WithoutADefaultStoreAnUnchosenNoteIsLostAndAChosenOneSaved) {
    useAccounts({{"Home", false}, {"Work", false}});
    start();
    startNote();
    typeNote("lost");
    done();
    EXPECT_TRUE(notes().empty());

    openSheet();
    openNote();
    openChooser();
    pick("Work");
    goBack();
    typeNote("milk");
    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].store, "Work");
}

TEST_F(AccountChooser, ScrollsWhenMoreAccountsThanFitAndReusesTheirCells) {
    std::vector<phone::NotesAccount> accounts;
    for (int i = 0; i < 12; ++i) {
        accounts.push_back({"Account " + std::to_string(i), i == 0});
    }
    useAccounts(accounts);
    start();
    startNote();
    openChooser();
    pick("Account 0");
    EXPECT_LT(rows().size(), 12U);

    for (int i = 0; i < 6; ++i) {
        touch(phone::Screen::Phase::Began, 160, 370);
        touch(phone::Screen::Phase::Moved, 160, 300);
        touch(phone::Screen::Phase::Moved, 160, 230);
        touch(phone::Screen::Phase::Ended, 160, 230);
        settle();
    }
    pick("Account 11");

    // The first row's cell lost its row, so nobody took its checkmark away: whoever reuses it shows it.
    goBack();
    EXPECT_EQ(shownAccount(), "Account 11");
    typeNote("milk");
    done();
    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].store, "Account 11");
}

TEST_F(AccountChooser, LeavesNoKeyboardBehind) {
    turnOn({1});
    start();
    startNote();
    ASSERT_GT(countClass("UIKeyboardView"), 0);

    openChooser();

    EXPECT_TRUE(tree().select_nodes("//UIKeyboardView[@visible='true']").empty());
    EXPECT_EQ(attribute(chooser(), "frame"), "15 171.5 290 225");
}

} // namespace
