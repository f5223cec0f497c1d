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

} // namespace
} // namespace phone
