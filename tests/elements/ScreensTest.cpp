// What a tester's program meets on the phone's own screens.

#include "phone/elements/AccessibilityTree.h"
#include "phone/elements/Find.h"
#include "phone/elements/Source.h"
#include "tests/quorvan/CallTest.h"

#include <gmock/gmock.h>

using phone::webdriver::AccessibilityTree;
using phone::webdriver::Element;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

namespace {

using Names = std::vector<std::string>;

class Screens : public CallTest {
protected:
    const AccessibilityTree& look() {
        _tree = std::make_unique<AccessibilityTree>(boot().tree(true), "Phone");
        return *_tree;
    }
    std::vector<Element> all(const std::string& strategy, const std::string& value) {
        return phone::webdriver::find(look().application(), strategy, value);
    }
    /// The first; fails the test when there is none.
    Element one(const std::string& strategy, const std::string& value) {
        const auto found = all(strategy, value);
        EXPECT_FALSE(found.empty()) << strategy << ": " << value << "\n" << descriptionSource(_tree->application());
        return found.empty() ? Element() : found[0];
    }
    Element named(const std::string& name) { return one("accessibility id", name); }
    Names labels(const std::string& type) {
        Names labels;
        for (const Element& element : all("class name", type)) {
            labels.push_back(element.label().value_or(""));
        }
        return labels;
    }

private:
    std::unique_ptr<AccessibilityTree> _tree;
};

} // namespace

TEST_F(Screens, ShowTheCallsButtons) {
    start();
    startCall();

    EXPECT_EQ(look().application().children().size(), 1U);
    EXPECT_THAT(labels("Button"), ElementsAre("mute", "keypad", "speaker", "add call", "hold", "contacts", "End"));
    EXPECT_EQ(named("mute").type(), "XCUIElementTypeButton");
    EXPECT_TRUE(named("mute").isEnabled());
    EXPECT_TRUE(named("mute").isHittable());
    EXPECT_TRUE(named("mute").isAccessible());
    EXPECT_FALSE(named("add call").isEnabled());
    EXPECT_EQ(named("add call").traits(), "Button, NotEnabled");
    EXPECT_EQ(named("mute").value(), std::nullopt);

    tapOn("mute");

    EXPECT_EQ(named("mute").value(), "1");
    EXPECT_EQ(named("mute").traits(), "Button, Selected");
}

TEST_F(Screens, ShowTheKeypadWithoutMakingAButtonOfIt) {
    start();
    startCall();
    touchAndWait("keypad");

    EXPECT_THAT(labels("Button"), IsSupersetOf(Names{"1", "5", "#", "Hide"}));
    EXPECT_EQ(named("5").type(), "XCUIElementTypeButton");
}

TEST_F(Screens, ShowTheSheetsTilesAsButtons) {
    start();
    startCall();
    openSheet();

    const Element note = named("Note");
    EXPECT_EQ(note.type(), "XCUIElementTypeButton");
    EXPECT_TRUE(note.isHittable());
    EXPECT_TRUE(note.isAccessible());
    EXPECT_THAT(labels("Button"), IsSupersetOf(Names{"Note", "Reminder", "Event", "Cancel"}));
}

TEST_F(Screens, ShowTheNoteWithItsFieldsAndRow) {
    writePreferences({{"SwitchCell3", true}});
    start();
    startNote();

    EXPECT_EQ(one("class name", "TextField").placeholder(), "Title");
    EXPECT_EQ(one("class name", "TextField").value(), "Title");
    EXPECT_EQ(one("class name", "TextView").value(), "  Note");
    EXPECT_EQ(one("class name", "NavigationBar").name(), "Note");
    EXPECT_EQ(one("xpath", "//XCUIElementTypeNavigationBar/XCUIElementTypeStaticText").traits(), "StaticText, Header");
    EXPECT_THAT(labels("Cell"), ElementsAre("Account, Default"));
    EXPECT_TRUE(named("Account, Default").isHittable());
    EXPECT_EQ(named("Done").type(), "XCUIElementTypeButton");
    EXPECT_THAT(labels("Button"), ElementsAre("Cancel", "Done"));

    typeNote("Milk");

    EXPECT_EQ(one("class name", "TextView").value(), "Milk");
    EXPECT_TRUE(one("class name", "TextView").isFocused());
    EXPECT_EQ(one("predicate string", "hasKeyboardFocus == 1").type(), "XCUIElementTypeTextView");
}

