#include "platform/uikit/UIDatePicker.h"
#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Overhear.h"
#include "tests/quorvan/Screens.h"

namespace {

using Texts = std::vector<std::string>;

class EventRepeatEnd : public EventTest {
protected:
    std::string endRow() {
        goBack();
        return value("End Date");
    }
};

} // namespace

TEST_F(EventRepeatEnd, HasItsPartsInOrder) {
    startRepeatEnd();

    EXPECT_EQ(screen(), "EventRemindEnd");
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(layout(shown()), (Texts{
                                   "UISwitch 227 49 51 31",
                                   "UILabel 15 51 160 27",
                                   "LineCreator 0 84 290 0.5",
                                   "UINavigationBar 0 0 290 44",
                                   "UIDatePicker 0 67.5 290 216",
                                   "LineCreator 0 44 290 0.5",
                               }));
    EXPECT_EQ(attribute(shown().child("UILabel"), "text"), "Never");
    EXPECT_EQ(attribute(shown().child("UILabel"), "textColor"), "#000000ff");
    EXPECT_EQ(attribute(shown().child("UILabel"), "font"), "system 17");
    EXPECT_TRUE(shown().select_node("UINavigationBar//UILabel[@text='Date']"));
    EXPECT_EQ(attribute(shown().parent(), "title"), "Date");
    EXPECT_EQ(layout(shown().parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
}

TEST_F(EventRepeatEnd, MakesItsPanelAQuarterOfTheSpaceDown) {
    startRepeatEnd();
    id made = objc::detail::call<id>(reinterpret_cast<id>(objc_getClass("EventRemindEnd")), objc::selector<"new">());
    const auto chooser = objc::adopt<UIViewController>(made);

    const auto panel = chooser.send<"reminderList", UIView>();

    EXPECT_EQ(panel.frame(), CGRect(15, 74.5, 290, 270));
}

TEST_F(EventRepeatEnd, OpensAtTodayWithTheSwitchOff) {
    startRepeatEnd();

    EXPECT_FALSE(isSwitchOn());
    EXPECT_EQ(attribute(picker(), "mode"), "date");
    EXPECT_EQ(attribute(picker(), "date"), "2026-03-05T14:37:12+00:00");
}

TEST_F(EventRepeatEnd, SpeaksGerman) {
    startEvent({.language = "de"});
    touchAndWait("Turnus");
    touchAndWait("Enddatum");
    EXPECT_EQ(attribute(shown().child("UILabel"), "text"), "Nie");
    EXPECT_EQ(attribute(shown().parent(), "title"), "Datum");

    goBack();

    EXPECT_EQ(value("Enddatum"), "05/03");
}

TEST_F(EventRepeatEnd, BackWithoutATouchEndsTheRepetitionToday) {
    startRepeatEnd();

    EXPECT_EQ(endRow(), "05/03");
    EXPECT_EQ(screen(), "EventRemind");
}

TEST_F(EventRepeatEnd, WithTheSwitchOnItNeverEnds) {
    startRepeatEnd();

    toggle("Never");

    EXPECT_EQ(endRow(), "Never");
}

TEST_F(EventRepeatEnd, TheDateThatWasPickedStandsInTheRow) {
    startRepeatEnd();

    pickDate("2026-12-24T14:37");

    EXPECT_EQ(attribute(picker(), "date"), "2026-12-24T14:37:00+00:00");
    EXPECT_EQ(endRow(), "24/12");
}

TEST_F(EventRepeatEnd, ADatePickedWhileTheSwitchIsOnCountsOnceItIsOffAgain) {
    startRepeatEnd();
    toggle("Never");
    pickDate("2026-12-24T14:37");
    toggle("Never");

    EXPECT_EQ(endRow(), "24/12");
}

TEST_F(EventRepeatEnd, ADatePickedBeforeTheSwitchIsTurnedOnIsNotShown) {
    startRepeatEnd();
    pickDate("2026-12-24T14:37");
    toggle("Never");

    EXPECT_EQ(endRow(), "Never");
}

TEST_F(EventRepeatEnd, OpenedAgainItStandsAtTodayWithTheSwitchOff) {
    startRepeatEnd();
    toggle("Never");
    pickDate("2026-12-24T14:37");
    goBack();

    touchAndWait("End Date");

    EXPECT_FALSE(isSwitchOn());
    EXPECT_EQ(attribute(picker(), "date"), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(endRow(), "05/03");
}

TEST_F(EventRepeatEnd, TodayIsTodayInThePersonsTimeZone) {
    startEventAt("2026-12-31T23:40:00", "America/New_York");
    touchAndWait("Repeat");
    touchAndWait("End Date");

    EXPECT_EQ(endRow(), "31/12");
}

TEST_F(EventRepeatEnd, ThePickerLiesOverTheLowerPartOfTheSwitch) {
    startRepeatEnd();

    tap(15 + 250, 149 + 72); // on the switch, but below the picker's upper edge
    settle();
    EXPECT_FALSE(isSwitchOn());

    tap(15 + 250, 149 + 60);
    settle();
    EXPECT_TRUE(isSwitchOn());
}

TEST_F(EventRepeatEnd, TheAllDaySwitchOfTheDateFormIsAnotherOne) {
    startRepeatEnd();
    toggle("Never");
    goBack();
    goBack();

    touchAndWait("Date");

    EXPECT_FALSE(isSwitchOn());
}

TEST_F(EventRepeatEnd, EveryTurnOfTheWheelsIsTakenAtOnceUnlessItNeverEnds) {
    startRepeatEnd();
    pickDate("2026-12-24T14:37");
    EXPECT_EQ(drawnValue(1, 0), "24/12");
    toggle("Never");

    pickDate("2026-12-31T14:37");

    EXPECT_EQ(drawnValue(1, 0), "24/12");
}

TEST_F(EventRepeatEnd, BackReadsTheWheelsOnce) {
    startRepeatEnd();
    overhear<"UIDatePicker", "date", id>();

    run([] { screenAt(2).send<"back:">(UIViewController()); }); // nothing else reads them meanwhile

    EXPECT_EQ(heard(), Texts{"UIDatePicker date"});
}

TEST_F(EventRepeatEnd, ItsWheelsTellAScreenThatIsGoneNothing) {
    startRepeatEnd();
    const auto wheels = liveView<UIDatePicker>();
    ASSERT_TRUE(wheels);
    goBack();

    run([&] {
        wheels.setDate(NSDate::withSinceReferenceDate(0));
        wheels.sendActions(UIControlEventValueChanged);
    });

    EXPECT_EQ(drawnValue(1, 0), "05/03");
}

TEST_F(EventRepeatEnd, ItsTextHasTheSameDigitsInEveryLanguage) {
    startEvent({.language = "ar"});
    touchAndWait("Repeat");
    touchAndWait("End Date");

    EXPECT_EQ(endRow(), "05/03");
}
