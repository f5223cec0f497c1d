#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UIViewController.h"
#include "tests/quorvan/EventTest.h"

namespace {

using Texts = std::vector<std::string>;

class EventDate : public EventTest {
protected:
    void openDate() { touchAndWait("Date"); }
    void pickStart(const std::string& localTime) {
        touchAndWait("Start");
        pickDate(localTime);
        goBack();
    }
    /// The event screen's Date row; leaves the form.
    std::string dateRow() {
        goBack();
        return value("Date");
    }
};

} // namespace

TEST_F(EventDate, HasItsPartsInOrder) {
    startDate();

    EXPECT_EQ(screen(), "EventDate");
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(layout(shown()), (Texts{
                                   "UISwitch 227 49 51 31",
                                   "UILabel 15 51 160 27",
                                   "LineCreator 0 83.5 290 0.5",
                                   "UINavigationBar 0 0 290 44",
                                   "UITableView 0 84 290 214",
                                   "LineCreator 0 44 290 0.5",
                               }));
    EXPECT_EQ(attribute(shown().child("UILabel"), "text"), "All-day");
    EXPECT_EQ(attribute(shown().child("UITableView"), "style"), "plain");
    EXPECT_EQ(attribute(shown().child("UITableView"), "scrollEnabled"), "false");
    EXPECT_TRUE(shown().select_node("UINavigationBar//UILabel[@text='Date']"));
    EXPECT_EQ(attribute(shown().parent(), "title"), "Date");
}

TEST_F(EventDate, ItsRowsShowValueAndArrow) {
    startDate();

    EXPECT_EQ(rows(), (Texts{"Start", "End"}));
    for (const char* row : {"0,0", "0,1"}) {
        const auto cell = shown().select_node((".//*[@row='" + std::string(row) + "']").c_str()).node();
        const auto accessory = cell.select_node(".//UIView[UIImageView]").node();
        EXPECT_EQ(attribute(accessory, "frame"), "118 8 157 28");
        EXPECT_EQ(layout(accessory), (Texts{"UILabel 0 5 148 17", "UIImageView 150 8.5 7 10.5"}));
        EXPECT_EQ(attribute(cell, "reuse"), "Cell");
    }
}

TEST_F(EventDate, AtTheFirstVisitTheRowsShowNowAndAnHourLater) {
    startDate();

    EXPECT_EQ(value("Start"), "14:37");
    EXPECT_EQ(value("End"), "15:37");
    EXPECT_FALSE(isSwitchOn());
    EXPECT_EQ(dateRow(), "14:37 - 15:37");
}

TEST_F(EventDate, NeitherPadsNorWrapsTheHourOfTheEnd) {
    startEventAt("2026-12-31T23:40:00");
    openDate();

    EXPECT_EQ(value("Start"), "23:40");
    EXPECT_EQ(value("End"), "24:40");
    EXPECT_EQ(dateRow(), "23:40 - 24:40");
}

TEST_F(EventDate, InTheMorningTheEndHasOneDigit) {
    startEventAt("2026-03-05T08:05:00");
    openDate();

    EXPECT_EQ(value("Start"), "08:05");
    EXPECT_EQ(value("End"), "9:05");
}

TEST_F(EventDate, SpeaksGerman) {
    startEvent({.language = "de"});
    touchAndWait("Datum");

    EXPECT_EQ(rows(), (Texts{"Beginn", "Ende"}));
    EXPECT_EQ(attribute(shown().child("UILabel"), "text"), "Ganztägig");
    EXPECT_EQ(attribute(shown().parent(), "title"), "Datum");
    EXPECT_EQ(value("Beginn"), "14:37");
}

TEST_F(EventDate, TheClockMovingOnChangesTheRowsOfNoLaterVisit) {
    startDate();
    goBack();
    setClock("2026-03-05T16:00:00");

    openDate();

    EXPECT_EQ(value("Start"), "14:37");
    EXPECT_EQ(value("End"), "15:37");
}