TEST_F(Screens, ShowTheKeyboardWhileThereIsOne) {
    start();
    startNote();
    EXPECT_TRUE(all("class name", "Keyboard").empty());

    tapOn("  Note");
    settle();

    EXPECT_EQ(one("class name", "Keyboard").children().size(), 31U);
    EXPECT_EQ(named("Q").type(), "XCUIElementTypeKey"); // shift is lit at the start of a text
    type("a");
    EXPECT_EQ(named("q").type(), "XCUIElementTypeKey");
    EXPECT_EQ(named("q").traits(), "KeyboardKey");
    EXPECT_EQ(named("space").type(), "XCUIElementTypeKey");
    EXPECT_EQ(named("more").label(), "123");
    EXPECT_EQ(named("shift").type(), "XCUIElementTypeButton");
    EXPECT_EQ(named("delete").type(), "XCUIElementTypeButton");
    EXPECT_EQ(named("Return").type(), "XCUIElementTypeButton");
    EXPECT_EQ(named("Return").label(), "return");
    EXPECT_FALSE(all("class chain", "XCUIElementTypeWindow/**/XCUIElementTypeKey[`label == 'q'`]").empty());
}

TEST_F(Screens, ShowAChoosersCheckmarkAsSelected) {
    start();
    startNote();
    touchAndWait("Account");

    EXPECT_THAT(labels("Cell"), ElementsAre("On My iPhone", "Mail"));
    EXPECT_TRUE(all("xpath", "//XCUIElementTypeCell[@selected='true']").empty());

    touchAndWait("Mail");

    EXPECT_EQ(one("xpath", "//XCUIElementTypeCell[@selected='true']").label(), "Mail");
    EXPECT_EQ(named("Mail").traits(), "Selected");
    EXPECT_EQ(named("On My iPhone").traits(), std::nullopt);
}

TEST_F(Screens, ShowTheRemindersRows) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();

    EXPECT_EQ(one("class name", "TextView").value(), "  Description");
    EXPECT_THAT(labels("Cell"), ElementsAre("List, List", "Remind me, Never", "Priority, None"));
    EXPECT_EQ(one("class name", "Cell").children().size(), 1U);
    EXPECT_EQ(named("arrow").isAccessible(), false);
}

TEST_F(Screens, ShowTheEventsFieldsAndRows) {
    useEvents(phone::Access::Allow);
    start();
    startCall();
    openSheet();
    openEvent();

    EXPECT_EQ(one("predicate string", "placeholderValue == 'Location'").type(), "XCUIElementTypeTextField");
    EXPECT_THAT(labels("Cell"), Contains(testing::StartsWith("Calendar, ")));
    EXPECT_FALSE(all("class chain", "**/XCUIElementTypeCell[$label == 'Repeat'$]").empty());
}

TEST_F(Screens, ShowADatePickersWheels) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();
    touchAndWait("Remind me");

    EXPECT_EQ(one("class name", "Switch").value(), "1");
    EXPECT_EQ(one("class name", "DatePicker").children().at(0).type(), "XCUIElementTypePicker");
    EXPECT_EQ(all("class name", "PickerWheel").size(), 4U);
    EXPECT_TRUE(named("hour").isEnabled());
    pickDate("2026-03-06T09:30");
    EXPECT_EQ(named("hour").value(), "9");
    EXPECT_EQ(named("minute").value(), "30");
    EXPECT_EQ(named("hour").traits(), "Adjustable");

    toggle("Remind Me");

    EXPECT_EQ(one("class name", "Switch").value(), "0");
}

TEST_F(Screens, ShowAnAlertAlone) {
    start();
    startCall();
    openSheet();
    openReminder();
    touchAndWait("List");

    const Element alert = one("class name", "Alert");
    EXPECT_FALSE(alert.label().value_or("").empty());
    EXPECT_TRUE(named("OK").isAccessible());
    EXPECT_TRUE(named("Don’t Allow").isHittable());
    EXPECT_TRUE(all("predicate string", "accessible == 1 AND label == 'Done'").empty());
    for (const Element& element : all("predicate string", "accessible == 1")) {
        Element around = element;
        while (around && around.type() != "XCUIElementTypeAlert") {
            around = around.parent();
        }
        EXPECT_TRUE(around) << element.name().value_or(element.type());
    }
}

TEST_F(Screens, KnowAViewAgainAndNeverMistakeAnother) {
    start();
    startNote();
    const auto first = named("Done").identity();
    EXPECT_EQ(look().byIdentity(first).label(), "Done");
    cancel();
    EXPECT_FALSE(look().byIdentity(first));

    openSheet();
    openNote();

    EXPECT_NE(named("Done").identity(), first);
    EXPECT_FALSE(look().byIdentity(first));
}
