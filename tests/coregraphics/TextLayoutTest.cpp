#include "phone/coregraphics/Painter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace phone;

constexpr Typeface face{};
constexpr Color black{};

std::unique_ptr<TextLayout> line(const std::string& text) { return TextLayout::make(text, {.face = face}); }
std::unique_ptr<TextLayout> wrapped(const std::string& text, double width) {
    return TextLayout::make(text, {.face = face, .width = width});
}

bool drawsAnything(const TextLayout& layout) {
    auto canvas = Canvas::make(200, 100, 2);
    canvas->painter().text(layout, {10, 10}, black);
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 400; ++x) {
            if (canvas->pixel(x, y) != 0) {
                return true;
            }
        }
    }
    return false;
}

TEST(TextLayout, IsOneEmptyLineWithoutCharacters) {
    auto layout = line("");

    EXPECT_EQ(layout->lineCount(), 1);
    EXPECT_EQ(layout->size().width, 0);
    EXPECT_EQ(layout->size().height, TextLayout::lineHeight(face));
    EXPECT_EQ(layout->caret(0), CGRect(0, 0, TextLayout::caretWidth, TextLayout::lineHeight(face)));
    EXPECT_EQ(layout->positionAt({50, 5}), 0U);
    EXPECT_FALSE(drawsAnything(*layout));
}

TEST(TextLayout, GrowsWithTheSizeOfTheFace) {
    const Typeface twice{Typeface::Weight::Regular, 34};

    EXPECT_NEAR(TextLayout::lineHeight(twice), 2 * TextLayout::lineHeight(face), 0.01);
    EXPECT_NEAR(TextLayout::make("note", {.face = twice})->size().width, 2 * line("note")->size().width, 0.05);
}

TEST(TextLayout, DrawsEachWeightWithAFaceOfItsOwn) {
    double last = 0;
    for (auto weight : {Typeface::Weight::Thin, Typeface::Weight::Light, Typeface::Weight::Regular,
                        Typeface::Weight::Medium, Typeface::Weight::Bold}) {
        const double width = TextLayout::make("weight", {.face = {weight, 17}})->size().width;
        EXPECT_GT(width, last);
        last = width;
    }
}

TEST(TextLayout, BreaksAtLineBreaks) {
    auto layout = line("milk\neggs\n");

    EXPECT_EQ(layout->lineCount(), 3);
    EXPECT_EQ(layout->caret(10).origin, (CGPoint{0, 2 * TextLayout::lineHeight(face)}));
}

TEST(TextLayout, WrapsAtWords) {
    auto layout = wrapped("one two three four five six seven", 100);

    EXPECT_GT(layout->lineCount(), 1);
    EXPECT_LE(layout->size().width, 100);
}

TEST(TextLayout, WrapsInsideAWordThatIsTooLong) {
    auto layout = wrapped(std::string(60, 'm'), 100);

    EXPECT_GT(layout->lineCount(), 1);
    EXPECT_LE(layout->size().width, 100);
}

TEST(TextLayout, KeepsLinesOfOneHeightWhateverTheScript) {
    auto layout = line("latin\n\u4e2d\u6587\n\u65e5\u672c");

    EXPECT_EQ(layout->size().height, 3 * TextLayout::lineHeight(face));
}

TEST(TextLayout, DrawsChineseCharacters) {
    auto layout = line("\u4e2d\u6587");

    EXPECT_NEAR(layout->size().width, 2 * face.size, 0.5); // a square each
    EXPECT_TRUE(drawsAnything(*layout));
}

TEST(TextLayout, DrawsEmojiInTheirOwnColoursAndWithTheAlphaOfTheText) {
    auto layout = line("\U0001F355"); // pizza
    auto solid = Canvas::make(30, 30, 2);
    auto faint = Canvas::make(30, 30, 2);
    solid->painter().text(*layout, {2, 2}, black);
    faint->painter().text(*layout, {2, 2}, {0, 0, 0, 0.25});

    unsigned reddest = 0;
    unsigned thickest = 0;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x) {
            const unsigned pixel = solid->pixel(x, y);
            const unsigned red = pixel >> 16 & 0xff;
            const unsigned blue = pixel & 0xff;
            reddest = std::max(reddest, red > blue ? red - blue : 0);
            thickest = std::max(thickest, faint->pixel(x, y) >> 24);
        }
    }

    EXPECT_GT(reddest, 100U);
    EXPECT_NEAR(thickest, 0.25 * 0xff, 2);
    EXPECT_NEAR(layout->size().width, 1.25 * face.size, 0.25 * face.size); // in the size of the letters
}

TEST(TextLayout, WritesEachParagraphInItsOwnDirection) {
    auto layout = line("\u05e9\u05dc\u05d5\u05dd!\nshalom!"); // in Hebrew, then in Latin letters
    const double height = TextLayout::lineHeight(face);

    EXPECT_TRUE(layout->isRightToLeft());
    EXPECT_FALSE(line("shalom")->isRightToLeft());
    EXPECT_GT(layout->caret(0).origin.x, layout->caret(1).origin.x);
    EXPECT_NEAR(layout->caret(5).origin.x, 0, 0.01); // after the mark, which stands at the left
    EXPECT_EQ(layout->caret(6).origin, (CGPoint{0, height}));
    EXPECT_EQ(layout->positionAt({0, height / 2}), 5U);
}

