#include "phone/coregraphics/Graphemes.h"

#include <gtest/gtest.h>

using phone::graphemeBoundaries;
using phone::graphemes;
using Units = std::vector<std::size_t>;
using Characters = std::vector<std::string>;

TEST(Graphemes, AreTheLettersOfPlainText) {
    EXPECT_EQ(graphemes("abc"), (Characters{"a", "b", "c"}));
    EXPECT_EQ(graphemeBoundaries("abc"), (Units{0, 1, 2, 3}));
}

TEST(Graphemes, AreNoneInAnEmptyText) {
    EXPECT_EQ(graphemes(""), Characters{});
    EXPECT_EQ(graphemeBoundaries(""), Units{0});
}

TEST(Graphemes, KeepALetterAndItsAccentsTogether) {
    EXPECT_EQ(graphemes("e\u0301a"), (Characters{"e\u0301", "a"}));
    EXPECT_EQ(graphemeBoundaries("e\u0301a"), (Units{0, 2, 3}));
}

TEST(Graphemes, CountAPictureOutsideTheBasicPlaneAsTwoUnits) {
    EXPECT_EQ(graphemeBoundaries("a😀b"), (Units{0, 1, 3, 4}));
}

TEST(Graphemes, KeepPicturesThatAreJoinedTogether) {
    const std::string family = "👩‍👩‍👧";
    const std::string flag = "🇩🇪";

    EXPECT_EQ(graphemes(family + flag + "x"), (Characters{family, flag, "x"}));
    EXPECT_EQ(graphemes("👍🏽"), Characters{"👍🏽"});
}

TEST(Graphemes, TakeALineBreakOfTwoCharactersAsOne) { EXPECT_EQ(graphemes("a\r\nb"), (Characters{"a", "\r\n", "b"})); }
