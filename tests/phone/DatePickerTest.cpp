#include "platform/uikit/UIDatePicker.h"
#include "tests/phone/ActionCounter.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;

constexpr double row = 34;
constexpr double middle = 208; // of the wheels on the screen: the picker stands at 100

class DatePicker : public PhoneTest {
protected:
    void SetUp() override { useClassesOnly(); }

    /// Everything before has to be set up first.
    UIDatePicker& picker(CGRect frame = {0, 100, 320, 216}) {
        if (!_picker) {
            _screen = window();
            _screen.setBackgroundColor(UIColor::white());
            _picker = UIDatePicker::withFrame(frame);
            _screen.addSubview(_picker);
            _changes = countValueChanges(_picker);
            advance(0); // lays it out
        }
        return _picker;
    }
    int changes() const { return _changes->number; }

    std::string date() { return attribute(findClass("UIDatePicker"), "date"); }
    pugi::xml_node wheel(const std::string& name) {
        return tree().find_node([&](pugi::xml_node node) { return attribute(node, "id") == name; });
    }
    std::string shown(const std::string& name) { return attribute(wheel(name), "text"); }
    std::vector<std::string> wheels() {
        std::vector<std::string> names;
        for (const auto& match : tree().select_nodes("//UIPickerTableView")) {
            names.push_back(attribute(match.node(), "id"));
        }
        return names;
    }
    double middleOf(const std::string& name) {
        const std::string place = attribute(wheel(name), "screen");
        double x = 0;
        double y = 0;
        double width = 0;
        std::istringstream(place) >> x >> y >> width;
        return x + width / 2;
    }
    /// Drags the wheel: later rows lie below, so that the finger goes up for them.
    void drag(const std::string& name, double rows) {
        const double x = middleOf(name);
        touch(Phase::Began, x, middle);
        touch(Phase::Moved, x, middle - rows * row / 2);
        touch(Phase::Moved, x, middle - rows * row);
        touch(Phase::Ended, x, middle - rows * row);
    }
    void turn(const std::string& name, double rows) {
        drag(name, rows);
        settle();
    }
    static NSDate at(double unixSeconds) { return NSDate::withSinceReferenceDate(unixSeconds - 978307200); }

private:
    UIWindow _screen;
    UIDatePicker _picker;
    objc::Ref<ActionCounter> _changes;
};

using Names = std::vector<std::string>;

constexpr double march5 = 1772721432; // 2026-03-05T14:37:12Z

} // namespace

// Holds: picker-modes
TEST_F(DatePicker, OpensAtTheCurrentMomentWithItsSeconds) {
    picker();

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(attribute(findClass("UIDatePicker"), "mode"), "dateAndTime");
}

TEST_F(DatePicker, KeepsTheFrameItIsGiven) {
    picker({0, 67.5, 290, 216});

    EXPECT_EQ(attribute(findClass("UIDatePicker"), "frame"), "0 67.5 290 216");
}

// Holds: picker-heights
TEST_F(DatePicker, IsAsLargeAsItsWheelsWithoutAFrame) {
    boot();

    EXPECT_EQ(objc::make<UIDatePicker>().frame(), CGRect(0, 0, 320, 216));
}

// Holds: picker-heights
TEST_F(DatePicker, TakesTheNearestOfItsThreeHeightsAndSaysSo) {
    boot();
    const auto heightFor = [](CGFloat height) { return UIDatePicker::withFrame({0, 33, 290, height}).frame(); };
    testing::internal::CaptureStderr();

    EXPECT_EQ(heightFor(162), CGRect(0, 33, 290, 162));
    EXPECT_EQ(heightFor(180), CGRect(0, 33, 290, 180));
    EXPECT_EQ(heightFor(216), CGRect(0, 33, 290, 216));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    EXPECT_EQ(heightFor(100), CGRect(0, 33, 290, 162));

    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "-[UIPickerView setFrame:]: invalid height value 100.0 pinned to 162.0\n");
    EXPECT_EQ(heightFor(175), CGRect(0, 33, 290, 180));
    EXPECT_EQ(heightFor(500), CGRect(0, 33, 290, 216));
}

// Holds: picker-heights
TEST_F(DatePicker, TakesTheNearestHeightWhenItsFrameIsSetToo) {
    boot();
    const auto wheels = UIDatePicker::withFrame({0, 0, 320, 216});

    wheels.setFrame({5, 33, 290, 150});

    EXPECT_EQ(wheels.frame(), CGRect(5, 33, 290, 162));
}

TEST_F(DatePicker, StandsWithItsWheelsInTheMiddleOfANarrowerFrame) {
    picker({0, 100, 290, 216});

    EXPECT_EQ(attribute(findClass("UIDatePicker").first_child(), "frame"), "-15 0 320 216");
}

