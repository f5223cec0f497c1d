#include "phone/flow/Engine.h"
#include "tests/flow/CannedScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace phone;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

Selector named(const std::string& text) {
    Selector selector;
    selector.text = TextPattern(text);
    return selector;
}

template <class Work>
std::string failure(const Work& work) {
    try {
        work();
        return "";
    } catch (const CommandFailure& error) {
        return error.what();
    }
}

constexpr const char* twoRows = "<UILabel text=\"First\" visible=\"true\" screen=\"15 51 160 27\"/>"
                                "<UISwitch on=\"false\" visible=\"true\" screen=\"227 49 51 31\" touch=\"252 64\"/>"
                                "<UILabel text=\"Second\" visible=\"true\" screen=\"15 95 160 27\"/>"
                                "<UISwitch on=\"true\" visible=\"true\" screen=\"227 93 51 31\" touch=\"252 108\"/>";

/// A picker with a wheel for the minutes at (200, 300), which a finger turns a row every 34 points, but never
/// past a last minute. `forward` is 1 for later minutes where the finger goes up, -1 for the other way.
class MinuteScreen : public CannedScreen {
public:
    explicit MinuteScreen(int last = 59, int forward = 1) : CannedScreen(""), _last(last), _forward(forward) {
        redraw();
    }

    nlohmann::json request(const nlohmann::json& command) override {
        const auto answer = CannedScreen::request(command);
        if (command.at("do") == "touch") {
            const double y = command.at("y");
            if (command.at("phase") == "began") {
                _start = y;
            } else if (command.at("phase") == "ended") {
                minute = std::min(_last, minute + _forward * static_cast<int>(std::lround((_start - y) / 34)));
                seconds = 0;
                redraw();
            }
        }
        return answer;
    }

    int minute = 37;
    int seconds = 12;

private:
    void redraw() {
        std::ostringstream views;
        views << "<UIDatePicker mode=\"dateAndTime\" visible=\"true\" touch=\"160 300\" date=\"2026-03-05T14:" << minute
              << (seconds == 0 ? ":00" : ":12") << "+01:00\"><UIView>"
              << "<UIPickerTableView id=\"minute\" visible=\"true\" touch=\"200 300\"/></UIView></UIDatePicker>";
        show(0, views.str());
    }

    int _last;
    int _forward;
    double _start = 0;
};

} // namespace

TEST(Engine, TogglesTheSwitchOnTheLineOfTheLabel) {
    CannedScreen screen(twoRows);

    Engine(screen).toggle(named("Second"));

    EXPECT_THAT(screen.done, ElementsAre("touch began 252 108 at 0", "touch ended 252 108 at 0.05"));
}

TEST(Engine, WaitsForTheLabelOfASwitch) {
    CannedScreen screen("");
    screen.show(2, twoRows);

    Engine(screen).toggle(named("First"));

    EXPECT_EQ(screen.done.front(), "touch began 252 64 at 2");
}

TEST(Engine, SaysWhyItCannotToggle) {
    CannedScreen screen(std::string(twoRows) + "<UILabel text=\"Alone\" visible=\"true\" screen=\"15 200 160 27\"/>"
                                               "<UILabel text=\"Covered\" visible=\"true\" screen=\"15 300 160 27\"/>"
                                               "<UISwitch on=\"true\" visible=\"true\" screen=\"227 300 51 31\"/>");

    EXPECT_EQ(failure([&] { Engine(screen).toggle(named("Third")); }), "\"Third\" is not on the screen");
    EXPECT_EQ(failure([&] { Engine(screen).toggle(named("Alone")); }), "no switch is on the line of \"Alone\"");
    EXPECT_THAT(failure([&] { Engine(screen).toggle(named("Covered")); }), HasSubstr("cannot be touched"));
    EXPECT_THAT(screen.done, IsEmpty());
}

TEST(Engine, TurnsAWheelByItsRows) {
    MinuteScreen screen;

    Engine(screen).pickDate("2026-03-05T14:39");

    EXPECT_EQ(screen.minute, 39);
    EXPECT_EQ(screen.done.front(), "touch began 200 300 at 0");
    EXPECT_THAT(screen.done[screen.done.size() - 2], HasSubstr("touch ended 200 232"));
}

TEST(Engine, TurnsAWheelInSeveralGoesWhereTheScreenIsTooSmall) {
    MinuteScreen screen;

    Engine(screen).pickDate("2026-03-05T14:57");

    EXPECT_EQ(screen.minute, 57);
}

TEST(Engine, TouchesNothingWhereThePickerShowsTheDateAlready) {
    MinuteScreen screen;

    Engine(screen).pickDate("2026-03-05T14:37");

    EXPECT_THAT(screen.done, IsEmpty());
    EXPECT_EQ(screen.seconds, 12);
}

TEST(Engine, FailsAsSoonAsATurnGoesAway) {
    MinuteScreen screen(59, -1);

    EXPECT_THAT(failure([&] { Engine(screen).pickDate("2026-03-05T14:39"); }),
                HasSubstr("goes away from it, to 2026-03-05T14:35:00+01:00"));
    EXPECT_EQ(screen.minute, 35);
}

TEST(Engine, SaysThatAPickerDoesNotGoThere) {
    MinuteScreen screen(40);
    MinuteScreen other;
    CannedScreen empty("");

    EXPECT_THAT(failure([&] { Engine(screen).pickDate("2026-03-05T14:45"); }),
                HasSubstr("it stays at 2026-03-05T14:40:00+01:00"));
    EXPECT_THAT(failure([&] { Engine(other).pickDate("2026-03-05T15:37"); }), HasSubstr("wheel \"hour\""));
    EXPECT_THAT(failure([&] { Engine(empty).pickDate("2026-03-05T14:45"); }), HasSubstr("no date picker"));
}
