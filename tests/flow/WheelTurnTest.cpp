#include "phone/flow/WheelTurn.h"

#include "phone/flow/LocalTime.h"

#include <gtest/gtest.h>

using namespace phone;

namespace {

std::optional<WheelTurn> turn(const std::string& mode, const std::string& shown, const std::string& wanted) {
    return nextWheelTurn(mode, localFields(shown).value(), localFields(wanted).value());
}

} // namespace

TEST(WheelTurn, StartsWithTheDay) {
    EXPECT_EQ(turn("dateAndTime", "2026-03-05T14:37:12", "2026-05-16T09:00"), (WheelTurn{"day", 72}));
    EXPECT_EQ(turn("dateAndTime", "2026-03-05T00:10", "2026-02-28T23:50"), (WheelTurn{"day", -5}));
}

TEST(WheelTurn, GoesOnWithHoursAndMinutesTheShorterWay) {
    EXPECT_EQ(turn("dateAndTime", "2026-05-16T22:37", "2026-05-16T03:00"), (WheelTurn{"hour", 5}));
    EXPECT_EQ(turn("dateAndTime", "2026-05-16T03:05", "2026-05-16T03:55"), (WheelTurn{"minute", -10}));
    EXPECT_EQ(turn("time", "2026-05-16T03:05", "2027-01-01T04:05"), (WheelTurn{"hour", 1}));
}

TEST(WheelTurn, TurnsTheYearOfADateFirst) {
    EXPECT_EQ(turn("date", "2026-03-05T14:37", "2027-05-16T09:00"), (WheelTurn{"year", 1}));
    EXPECT_EQ(turn("date", "2026-11-05T14:37", "2026-01-16T09:00"), (WheelTurn{"month", 2}));
    EXPECT_EQ(turn("date", "2026-03-30T14:37", "2026-03-02T09:00"), (WheelTurn{"dayOfMonth", 3}));
}

TEST(WheelTurn, IsNoneWhereNoWheelHasToMove) {
    EXPECT_EQ(turn("dateAndTime", "2026-03-05T14:37:12", "2026-03-05T14:37"), std::nullopt);
    EXPECT_EQ(turn("date", "2026-03-05T14:37:12", "2026-03-05T09:00"), std::nullopt);
    EXPECT_EQ(turn("time", "2026-03-05T14:37:12", "2027-04-05T14:37"), std::nullopt);
}
