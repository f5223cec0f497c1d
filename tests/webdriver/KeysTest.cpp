#include "phone/webdriver/Keys.h"

#include "phone/elements/Refusal.h"

#include <gtest/gtest.h>

using namespace phone::webdriver;

namespace {

using Strokes = std::vector<Stroke>;

constexpr auto text = Stroke::Kind::Text;
constexpr auto key = Stroke::Kind::Key;

} // namespace

TEST(Keys, TypeNeighbouringCharactersTogether) {
    EXPECT_EQ(strokes("añ👩‍👧€"), (Strokes{{text, "añ👩‍👧€"}}));
}

TEST(Keys, PressWhatTheProtocolWritesAsCharactersOfItsOwn) {
    EXPECT_EQ(strokes("a\uE003b\uE006c\uE007\uE017\uE012\uE014\uE010\uE011"), (Strokes{{text, "a"},
                                                                                       {key, "backspace"},
                                                                                       {text, "b"},
                                                                                       {key, "enter"},
                                                                                       {text, "c"},
                                                                                       {key, "enter"},
                                                                                       {key, "delete"},
                                                                                       {key, "left"},
                                                                                       {key, "right"},
                                                                                       {key, "end"},
                                                                                       {key, "home"}}));
}

TEST(Keys, TypeTheNumberPad) { EXPECT_EQ(strokes("\uE01A\uE023\uE029\uE00D"), (Strokes{{text, "09/ "}})); }

TEST(Keys, LetModifiersPass) { EXPECT_EQ(strokes("\uE008A\uE000b\uE050"), (Strokes{{text, "Ab"}})); }

TEST(Keys, RefuseWhatThePhoneDoesNotHave) {
    for (const char* missing : {"\uE00C", "\uE031", "\uF8FF"}) {
        EXPECT_THROW(strokes(missing), Refusal) << missing;
    }
}

TEST(Keys, TakeBrokenTextAsItIs) { EXPECT_EQ(strokes("a\xEE\x80"), (Strokes{{text, "a\xEE\x80"}})); }

TEST(Keys, AreNoneForNothing) { EXPECT_TRUE(strokes("").empty()); }
