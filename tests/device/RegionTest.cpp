#include "phone/device/Region.h"

#include <gtest/gtest.h>

namespace phone {

TEST(Region, IsWhereMostPeopleOfTheLanguageLive) {
    EXPECT_EQ(regionOf("en"), "US");
    EXPECT_EQ(regionOf("de"), "DE");
    EXPECT_EQ(regionOf("pt"), "BR");
    EXPECT_EQ(regionOf("zh-Hans"), "CN");
    EXPECT_EQ(regionOf("zh-Hant"), "TW");
    EXPECT_EQ(regionOf("ar"), "EG");
}

TEST(Region, IsThatOfTheTagWhereItHasOne) {
    EXPECT_EQ(regionOf("de-AT"), "AT");
    EXPECT_EQ(regionOf("pt_PT"), "PT");
    EXPECT_EQ(regionOf("zh-Hans-SG"), "SG");
}

TEST(Region, OfALanguageThatNobodyKnowsIsNone) {
    EXPECT_EQ(regionOf("xx"), "");
    EXPECT_EQ(localeIdentifier("xx", ""), "xx");
}

TEST(Region, IsACodeOfACountryInCapitals) {
    EXPECT_TRUE(isRegion("DE"));
    EXPECT_TRUE(isRegion("US"));
    for (const char* code : {"", "de", "XX", "ZZ", "UK", "D", "DEU", "419", "001", "EU", "D\u00c9"}) {
        EXPECT_FALSE(isRegion(code)) << code;
    }
}

// Holds: language-and-region
TEST(Region, IsChosenApartFromTheLanguage) {
    EXPECT_EQ(localeIdentifier("de", ""), "de_DE");
    EXPECT_EQ(localeIdentifier("de-AT", ""), "de_AT");
    EXPECT_EQ(localeIdentifier("de-AT", "CH"), "de_CH");
    EXPECT_EQ(localeIdentifier("en", "DE"), "en_DE");
    EXPECT_EQ(localeIdentifier("zh-Hans", ""), "zh_Hans_CN");
}

TEST(Region, CountsTwelveHoursOrTwentyFour) {
    EXPECT_EQ(hoursNamed("12"), Hours::Twelve);
    EXPECT_EQ(hoursNamed("24"), Hours::TwentyFour);
    EXPECT_FALSE(hoursNamed("13"));
    EXPECT_FALSE(hoursNamed(""));
}

} // namespace phone
