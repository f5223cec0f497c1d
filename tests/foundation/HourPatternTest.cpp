#include "phone/foundation/HourPattern.h"

#include <gtest/gtest.h>

namespace phone {
namespace {

std::string twelve(const std::string& pattern) { return withHours(pattern, Hours::Twelve); }
std::string twentyFour(const std::string& pattern) { return withHours(pattern, Hours::TwentyFour); }

} // namespace

TEST(HourPattern, CountsToTwelveWithTheHalfOfTheDayBehindTheTime) {
    EXPECT_EQ(twelve("HH:mm"), "hh:mm a");
    EXPECT_EQ(twelve("HH"), "hh a");
    EXPECT_EQ(twelve("H"), "h a");
    EXPECT_EQ(twelve("kk:mm"), "hh:mm a");
    EXPECT_EQ(twelve("dd/MM HH:mm"), "dd/MM hh:mm a");
    EXPECT_EQ(twelve("HH:mm dd/MM"), "hh:mm a dd/MM");
    EXPECT_EQ(twelve("yyyy-MM-dd'T'HH:mm:ss.SSSZ"), "yyyy-MM-dd'T'hh:mm:ss.SSS aZ");
    EXPECT_EQ(twelve("H 'Uhr' mm"), "h 'Uhr' mm a");
}

TEST(HourPattern, HasTheHalfOfTheDayButOnce) {
    EXPECT_EQ(twelve("HH:mm a"), "hh:mm a");
    EXPECT_EQ(twelve("a HH:mm"), "a hh:mm");
    EXPECT_EQ(twelve("HH:mm 'a'"), "hh:mm a 'a'");
}

TEST(HourPattern, CountsToTwentyFourWithoutTheHalfOfTheDay) {
    EXPECT_EQ(twentyFour("h:mm a"), "H:mm");
    EXPECT_EQ(twentyFour("h:mm\u202fa"), "H:mm");
    EXPECT_EQ(twentyFour("hh:mma"), "HH:mm");
    EXPECT_EQ(twentyFour("a h:mm"), "H:mm");
    EXPECT_EQ(twentyFour("K:mm aaa, d MMM"), "H:mm, d MMM");
    EXPECT_EQ(twentyFour("ah:mm"), "H:mm");
}

TEST(HourPattern, LeavesWhatStandsInQuotes) {
    EXPECT_EQ(twelve("'H'"), "'H'");
    EXPECT_EQ(twelve("'HH' HH''mm"), "'HH' hh''mm a");
    EXPECT_EQ(twentyFour("h 'h a' a"), "H 'h a'");
}

TEST(HourPattern, LeavesWhatCountsInThatWayAlreadyAndWhatHasNoHours) {
    EXPECT_EQ(twelve("h:mm a"), "h:mm a");
    EXPECT_EQ(twelve("dd/MM"), "dd/MM");
    EXPECT_EQ(twelve("mm:ss"), "mm:ss");
    EXPECT_EQ(twentyFour("HH:mm"), "HH:mm");
    EXPECT_EQ(twentyFour("HH:mm a"), "HH:mm a");
    EXPECT_EQ(twentyFour("a"), "a");
    EXPECT_EQ(twentyFour(""), "");
}

TEST(HourPattern, FillsInTheHoursThatATemplateLeavesToTheRegion) {
    EXPECT_EQ(templateWithHours("jmm", Hours::Twelve), "hmm");
    EXPECT_EQ(templateWithHours("yMMMdjmm", Hours::TwentyFour), "yMMMdHmm");
    EXPECT_EQ(templateWithHours("yMMMd", Hours::TwentyFour), "yMMMd");
}

} // namespace phone
