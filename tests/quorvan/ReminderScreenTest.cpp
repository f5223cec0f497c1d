#include "tests/quorvan/ReminderScreenTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using Texts = std::vector<std::string>;

class ReminderScreen : public ReminderScreenTest {};

} // namespace

TEST_F(ReminderScreen, HasItsPartsInOrder) {
    start();
    startReminder();

    const auto shown = panel();
    expectPanel(shown, "15 149 290 270");
    EXPECT_EQ(layout(shown), (Texts{
                                 "UINavigationBar 0 0 290 44",
                                 "UITextView 0 44 290 94.5",
                                 "UITableView 0 139.5 290 174.5",
                                 "LineCreator 0 139 290 0.5",
                                 "LineCreator 0 44 290 0.5",
                             }));
    for (const auto& line : shown.children("LineCreator")) {
        EXPECT_EQ(attribute(line, "background"), "#c0c0c0ff");
    }
    EXPECT_EQ(attribute(shown.child("UITableView"), "style"), "plain");
    EXPECT_EQ(attribute(shown.child("UITableView"), "scrollEnabled"), "false");
}

TEST_F(ReminderScreen, ShowsItsTextAsAGreyPlaceholder) {
    start();
    startReminder();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
    EXPECT_EQ(attribute(noteText(), "font"), "system 17");
    EXPECT_EQ(attribute(noteText(), "returnKey"), "done");
}

TEST_F(ReminderScreen, LiesOverTheBackdropAndDoesNotFadeIn) {
    start();
    startCall();
    openSheet();
    const auto before = log("animation").size();

    openReminder();

    EXPECT_EQ(layout(screen()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
    EXPECT_EQ(attribute(screen().child("UIImageView"), "image"), "/Library/Quorvan/bg.png");
    EXPECT_EQ(attribute(screen(), "controller"), "ReminderController");
    EXPECT_EQ(attribute(screen(), "title"), "Reminder");
    const auto animations = log("animation");
    for (std::size_t i = before; i < animations.size(); ++i) {
        EXPECT_NE(animations[i].at("duration"), 0.3) << animations[i].dump();
    }
}

TEST_F(ReminderScreen, IsCentredOnTheSmallerPhone) {
    start({.device = "iphone4", .app = "older"});
    startReminder();

    EXPECT_EQ(attribute(panel(), "frame"), "15 105 290 270");
}

TEST_F(ReminderScreen, IsAsSmallOnATablet) {
    start({.device = "ipad"});
    startReminder();

    EXPECT_EQ(attribute(panel(), "frame"), "239 377 290 270");
    EXPECT_EQ(attribute(panel().child("LineCreator"), "frame"), "0 139 290 0.5");
}

TEST_F(ReminderScreen, HasABarOfItsOwnBetweenCancelAndDone) {
    start();
    startReminder();

    const auto bar = panel().child("UINavigationBar");
    EXPECT_TRUE(bar.select_node("UILabel[@text='Reminder']"));
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Cancel']"));
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Done']"));
    EXPECT_EQ(attribute(tree().select_node("//UINavigationBar[@frame='0 20 320 44']").node(), "hidden"), "true");
}

TEST_F(ReminderScreen, ShowsTheDefaultsOfItsRows) {
    start();
    startReminder();

    EXPECT_EQ(rows(panel()), (Texts{"List", "Remind me", "Priority"}));
    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
}

TEST_F(ReminderScreen, SpeaksThePersonsLanguage) {
    start({.language = "de"});
    startReminder();

    EXPECT_EQ(shownText(), "  Beschreibung");
    EXPECT_EQ(rows(panel()), (Texts{"Liste", "Erinnern", "Priorität"}));
    EXPECT_EQ(values(), (Texts{"Liste", "Nie", "Keine"}));
    EXPECT_TRUE(find("Abbrechen"));
    EXPECT_TRUE(find("Fertig"));
}

TEST_F(ReminderScreen, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    start();
    startReminder();

    EXPECT_EQ(shownText(), "  Description");
    EXPECT_EQ(rows(panel()), (Texts{"List", "Remind me", "Priority"}));
    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
}

TEST_F(ReminderScreen, MissingPicturesLeaveEmptyOnes) {
    for (const char* name : {"bg", "arrow"}) {
        remove(resource(std::string(name) + ".png"));
        remove(resource(std::string(name) + "@2x.png"));
    }
    start();
    startReminder();

    EXPECT_EQ(attribute(screen().child("UIImageView"), "frame"), "0 0 320 568");
    EXPECT_FALSE(screen().child("UIImageView").attribute("image"));
    EXPECT_EQ(attribute(accessory(0).child("UIImageView"), "frame"), "110 8.5 7 10.5");
}

TEST_F(ReminderScreen, ARowShowsItsValueAndAnArrow) {
    start();
    startReminder();

    for (int row = 0; row < 3; ++row) {
        const auto shown = accessory(row);
        EXPECT_EQ(attribute(shown, "frame"), "158 8 117 28");
        EXPECT_EQ(attribute(shown, "background"), "#00000000");
        EXPECT_EQ(layout(shown), (Texts{"UILabel 0 5 108 17", "UIImageView 110 8.5 7 10.5"}));
        EXPECT_EQ(attribute(shown.child("UILabel"), "font"), "system 14");
        EXPECT_EQ(attribute(shown.child("UILabel"), "align"), "right");
        EXPECT_EQ(attribute(shown.child("UILabel"), "textColor"), "#c0c0c0ff");
        EXPECT_EQ(attribute(shown.child("UIImageView"), "image"), "/Library/Quorvan/arrow.png");
    }
}

TEST_F(ReminderScreen, ARowsValueReadsAnotherWordUntilItsNameIsThere) {
    start();
    startCall();
    openSheet();
    overhear<"UILabel", "setText:", void, id>();

    openReminder();

    const Texts told = heardOf({"UILabel setText:"});
    const auto row = std::find(told.begin(), told.end(), "UILabel setText: Remind me");
    ASSERT_NE(row, told.end());
    EXPECT_EQ(*(row - 1), "UILabel setText: Account");
    EXPECT_EQ(*(row + 1), "UILabel setText: Never");
}

TEST_F(ReminderScreen, ValuesKeepTheFontThatLabelsHave) {
    start();
    useBoldLabels();

    startReminder();

    EXPECT_EQ(attribute(accessory(1).child("UILabel"), "font"), "system-bold 14");
}

TEST_F(ReminderScreen, ARowHidesThePanelUntilItsChooserIsLeft) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();

    for (const char* row : {"List", "Remind me", "Priority"}) {
        SCOPED_TRACE(row);
        touchAndWait(row);

        EXPECT_FALSE(panel());
        EXPECT_TRUE(find("Back"));
        goBack();
        EXPECT_EQ(attribute(panel(), "frame"), "15 149 290 270");
        EXPECT_EQ(attribute(screen().child("UIImageView"), "hidden"), "false");
        EXPECT_TRUE(panel().select_nodes(".//*[@selected='true']").empty());
    }
}

TEST_F(ReminderScreen, EachRowOpensItsChooser) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();

    touchAndWait("List");
    EXPECT_TRUE(chooser("ReminderList"));
    goBack();
    touchAndWait("Remind me");
    EXPECT_TRUE(chooser("ReminderDate"));
    goBack();
    touchAndWait("Priority");
    EXPECT_TRUE(chooser("ReminderPriority"));
}

