#include "platform/foundation/NSCharacterSet.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

class StringTest : public FoundationTest {};

// Holds: string-truth
TEST_F(StringTest, IsTrueForAYesATrueOrADigitThatIsNotZero) {
    for (const char* yes : {"Y", "yes", "T", "true", "1", "9", "-1", "+1", "007", "  YES", "1no"}) {
        EXPECT_TRUE(string(yes).boolValue()) << yes;
    }
    for (const char* no : {"", "0", "no", "on", "0.5", "-0", "off", " ", "x1"}) {
        EXPECT_FALSE(string(no).boolValue()) << no;
    }
}

TEST_F(StringTest, BreaksItsLinesWhereverUnicodeDoes) {
    for (const char* newline : {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029"}) {
        const auto found =
            string((std::string("ab") + newline).c_str()).rangeOfCharacterFromSet(NSCharacterSet::newlines());
        EXPECT_EQ(found.location, 2U) << testing::PrintToString(newline);
    }
    EXPECT_EQ(string("a\tb c").rangeOfCharacterFromSet(NSCharacterSet::newlines()).location, NSNotFound);
}

} // namespace
} // namespace phone
