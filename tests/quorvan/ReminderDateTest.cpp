#include "platform/uikit/UIDatePicker.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

class ReminderDateChooser : public CallTest {
protected:
    ReminderDateChooser() {
        useZone("Europe/Berlin"); // the clock stands at 15:37:12 there
        useReminders(phone::Access::Allow);
    }
    void open() { touchAndWait(panel().select_node(".//*[@row='0,1']").node()); }
    pugi::xml_node chooser() { return CallTest::chooser("ReminderDate"); }
    std::string pickerDate() { return attribute(chooser().child("UIDatePicker"), "date"); }
    std::string shownDate() { return shownValue(1); }
};

} // namespace

TEST_F(ReminderDateChooser, HasItsPartsInOrder) {
    start();
    startReminder();

    open();

    const auto shown = chooser();
    expectPanel(shown, "15 149 290 270");
    EXPECT_EQ(layout(shown), (Texts{
                                 "UISwitch 227 49 51 31", // which measures itself
                                 "UILabel 15 51 160 27",
                                 "LineCreator 0 84 290 0.5",
                                 "UINavigationBar 0 0 290 44",
                                 "UIDatePicker 0 67.5 290 216",
                                 "LineCreator 0 44 290 0.5",
                             }));
    for (const auto& line : shown.children("LineCreator")) {
        EXPECT_EQ(attribute(line, "background"), "#c0c0c0ff");
    }
    EXPECT_EQ(attribute(shown.child("UILabel"), "text"), "Remind Me");
    EXPECT_TRUE(shown.select_node("UINavigationBar/UILabel[@text='Date']"));
    EXPECT_EQ(attribute(shown.parent(), "title"), "Reminder");
    EXPECT_EQ(layout(shown.parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
}

TEST_F(ReminderDateChooser, StartsAtThePresentMomentWithTheSwitchOn) {
    start();
    startReminder();

    open();

    EXPECT_EQ(attribute(chooser().child("UISwitch"), "on"), "true");
    EXPECT_EQ(attribute(chooser().child("UIDatePicker"), "mode"), "dateAndTime");
    EXPECT_EQ(pickerDate(), "2026-03-05T15:37:12+01:00");
}

TEST_F(ReminderDateChooser, SpeaksThePersonsLanguage) {
    start({.language = "de"});
    startReminder();

    open();

    EXPECT_EQ(attribute(chooser().child("UILabel"), "text"), "Erinnern");
    EXPECT_TRUE(chooser().select_node("UINavigationBar/UILabel[@text='Datum']"));
    EXPECT_EQ(attribute(chooser().parent(), "title"), "Erinnerung");
}

TEST_F(ReminderDateChooser, LeftAtOnceTakesThePresentMoment) {
    start();
    startReminder();
    typeNote("milk");
    open();

    goBack();

    EXPECT_EQ(shownDate(), "05/03 15:37");
    done();
    ASSERT_EQ(reminders().size(), 1U);
    const auto saved = reminders()[0].item;
    EXPECT_EQ(saved.due, (phone::CalendarDate{2026, 3, 5, 15, 37, 0, false, ""}));
    EXPECT_EQ(saved.start, (phone::CalendarDate{2026, 3, 5, 15, 37, 0, false, ""}));
    ASSERT_EQ(saved.alarms.size(), 1U);
    EXPECT_EQ(saved.alarms[0].moment, phone::settings().now); // the seconds are the picker's
}

TEST_F(ReminderDateChooser, ItsTextHasTheSameDigitsInEveryLanguage) {
    start({.language = "ar"});
    startReminder();
    open();

    goBack();

    EXPECT_EQ(shownDate(), "05/03 15:37");
}

TEST_F(ReminderDateChooser, ItsTextReadsTheSameOnAClockOfTwelveHours) {
    useTwelveHoursAgainstTheRegion();
    start();
    startReminder();
    open();

    goBack();

    EXPECT_EQ(shownDate(), "05/03 15:37");
}

TEST_F(ReminderDateChooser, ItsWheelsTellAScreenThatIsGoneNothing) {
    start();
    startReminder();
    open();
    const auto wheels = liveView<UIDatePicker>();
    ASSERT_TRUE(wheels);
    goBack();

    run([&] {
        wheels.setDate(NSDate::withSinceReferenceDate(0));
        wheels.sendActions(UIControlEventValueChanged);
    });

    EXPECT_EQ(drawnValue(0, 1), "05/03 15:37");
}

TEST_F(ReminderDateChooser, TakesTheDateThatItsWheelsShow) {
    start();
    startReminder();
    typeNote("milk");
    open();

    pickDate("2026-03-05T16:07");
    goBack();

    EXPECT_EQ(shownDate(), "05/03 16:07");
    done();
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].item.due, (phone::CalendarDate{2026, 3, 5, 16, 7, 0, false, ""}));
}

TEST_F(ReminderDateChooser, TakesEveryTurnOfTheWheelsAtOnce) {
    start();
    startReminder();
    open();

    pickDate("2026-03-06T09:00");

    EXPECT_EQ(drawnValue(0, 1), "06/03 09:00");
}

TEST_F(ReminderDateChooser, TellsTheRowsTextWithoutAYear) {
    start();
    startReminder();
    open();

    pickDate("2027-01-01T00:05");
    goBack();

    EXPECT_EQ(shownDate(), "01/01 00:05");
}

TEST_F(ReminderDateChooser, SwitchedOffShowsNeverAndSavesNoDate) {
    start();
    startReminder();
    typeNote("milk");
    open();
    pickDate("2026-03-06T09:00");

    toggle("Remind Me");
    EXPECT_EQ(attribute(chooser().child("UISwitch"), "on"), "false");
    goBack();

    EXPECT_EQ(shownDate(), "Never");
    done();
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].item.due, std::nullopt);
    EXPECT_EQ(reminders()[0].item.start, std::nullopt);
    EXPECT_TRUE(reminders()[0].item.alarms.empty());
}

TEST_F(ReminderDateChooser, StartsAgainAtThePresentMomentWithTheSwitchOn) {
    start();
    startReminder();
    open();
    pickDate("2026-03-06T09:00");
    toggle("Remind Me");
    goBack();

    open();

    EXPECT_EQ(attribute(chooser().child("UISwitch"), "on"), "true");
    EXPECT_EQ(pickerDate(), "2026-03-05T15:37:12+01:00");
    goBack();
    EXPECT_EQ(shownDate(), "05/03 15:37");
}

TEST_F(ReminderDateChooser, TakesTheDateAcrossTheChangeOfSummerTime) {
    start();
    startReminder();
    typeNote("milk");
    open();

    pickDate("2026-03-29T03:30");
    goBack();

    EXPECT_EQ(shownDate(), "29/03 03:30");
    done();
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].item.due, (phone::CalendarDate{2026, 3, 29, 3, 30, 0, false, ""}));
    EXPECT_EQ(reminders()[0].item.alarms.at(0).moment, 1774747800); // 01:30 UTC
}

TEST_F(ReminderDateChooser, LaysItsPickerOverTheSwitchsLowerEdge) {
    start();
    startReminder();
    open();

    tap(267, 149 + 78); // the switch reaches down to 80, the picker begins at 67.5
    settle();
    EXPECT_EQ(attribute(chooser().child("UISwitch"), "on"), "true");
    tap(267, 149 + 60);
    settle();

    EXPECT_EQ(attribute(chooser().child("UISwitch"), "on"), "false");
}