// Trap: picker-keeps-seconds
// Holds: picker-keeps-the-raw-date
TEST_F(DatePicker, KeepsADateAsItIsSetUntilAWheelIsTurned) {
    picker().setDate(at(march5 + 13));
    EXPECT_EQ(date(), "2026-03-05T14:37:25+00:00");

    turn("minute", 1);

    EXPECT_EQ(date(), "2026-03-05T14:38:00+00:00");
}

TEST_F(DatePicker, KeepsTheDateWhenAWheelComesBackToItsRow) {
    picker();

    turn("minute", 0.4);

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(changes(), 0);
}

// Holds: picker-in-code
// Trap: controls-in-code-are-silent
TEST_F(DatePicker, SendsNothingWhenCodeSetsTheDate) {
    picker().setDate(at(march5 + 3600));
    picker().setDate(at(march5 + 7200), true);
    settle();

    EXPECT_EQ(date(), "2026-03-05T16:37:12+00:00");
    EXPECT_EQ(shown("hour"), "4");
    EXPECT_EQ(changes(), 0);
}

TEST_F(DatePicker, SendsValueChangedWhenAWheelHasComeToRest) {
    picker();

    drag("hour", 2.3);
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    settle();

    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(date(), "2026-03-05T16:37:00+00:00");
}

TEST_F(DatePicker, TurnsByTheRowsThatAFingerDrags) {
    picker();

    turn("day", 2);
    turn("hour", -3);
    turn("minute", 2.7);

    EXPECT_EQ(date(), "2026-03-07T11:40:00+00:00");
}

TEST_F(DatePicker, TurnsToARowThatIsTapped) {
    picker();

    tap(middleOf("minute"), middle + row);
    settle();
    EXPECT_EQ(date(), "2026-03-05T14:38:00+00:00");
    tap(middleOf("minute"), middle - 62); // two rows up, on the drum
    settle();

    EXPECT_EQ(date(), "2026-03-05T14:36:00+00:00");
    tap(middleOf("minute"), middle + 82);
    settle();

    EXPECT_EQ(date(), "2026-03-05T14:39:00+00:00");
}

TEST_F(DatePicker, StaysWhenItsChosenRowIsTapped) {
    picker();

    tap(middleOf("minute"), middle + 5);
    settle();

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(changes(), 0);
}

TEST_F(DatePicker, LetsAFingerCatchAWheelThatTurns) {
    picker();

    drag("minute", 1.4);
    advance(0.1);
    turn("minute", 2);

    EXPECT_EQ(date(), "2026-03-05T14:40:00+00:00");
    EXPECT_EQ(changes(), 1);
}

TEST_F(DatePicker, GoesRoundOnHoursAndMinutes) {
    picker().setDate(at(march5 + 22 * 60)); // 14:59

    turn("minute", 1);

    EXPECT_EQ(date(), "2026-03-05T14:00:00+00:00");
    for (int i = 0; i < 4; ++i) {
        turn("hour", 3);
    }
    EXPECT_EQ(date(), "2026-03-05T02:00:00+00:00");
}

TEST_F(DatePicker, NeverComesToTheEndOfARing) {
    picker();

    for (int i = 0; i < 300; ++i) {
        drag("hour", 5);
        advance(0.4);
    }

    EXPECT_EQ(changes(), 300);
}

TEST_F(DatePicker, ShowsTwelveHoursInAnAmericanRegion) {
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute", "period"}));
    EXPECT_EQ(shown("hour"), "2");
    EXPECT_EQ(shown("minute"), "37");
    EXPECT_EQ(shown("period"), "PM");
}

TEST_F(DatePicker, ShowsTwentyFourHoursInAGermanRegion) {
    useLanguage("de");
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute"}));
    EXPECT_EQ(shown("hour"), "14");
    EXPECT_EQ(shown("minute"), "37");
}

TEST_F(DatePicker, ShowsTwentyFourHoursInBritain) {
    useLanguage("en-GB");
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute"}));
}

// Holds: language-and-region
TEST_F(DatePicker, FollowsTheRegionInHoursAndOrderAndTheLanguageInWords) {
    useRegion("DE");
    picker();
    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute"}));
    EXPECT_EQ(shown("hour"), "14");

    picker().setDatePickerMode(UIDatePickerMode::Date);

    EXPECT_EQ(wheels(), (Names{"dayOfMonth", "month", "year"}));
    EXPECT_EQ(shown("month"), "March");
}

// Holds: hours-are-the-persons
TEST_F(DatePicker, ShowsTheHoursThatThePersonHasChosen) {
    useLanguage("de");
    useHours("12");
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute", "period"}));
    EXPECT_EQ(shown("hour"), "2");
    EXPECT_EQ(shown("period"), "PM");
}