TEST(TextLayout, StandsByItsDirectionWhereNothingElseIsSaid) {
    TextLayout::Options options{.face = face, .width = 200};
    options.alignment = TextLayout::Alignment::Natural;
    auto natural = TextLayout::make("\u05e9\u05dc\u05d5\u05dd\nab", options);
    options.alignment = TextLayout::Alignment::Left;
    auto left = TextLayout::make("\u05e9\u05dc\u05d5\u05dd", options);

    EXPECT_NEAR(natural->caret(0).origin.x, 200, 0.01);
    EXPECT_NEAR(natural->caret(5).origin.x, 0, 0.01);
    EXPECT_NEAR(left->caret(4).origin.x, 0, 0.01);
}

TEST(TextLayout, JoinsArabicLetters) {
    auto joined = line("\u0628\u0628\u0628");
    auto apart = line("\u0628\u200c\u0628\u200c\u0628");

    EXPECT_LT(joined->size().width, 0.8 * apart->size().width);
}

TEST(TextLayout, PutsTheCaretBetweenCharacters) {
    auto layout = line("ab");

    EXPECT_EQ(layout->caret(0).origin.x, 0);
    EXPECT_GT(layout->caret(1).origin.x, 0);
    EXPECT_GT(layout->caret(2).origin.x, layout->caret(1).origin.x);
    EXPECT_NEAR(layout->caret(2).origin.x, layout->size().width, 0.01);
}

TEST(TextLayout, PutsTheCaretOfAPositionTooLargeAtTheEnd) {
    auto layout = line("ab");

    EXPECT_EQ(layout->caret(99), layout->caret(2));
}

TEST(TextLayout, CountsACharacterBeyondSixteenBitsAsTwoUnits) {
    auto layout = line("a\U0001F600b");

    EXPECT_EQ(layout->caret(2), layout->caret(1)); // inside the pair
    EXPECT_GT(layout->caret(3).origin.x, layout->caret(1).origin.x);
    EXPECT_GT(layout->caret(4).origin.x, layout->caret(3).origin.x);
    EXPECT_EQ(layout->positionAt({layout->size().width, 5}), 4U);
}

TEST(TextLayout, FindsThePositionNearestToAPoint) {
    auto layout = line("abc");

    for (std::size_t position = 0; position <= 3; ++position) {
        const CGRect caret = layout->caret(position);
        EXPECT_EQ(layout->positionAt({caret.origin.x, caret.center().y}), position);
    }
    EXPECT_EQ(layout->positionAt({-50, -50}), 0U);
    EXPECT_EQ(layout->positionAt({500, 500}), 3U);
}

TEST(TextLayout, FindsThePositionInTheLineThatIsTouched) {
    auto layout = line("milk\n\u5375 eggs");
    const double height = TextLayout::lineHeight(face);

    EXPECT_EQ(layout->positionAt({500, height / 2}), 4U);
    EXPECT_EQ(layout->positionAt({0, height * 1.5}), 5U);
    EXPECT_EQ(layout->positionAt({500, height * 1.5}), 11U);
}

TEST(TextLayout, StaysOnTheLineWhenItsEndIsTouched) {
    auto layout = wrapped("one two three four five six seven", 100);

    const std::size_t position = layout->positionAt({99, 1});

    EXPECT_EQ(layout->caret(position).origin.y, 0);
    EXPECT_GT(layout->caret(position).origin.x, 50);
}

TEST(TextLayout, AlignsLinesWithinTheWidth) {
    TextLayout::Options options{.face = face, .width = 200};
    options.alignment = TextLayout::Alignment::Right;
    auto right = TextLayout::make("ab", options);
    options.alignment = TextLayout::Alignment::Center;
    auto center = TextLayout::make("ab", options);
    const double width = line("ab")->size().width;

    EXPECT_NEAR(right->caret(2).origin.x, 200, 0.01);
    EXPECT_NEAR(center->caret(0).origin.x, (200 - width) / 2, 0.01);
}

TEST(TextLayout, EndsInAnEllipsisWhereTextDoesNotFit) {
    auto layout = TextLayout::make("a long line that does not fit",
                                   {.face = face, .width = 80, .maximumLines = 1, .ellipsis = true});

    EXPECT_EQ(layout->lineCount(), 1);
    EXPECT_LE(layout->size().width, 80);
    EXPECT_GT(layout->size().width, 60);
}

TEST(TextLayout, EndsInAnEllipsisWhereLinesAreLeftOut) {
    auto layout = TextLayout::make("milk\neggs", {.face = face, .width = 200, .maximumLines = 1, .ellipsis = true});

    EXPECT_EQ(layout->lineCount(), 1);
    EXPECT_NEAR(layout->size().width, line("milk\u2026")->size().width, 0.01);
}

TEST(TextLayout, CutsLinesWithoutAnEllipsisWhenNoneIsWanted) {
    auto layout = TextLayout::make("milk\neggs", {.face = face, .width = 200, .maximumLines = 1});

    EXPECT_EQ(layout->lineCount(), 1);
    EXPECT_NEAR(layout->size().width, line("milk")->size().width, 0.01);
}

TEST(TextLayout, SurvivesBytesThatAreNoText) {
    auto layout = line("a\xff\xfe z");

    EXPECT_EQ(layout->lineCount(), 1);
    EXPECT_TRUE(drawsAnything(*layout));
}

TEST(TextLayout, SurvivesAWidthOfNothing) {
    auto layout = TextLayout::make("text", {.face = face, .width = 0, .maximumLines = 1, .ellipsis = true});

    EXPECT_EQ(layout->lineCount(), 1);
    layout->caret(2);
    layout->positionAt({1, 1});
}

} // namespace
