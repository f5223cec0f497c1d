#include "platform/uikit/UIDatePicker.h"
#include "tests/quorvan/EventTest.h"

namespace {

using Phase = phone::Screen::Phase;
using Texts = std::vector<std::string>;

class EventDateChoosers : public EventTest {
protected:
    void startFormAt(const std::string& localTime, const std::string& zone = "UTC") {
        startEventAt(localTime, zone);
        touchAndWait("Date");
    }
    std::string date() { return attribute(picker(), "date"); }
    std::string mode() { return attribute(picker(), "mode"); }
    /// Opens the chooser of this row and leaves it at once. Gives what the row then shows.
    std::string visit(const std::string& row) {
        touchAndWait(row);
        goBack();
        return value(row);
    }
};

} // namespace

TEST_F(EventDateChoosers, HaveTheirPartsInOrder) {
    startDate();

    for (const char* row : {"Start", "End"}) {
        touchAndWait(row);
        EXPECT_EQ(screen(), "EventDate" + std::string(row));
        expectPanel(shown(), "15 192 290 184");
        EXPECT_EQ(layout(shown()),
                  (Texts{"UINavigationBar 0 0 290 44", "UIDatePicker 0 33 290 162", "LineCreator 0 44 290 0.5"}));
        EXPECT_EQ(attribute(shown().child("LineCreator"), "background"), "#c0c0c0ff");
        EXPECT_EQ(attribute(shown().parent(), "title"), row);
        EXPECT_TRUE(shown().select_node(("UINavigationBar//UILabel[@text='" + std::string(row) + "']").c_str()));
        EXPECT_EQ(layout(shown().parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 192 290 184"}));
        goBack();
    }
}

TEST_F(EventDateChoosers, StandInTheMiddleOfTheThreeAndAHalfInchPhone) {
    startEvent({.device = "iphone4", .app = "older"});
    touchAndWait("Date");
    touchAndWait("Start");

    EXPECT_EQ(panelFrame(), "15 148 290 184");
}

TEST_F(EventDateChoosers, SpeakGerman) {
    startEvent({.language = "de"});
    touchAndWait("Datum");
    touchAndWait("Beginn");
    EXPECT_EQ(attribute(shown().parent(), "title"), "Beginn");
    goBack();
    EXPECT_EQ(value("Beginn"), "05/03 14:37");
    touchAndWait("Ende");
    EXPECT_EQ(attribute(shown().parent(), "title"), "Ende");
}

TEST_F(EventDateChoosers, ThePickerCoversTheLowestElevenPointsOfTheBar) {
    startDate();
    touchAndWait("Start");

    tap(60, 192 + 33.5);
    settle();
    EXPECT_EQ(screen(), "EventDateStart");

    tap(60, 192 + 32.5);
    settle();
    EXPECT_EQ(screen(), "EventDate");
}

TEST_F(EventDateChoosers, TheStartOpensAtNow) {
    startFormAt("2026-06-03T10:12:45");

    touchAndWait("Start");

    EXPECT_EQ(date(), "2026-06-03T10:12:45+00:00");
    EXPECT_EQ(mode(), "dateAndTime");
    goBack();
    EXPECT_EQ(value("Start"), "03/06 10:12");
    EXPECT_EQ(value("End"), "11:12");
}

TEST_F(EventDateChoosers, TheEndOpensAnHourFromNow) {
    startFormAt("2026-06-03T10:12:45");

    touchAndWait("End");

    EXPECT_EQ(date(), "2026-06-03T11:12:45+00:00");
    goBack();
    EXPECT_EQ(value("End"), "03/06 11:12");
    goBack();
    EXPECT_EQ(value("Date"), "10:12 - 03/06 11:12");
}

TEST_F(EventDateChoosers, AnHourFromNowMayBeTomorrowNextMonthOrNextYear) {
    const std::pair<const char*, const char*> ends[] = {
        {"2026-03-05T23:40:00", "06/03 00:40"},
        {"2026-02-28T23:40:00", "01/03 00:40"},
        {"2028-02-28T23:40:00", "29/02 00:40"},
        {"2026-12-31T23:40:00", "01/01 00:40"},
    };
    startDate();

    for (const auto& [now, end] : ends) {
        setClock(now);
        EXPECT_EQ(visit("End"), end) << now;
    }
}

TEST_F(EventDateChoosers, AnHourFromNowGoesByTheTimeThatPasses) {
    startFormAt("2026-03-29T01:30:00", "Europe/Berlin");
    EXPECT_EQ(visit("End"), "29/03 03:30");
    setClock("2026-10-25T02:30:00"); // the first of two

    touchAndWait("End");

    EXPECT_EQ(date(), "2026-10-25T02:30:00+01:00");
    goBack();
    EXPECT_EQ(value("End"), "25/10 02:30");
}

TEST_F(EventDateChoosers, ATurnedWheelIsTakenWithoutSeconds) {
    startDate();
    touchAndWait("Start");

    pickDate("2026-05-16T09:00");

    EXPECT_EQ(date(), "2026-05-16T09:00:00+00:00");
    goBack();
    EXPECT_EQ(value("Start"), "16/05 09:00");
}

TEST_F(EventDateChoosers, OpenedAgainTheyStandAtNowAgain) {
    startDate();
    touchAndWait("Start");
    pickDate("2026-05-16T09:00");
    goBack();

    touchAndWait("Start");

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    goBack();
    EXPECT_EQ(value("Start"), "05/03 14:37");
}

TEST_F(EventDateChoosers, AnEndBeforeTheStartIsTakenWithoutAWord) {
    startDate();
    touchAndWait("End");

    pickDate("2026-03-04T09:00");
    goBack();

    EXPECT_EQ(value("End"), "04/03 09:00");
    EXPECT_EQ(value("Start"), "14:37");
}

TEST_F(EventDateChoosers, ForWholeDaysTheyAskForDatesAlone) {
    startDate();
    toggle("All-day");

    touchAndWait("Start");
    EXPECT_EQ(mode(), "date");
    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    pickDate("2026-05-16T14:37");
    goBack();
    touchAndWait("End");
    EXPECT_EQ(mode(), "date");
    goBack();

    EXPECT_EQ(value("Start"), "16/05");
    EXPECT_EQ(value("End"), "05/03");
    goBack();
    EXPECT_EQ(value("Date"), "16/05 - 05/03");
}

TEST_F(EventDateChoosers, AllDayAfterwardsLeavesATextUntilItsChooserIsUsedAgain) {
    startDate();
    touchAndWait("Start");
    pickDate("2026-05-16T09:00");
    goBack();

    toggle("All-day");
    EXPECT_EQ(value("Start"), "16/05 09:00");

    EXPECT_EQ(visit("Start"), "05/03");
    toggle("All-day");
    EXPECT_EQ(value("Start"), "05/03");
    EXPECT_EQ(visit("Start"), "05/03 14:37");
}

TEST_F(EventDateChoosers, AWheelThatStillTurnsWhenTheScreenIsLeftDoesNoHarm) {
    startDate();
    touchAndWait("Start");
    const std::string place = attribute(picker().select_node(".//UIPickerTableView").node(), "screen");
    const double x = std::stod(place) + 40;
    touch(Phase::Began, x, 300);
    touch(Phase::Moved, x, 270);
    touch(Phase::Moved, x, 245);
    touch(Phase::Ended, x, 245);

    tapOn("Back");
    settle();

    EXPECT_EQ(screen(), "EventDate");
    goBack();
    cancel();
    advance(5);
    EXPECT_FALSE(shown());
}

TEST_F(EventDateChoosers, AWheelTellsAScreenThatIsGoneNothing) {
    for (const auto& row : {"Start", "End"}) {
        isStarted() ? touchAndWait("Date") : startDate();
        touchAndWait(row);
        const auto wheels = liveView<UIDatePicker>();
        ASSERT_TRUE(wheels);
        goBack();
        goBack();
        const std::string before = value("Date");

        run([&] {
            wheels.setDate(NSDate::withSinceReferenceDate(0));
            wheels.sendActions(UIControlEventValueChanged);
        });

        EXPECT_EQ(drawnValue(0, 1), before);
    }
}

TEST_F(EventDateChoosers, TheirTextsHaveTheSameDigitsInEveryLanguage) {
    startEvent({.language = "ar"});
    touchAndWait("Date");
    touchAndWait("Start");

    goBack();

    EXPECT_EQ(value("Start"), "05/03 14:37");
    EXPECT_EQ(value("End"), "15:37");
}

TEST_F(EventDateChoosers, TheirTextsReadTheSameOnAClockOfTwelveHours) {
    useTwelveHoursAgainstTheRegion();
    startAt({"Date", "Start"});

    goBack();

    EXPECT_EQ(value("Start"), "05/03 14:37");
    EXPECT_EQ(value("End"), "15:37");
}

TEST_F(EventDateChoosers, EveryTurnOfTheWheelsIsTakenAtOnce) {
    startAt({"Date", "Start"});
    pickDate("2026-05-16T09:00");
    EXPECT_EQ(drawnValue(1, 0), "16/05 09:00");
    goBack();
    touchAndWait("End");

    pickDate("2026-05-16T10:30");

    EXPECT_EQ(drawnValue(1, 1), "16/05 10:30");
    EXPECT_EQ(drawnValue(0, 1), "16/05 09:00 - 16/05 10:30");
}