TEST_F(ReminderScreen, CancelFadesThePanelAndEndsTheActivityUnsaved) {
    start();
    startReminder();
    typeNote("milk");
    const auto before = log("animation").size();

    tapOn("Cancel");

    const auto fade = log("animation").at(before);
    EXPECT_EQ(fade.at("duration"), 0.3);
    EXPECT_EQ(fade.at("delay"), 0);
    EXPECT_EQ(fade.at("options"), 2);
    EXPECT_EQ(fade.at("view"), "UIView");
    EXPECT_TRUE(log("finish").empty());
    settle();
    EXPECT_EQ(logged("finish", "class"), (Texts{"ReminderMake"}));
    EXPECT_EQ(logged("finish", "completed"), (Texts{"true"}));
    EXPECT_TRUE(log("store").empty());
    EXPECT_TRUE(reminders().empty());
    EXPECT_FALSE(panel());
    EXPECT_TRUE(isVisible("mute"));
}

TEST_F(ReminderScreen, CanReloadItsRowsWhenAsked) {
    start();
    startReminder();

    run([] {
        const auto root = UIApplication::shared().keyWindow().rootViewController();
        const auto navigation =
            objc::as<UINavigationController>(root.presentedViewController().presentedViewController());
        navigation.topViewController().send<"returnMethod">();
    });
    settle();

    EXPECT_EQ(values(), (Texts{"List", "Never", "None"}));
    EXPECT_TRUE(log("exception").empty());
}

TEST_F(ReminderScreen, ACallThatEndsWhileAnyOfItsScreensIsOpenLosesNothing) {
    useReminders(phone::Access::Allow);
    start();
    std::size_t saved = 0;

    for (const char* row : {"", "List", "Remind me", "Priority"}) {
        SCOPED_TRACE(row);
        startReminder();
        typeNote("milk");
        if (*row != '\0') {
            touchAndWait(row);
        }

        phoneCall("cancel");
        advance(5);
        if (*row != '\0') {
            goBack();
        }
        EXPECT_EQ(shownText(), "milk");
        done();
        advance(5);

        EXPECT_EQ(reminders().size(), ++saved);
        EXPECT_FALSE(panel());
        EXPECT_FALSE(isVisible("mute"));
    }
}