// Holds: hours-are-the-persons
TEST_F(DatePicker, ShowsTwentyFourHoursToWhoeverHasChosenThemAmongTwelve) {
    useHours("24");
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute"}));
    EXPECT_EQ(shown("hour"), "14");
}

TEST_F(DatePicker, HasTheDigitsOfTheLanguage) {
    useLanguage("ar");
    picker();

    EXPECT_EQ(wheels(), (Names{"day", "hour", "minute", "period"}));
    EXPECT_EQ(shown("hour"), "٢");
    EXPECT_EQ(shown("minute"), "٣٧");
    EXPECT_EQ(shown("period"), "م");
    turn("minute", 3);
    EXPECT_EQ(date(), "2026-03-05T14:40:00+00:00");
}

TEST_F(DatePicker, TurnsTheHalfOfTheDayByItsOwnWheelAndByTheHours) {
    picker();

    turn("period", -1);
    EXPECT_EQ(date(), "2026-03-05T02:37:00+00:00");
    turn("hour", -3);

    EXPECT_EQ(date(), "2026-03-05T23:37:00+00:00");
    EXPECT_EQ(shown("period"), "PM");
    EXPECT_EQ(shown("hour"), "11");
}

TEST_F(DatePicker, NamesTheCurrentDayToday) {
    picker();

    EXPECT_EQ(shown("day"), "Today");
    turn("day", 1);

    EXPECT_EQ(shown("day"), "Fri Mar 6");
}

TEST_F(DatePicker, NamesDaysInGerman) {
    useLanguage("de");
    picker();

    EXPECT_EQ(shown("day"), "Heute");
    turn("day", -1);

    EXPECT_EQ(shown("day"), "Mi. 4. März");
}

// Holds: picker-modes
TEST_F(DatePicker, ShowsMonthDayAndYearForDatesAlone) {
    picker().setDatePickerMode(UIDatePickerMode::Date);

    EXPECT_EQ(attribute(findClass("UIDatePicker"), "mode"), "date");
    EXPECT_EQ(wheels(), (Names{"month", "dayOfMonth", "year"}));
    EXPECT_EQ(shown("month"), "March");
    EXPECT_EQ(shown("dayOfMonth"), "5");
    EXPECT_EQ(shown("year"), "2026");
}

TEST_F(DatePicker, ShowsDayMonthAndYearInGerman) {
    useLanguage("de");
    picker().setDatePickerMode(UIDatePickerMode::Date);

    EXPECT_EQ(wheels(), (Names{"dayOfMonth", "month", "year"}));
    EXPECT_EQ(shown("month"), "März");
    EXPECT_EQ(shown("dayOfMonth"), "5.");
}

TEST_F(DatePicker, HasRoomForAYearWithItsUnit) {
    useLanguage("ja");
    picker().setDatePickerMode(UIDatePickerMode::Date);

    EXPECT_EQ(wheels(), (Names{"year", "month", "dayOfMonth"}));
    EXPECT_EQ(shown("year"), "2026年");
    EXPECT_EQ(attribute(wheel("year"), "frame"), "21 0 104 216");
    EXPECT_EQ(attribute(wheel("month"), "frame"), "125 0 120 216");
    EXPECT_EQ(attribute(wheel("dayOfMonth"), "frame"), "245 0 54 216");
}

TEST_F(DatePicker, LeavesTheWordForYearToTheWholeDateInRussian) {
    useLanguage("ru");
    picker().setDatePickerMode(UIDatePickerMode::Date);

    EXPECT_EQ(wheels(), (Names{"dayOfMonth", "month", "year"}));
    EXPECT_EQ(shown("year"), "2026");
}

TEST_F(DatePicker, KeepsHourAndMinuteWhenADateAloneIsTurned) {
    picker().setDatePickerMode(UIDatePickerMode::Date);

    turn("month", 2);
    turn("dayOfMonth", 3);
    turn("year", 1);

    EXPECT_EQ(date(), "2027-05-08T14:37:00+00:00");
}

TEST_F(DatePicker, GoesBackToTheLastDayOfAShorterMonth) {
    picker().setDate(at(march5 + 26 * 86400.0)); // 31 March
    picker().setDatePickerMode(UIDatePickerMode::Date);

    turn("month", -1);

    EXPECT_EQ(date(), "2026-02-28T14:37:00+00:00");
    EXPECT_EQ(shown("dayOfMonth"), "28");
}

