#include "phone/flow/LocalTime.h"

#include <gtest/gtest.h>

using namespace phone;

TEST(LocalTime, IsAMomentOfItsZone) {
    EXPECT_EQ(momentOf("2026-03-05T14:37:12", "UTC"), 1772721432.0);
    EXPECT_EQ(momentOf("2026-03-05T14:37:12", "Europe/Berlin"), 1772721432.0 - 3600);
    EXPECT_EQ(momentOf("2026-07-05T14:37", "Europe/Berlin"), momentOf("2026-07-05T12:37:00", "UTC"));
    EXPECT_EQ(momentOf("1969-12-31T23:59:59", "UTC"), -1.0);
}

TEST(LocalTime, IsNothingInTheHourThatIsSkipped) {
    EXPECT_EQ(momentOf("2026-03-29T02:30:00", "Europe/Berlin"), std::nullopt);
    EXPECT_TRUE(momentOf("2026-03-29T03:00:00", "Europe/Berlin"));
}

TEST(LocalTime, IsTheEarlierMomentInTheHourThatComesTwice) {
    EXPECT_EQ(momentOf("2026-10-25T02:30:00", "Europe/Berlin"), momentOf("2026-10-25T00:30:00", "UTC"));
}

TEST(LocalTime, IsARealDayWithoutAnOffset) {
    EXPECT_TRUE(isLocalTime("2028-02-29T00:00:00"));
    EXPECT_FALSE(isLocalTime("2026-02-29T00:00:00"));
    EXPECT_FALSE(isLocalTime("2026-03-05T24:00:00"));
    EXPECT_FALSE(isLocalTime("2026-03-05T10:00:00Z"));
    EXPECT_FALSE(isLocalTime("2026-03-05"));
}

TEST(LocalTime, IsPrintedWithItsOffset) {
    EXPECT_EQ(iso8601(1772721432.7, "UTC"), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(iso8601(1772721432, "Europe/Berlin"), "2026-03-05T15:37:12+01:00");
    EXPECT_EQ(iso8601(1772721432, "America/St_Johns"), "2026-03-05T11:07:12-03:30");
}

TEST(LocalTime, KnowsTheZonesOfTheDatabase) {
    EXPECT_TRUE(isZone("UTC"));
    EXPECT_TRUE(isZone("America/Argentina/Buenos_Aires"));
    EXPECT_FALSE(isZone("Europe/Bonn"));
    EXPECT_FALSE(isZone("Europe"));
    EXPECT_FALSE(isZone("../../../etc/passwd"));
    EXPECT_FALSE(isZone(""));
}
