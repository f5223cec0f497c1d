#include "phone/flow/ScreenTree.h"

#include "phone/device/Screen.h"

#include <gtest/gtest.h>

using namespace phone;

namespace {

Selector named(const std::string& text) {
    Selector selector;
    selector.text = TextPattern(text);
    return selector;
}

std::string screen(const std::string& views) { return "<screen width=\"320\" height=\"568\">" + views + "</screen>"; }

std::vector<std::string> tags(const std::vector<ScreenElement>& elements) {
    std::vector<std::string> all;
    for (const auto& element : elements) {
        all.emplace_back(element.node().name());
    }
    return all;
}

using Tags = std::vector<std::string>;

} // namespace

TEST(TextPattern, HasToMatchTheWholeText) {
    EXPECT_TRUE(TextPattern("Note").matches("Note"));
    EXPECT_FALSE(TextPattern("Note").matches("Notes"));
    EXPECT_FALSE(TextPattern("note").matches("Note"));
    EXPECT_TRUE(TextPattern("No.*").matches("Notes"));
    EXPECT_TRUE(TextPattern("0[0-9]:\\d+").matches("01:05"));
}

TEST(TextPattern, CountsCharactersAndNotBytes) {
    EXPECT_TRUE(TextPattern("Zur.ck").matches("Zurück"));
    EXPECT_TRUE(TextPattern("[äö]{2}").matches("öä"));
    EXPECT_TRUE(TextPattern("..").matches("a🙂"));
}

TEST(TextPattern, GivesUpWhereItWouldTakeForever) {
    const TextPattern pattern("(a+)+(a+)+b");

    EXPECT_THROW(pattern.matches(std::string(5000, 'a')), PatternError);
    EXPECT_THROW(TextPattern(std::string(10000, '(')), PatternError);
    EXPECT_THROW(TextPattern("a{2,1}"), PatternError);
}

TEST(TextPattern, OverlooksCapitalsWhereAsked) {
    EXPECT_TRUE(TextPattern("zurüCK", {.ignoresCase = true}).matches("ZURÜck"));
    EXPECT_TRUE(TextPattern("\\w+", {.unicode = true}).matches("Zurück"));
    EXPECT_FALSE(TextPattern("\\w+").matches("Zurück"));
}

TEST(TextPattern, MatchesALongText) {
    const std::string text = std::string(20'000, 'a') + "\n" + std::string(20'000, 'b');

    EXPECT_TRUE(TextPattern("(.|\\n)*b").matches(text));
}

TEST(ScreenTree, FindsTextsPlaceholdersAndTitles) {
    const ScreenTree tree(screen("<UILabel text=\"a\" visible=\"true\"/><UITextField text=\"\" placeholder=\"b\" "
                                 "visible=\"true\"/><UIButton title=\"c\" visible=\"true\"/>"));

    EXPECT_EQ(tags(tree.visible(named("a"))), Tags{"UILabel"});
    EXPECT_EQ(tags(tree.visible(named("b"))), Tags{"UITextField"});
    EXPECT_EQ(tags(tree.visible(named("c"))), Tags{"UIButton"});
}

TEST(ScreenTree, DoesNotSeeAPlaceholderBehindText) {
    const ScreenTree tree(screen("<UITextField text=\"a\" placeholder=\"b\" visible=\"true\"/>"));

    EXPECT_TRUE(tree.visible(named("b")).empty());
}

TEST(ScreenTree, DoesNotSeeAControllersTitle) {
    const ScreenTree tree(screen("<UIView controller=\"NoteController\" title=\"Note\" visible=\"true\"/>"));

    EXPECT_TRUE(tree.visible(named("Note")).empty());
}

TEST(ScreenTree, TakesAButtonAndItsLabelForOne) {
    const ScreenTree tree(screen("<UIButton text=\"Done\" visible=\"true\"><UILabel text=\"Done\" visible=\"true\"/>"
                                 "</UIButton><UILabel text=\"Done\" visible=\"true\"/>"));
    Selector second = named("Done");
    second.index = 1;

    EXPECT_EQ(tags(tree.visible(named("Done"))), (Tags{"UIButton", "UILabel"}));
    EXPECT_EQ(tree.visible(second).front().node().parent().name(), std::string("screen"));
}

TEST(ScreenTree, PutsTheKeyboardsKeysLast) {
    const ScreenTree tree(screen("<UIWindow><UIKeyboardKey text=\"Done\" visible=\"true\"/></UIWindow>"
                                 "<UIWindow><UIButton text=\"Done\" visible=\"true\"/></UIWindow>"));

    EXPECT_EQ(tags(tree.visible(named("Done"))), (Tags{"UIButton", "UIKeyboardKey"}));
}

TEST(ScreenTree, MatchesTextAndIdentifierTogether) {
    const ScreenTree tree(
        screen("<A text=\"x\" id=\"one\" visible=\"true\"/><B text=\"x\" id=\"two\" visible=\"true\"/>"
               "<C text=\"x\" visible=\"true\"/>"));
    Selector selector = named("x");
    selector.id = TextPattern("tw.");

    EXPECT_EQ(tags(tree.visible(selector)), Tags{"B"});
}

TEST(ScreenTree, RefusesWhatIsNoTree) { EXPECT_THROW(ScreenTree("nothing"), ScreenError); }