TEST_F(EventDate, TogglingAllDayChangesNoText) {
    startDate();

    toggle("All-day");

    EXPECT_TRUE(isSwitchOn());
    EXPECT_EQ(value("Start"), "14:37");
    EXPECT_EQ(value("End"), "15:37");
    EXPECT_EQ(dateRow(), "14:37 - 15:37");
}

TEST_F(EventDate, KeepsAllDayFromVisitToVisitAndIntoTheNextEvent) {
    startDate();
    toggle("All-day");
    goBack();
    openDate();
    EXPECT_TRUE(isSwitchOn());
    goBack();
    cancel();

    openAnother();
    openDate();

    EXPECT_TRUE(isSwitchOn());
    toggle("All-day");
    goBack();
    openDate();
    EXPECT_FALSE(isSwitchOn());
}

TEST_F(EventDate, BackKeepsASwitchThatSentNothing) {
    startDate();
    const auto allDay = liveView<UISwitch>();
    ASSERT_TRUE(allDay);
    run([&] { allDay.setOn(true); }); // sends no action

    goBack();
    openDate();

    EXPECT_TRUE(isSwitchOn());
}

TEST_F(EventDate, ItsSwitchTellsAFormThatIsGoneNothing) {
    startDate();
    const auto allDay = liveView<UISwitch>();
    goBack();

    run([&] { allDay.sendActions(UIControlEventValueChanged); });

    EXPECT_EQ(screen(), "EventController");
}

TEST_F(EventDate, AStartThatWasChosenStandsInBothScreens) {
    startDate();

    pickStart("2026-05-16T09:00");

    EXPECT_EQ(screen(), "EventDate");
    EXPECT_EQ(value("Start"), "16/05 09:00");
    EXPECT_EQ(value("End"), "15:37");
    EXPECT_EQ(dateRow(), "16/05 09:00 - 15:37");
}

TEST_F(EventDate, ARowHidesTheFormUntilItsChooserIsLeft) {
    startDate();

    tapOn("Start");
    const auto root = tree().select_node("//*[@controller='EventDate']").node();
    for (const auto& view : root.children()) {
        EXPECT_EQ(attribute(view, "hidden"), "true") << view.name();
    }
    settle();
    EXPECT_EQ(screen(), "EventDateStart");
    goBack();

    EXPECT_EQ(screen(), "EventDate");
    EXPECT_EQ(layout(shown().parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
    EXPECT_EQ(shown().select_nodes(".//*[@selected='true']").size(), 0U);
    touchAndWait("End");
    EXPECT_EQ(screen(), "EventDateEnd");
}

TEST_F(EventDate, TheNextEventsRowStartsAnewButTheFormRemembersTheOldTexts) {
    startDate();
    pickStart("2026-05-16T09:00");
    goBack();
    cancel();
    setClock("2026-03-05T16:20:00");

    openAnother();
    EXPECT_EQ(value("Date"), "16:20 - 17:20");
    openDate();

    EXPECT_EQ(value("Start"), "16/05 09:00");
    EXPECT_EQ(value("End"), "15:37");
    EXPECT_EQ(dateRow(), "16/05 09:00 - 15:37");
}

TEST_F(EventDate, TheFormsTextsOutliveAChangeOfNothing) {
    startDate();
    goBack();
    cancel();
    setClock("2026-03-06T09:15:00");

    openAnother();
    EXPECT_EQ(value("Date"), "09:15 - 10:15");
    openDate();

    EXPECT_EQ(value("Start"), "14:37");
    EXPECT_EQ(dateRow(), "14:37 - 15:37");
}

TEST_F(EventDate, TheSwitchIsTakenAtOnce) {
    startDate();
    touchAndWait("Start"); // its class is there from now on
    goBack();

    toggle("All-day");

    run([] {
        const auto made =
            objc::detail::call<id>(reinterpret_cast<id>(objc_getClass("EventDateStart")), objc::selector<"new">());
        const auto panel = objc::adopt<UIViewController>(made).view().subviews().at<UIView>(1);
        const auto picker = panel.subviews().at<UIDatePicker>(1);
        EXPECT_EQ(picker.datePickerMode(), UIDatePickerMode::Date);
    });
}
