#include "phone/packages/PackageVersion.h"
#include "phone/packages/PackageError.h"
#include "phone/packages/Relation.h"

#include <gtest/gtest.h>

using namespace phone;

namespace {

bool isBefore(const char* one, const char* other) {
    const PackageVersion left = PackageVersion::parse(one);
    const PackageVersion right = PackageVersion::parse(other);
    return left < right && right > left && left != right;
}

} // namespace

TEST(PackageVersionTest, OrdersNumbersByValueAndATildeBeforeTheEnd) {
    EXPECT_TRUE(isBefore("0.9", "0.10"));
    EXPECT_TRUE(isBefore("1.0~beta", "1.0"));
    EXPECT_TRUE(isBefore("1.0", "1.0a"));
    EXPECT_TRUE(isBefore("1.0a", "1.0+"));
    EXPECT_TRUE(isBefore("1.0-1", "1.0-2"));
    EXPECT_TRUE(isBefore("1.0", "1.0-1"));
    EXPECT_TRUE(isBefore("9.9", "1:0.1"));
    EXPECT_TRUE(isBefore("1.99999999999999999998", "1.99999999999999999999"));
    EXPECT_EQ(PackageVersion::parse("1.0"), PackageVersion::parse("0:1.00"));
    EXPECT_EQ(PackageVersion::parse("1.0"), PackageVersion::parse("1.0-0"));
}

TEST(PackageVersionTest, RefusesWhatIsNoVersion) {
    for (const char* text : {"", "a1", ":1", "x:1", "1-", "1 2", "1_2", "1:", "9999999999:1"}) {
        EXPECT_THROW(PackageVersion::parse(text), PackageError) << text;
    }
}

TEST(RelationTest, ReadsAlternativesAndVersions) {
    const auto relations = parseRelations("mobilesubstrate (>= 0.9), aa|bb (<< 2) , cc:any");

    ASSERT_EQ(relations.size(), 3u);
    EXPECT_TRUE(relations[0][0].accepts(PackageVersion::parse("0.9")));
    EXPECT_FALSE(relations[0][0].accepts(PackageVersion::parse("0.8")));
    EXPECT_EQ(relations[1][1].text(), "bb (<< 2)");
    EXPECT_FALSE(relations[1][1].accepts(PackageVersion::parse("2")));
    EXPECT_EQ(relations[2][0].package, "cc");
}

TEST(RelationTest, RefusesWhatNamesNoPackage) {
    for (const char* text : {"a b", "aa (>= )", "aa (1)", "Upper", "aa,,bb", "aa,", "aa |", "a", "aa (>= x)"}) {
        EXPECT_THROW(parseRelations(text), PackageError) << text;
    }
}