// Holds: picker-modes
TEST_F(DatePicker, ShowsHoursAndMinutesForTimesAlone) {
    useLanguage("de");
    picker().setDatePickerMode(UIDatePickerMode::Time);

    EXPECT_EQ(attribute(findClass("UIDatePicker"), "mode"), "time");
    EXPECT_EQ(wheels(), (Names{"hour", "minute"}));
    turn("hour", 1);

    EXPECT_EQ(date(), "2026-03-05T15:37:00+00:00");
}

// Holds: picker-minimum-keeps-seconds
TEST_F(DatePicker, KeepsTheSecondsOfAMinimum) {
    picker().setMinimumDate(at(march5));

    turn("day", -1);

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(shown("day"), "Today");
    EXPECT_EQ(changes(), 1);
}

TEST_F(DatePicker, MovesADateBelowTheMinimumUpToIt) {
    picker().setMinimumDate(at(march5 + 100));

    EXPECT_EQ(date(), "2026-03-05T14:38:52+00:00");
    picker().setDate(at(march5));

    EXPECT_EQ(date(), "2026-03-05T14:38:52+00:00");
    EXPECT_EQ(changes(), 0);
}

// Holds: picker-minute-interval, picker-keeps-the-raw-date
TEST_F(DatePicker, ShowsMinutesInIntervalsAndKeepsTheRawDateUntilAWheelIsTurned) {
    EXPECT_EQ((picker().send<"minuteInterval", objc::Int>()), 1);
    run([&] { picker().send<"setMinuteInterval:">(objc::Int(15)); });

    EXPECT_EQ(shown("minute"), "30");
    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    turn("minute", 1);
    EXPECT_EQ(date(), "2026-03-05T14:45:00+00:00");
    turn("minute", 1);

    EXPECT_EQ(date(), "2026-03-05T14:00:00+00:00");
}

// Holds: picker-minute-interval
TEST_F(DatePicker, TakesTheMinutesThatItShowsWhenAnotherWheelIsTurned) {
    run([&] { picker().send<"setMinuteInterval:">(objc::Int(15)); });

    turn("hour", 1);

    EXPECT_EQ(date(), "2026-03-05T15:30:00+00:00");
}

// Holds: picker-minute-interval
TEST_F(DatePicker, LeavesOutAnIntervalThatDoesNotDivideTheHour) {
    const auto taken = [&](objc::Int interval) {
        picker().send<"setMinuteInterval:">(objc::Int(5));
        picker().send<"setMinuteInterval:">(interval);
        return picker().send<"minuteInterval", objc::Int>();
    };

    EXPECT_EQ(taken(30), 30);
    EXPECT_EQ(taken(7), 1);
    EXPECT_EQ(taken(60), 1);
    EXPECT_EQ(taken(0), 1);
}

// Holds: picker-limits-that-cross
TEST_F(DatePicker, IgnoresLimitsThatExcludeEachOther) {
    picker().setMinimumDate(at(march5 + 1000));
    picker().setMaximumDate(at(march5 - 1000));
    picker().setDate(at(march5));

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
}

TEST_F(DatePicker, StaysBelowItsMaximum) {
    picker().setMaximumDate(at(march5 + 60));

    turn("hour", 1);

    EXPECT_EQ(date(), "2026-03-05T14:38:12+00:00");
}

TEST_F(DatePicker, KeepsTheTimeOfDayWhenADayWithSummerTimeIsReached) {
    useZone("Europe/Berlin");
    picker().setDate(at(1774659600)); // 2026-03-28T02:00:00+01:00

    turn("hour", 1);
    EXPECT_EQ(date(), "2026-03-28T03:00:00+01:00");
    turn("day", 1);

    EXPECT_EQ(date(), "2026-03-29T03:00:00+02:00");
}

TEST_F(DatePicker, PassesOverTheHourThatClocksSkip) {
    useZone("Europe/Berlin");
    picker().setDate(at(1774661400)); // 2026-03-28T02:30:00+01:00

    turn("day", 1);

    EXPECT_EQ(date(), "2026-03-29T03:30:00+02:00");
    EXPECT_EQ(shown("hour"), "3");
}

TEST_F(DatePicker, TakesTheFirstOfTheHourThatComesTwice) {
    useZone("Europe/Berlin");
    picker().setDate(at(1792801800)); // 2026-10-24T02:30:00+02:00

    turn("day", 1);

    EXPECT_EQ(date(), "2026-10-25T02:30:00+02:00");
}

TEST_F(DatePicker, TakesNoTouchWhileDisabled) {
    picker().setEnabled(false);

    turn("minute", 2);

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
}

TEST_F(DatePicker, MayGoAwayWhileAWheelTurns) {
    picker();
    drag("minute", 2.3);

    run([&] {
        picker().removeFromSuperview();
        picker() = nullptr;
    });
    settle();

    EXPECT_EQ(countClass("UIDatePicker"), 0);
}
