// Whatever a tester's program sends is answered: with elements or with a refusal, and soon.

#include "tests/elements/Canned.h"

#include <random>

namespace phone::webdriver {

namespace {

/// Pieces of the language, joined at random, and now and then cut or spoiled.
class RandomTexts {
public:
    RandomTexts(std::vector<std::string> pieces, unsigned seed) : _pieces(std::move(pieces)), _random(seed) {}

    std::string next() {
        std::string text;
        for (std::size_t i = below(1 + below(20)); i > 0; --i) {
            text += _pieces[below(_pieces.size())];
        }
        if (!text.empty() && below(4) == 0) {
            text[below(text.size())] = static_cast<char>(below(256));
        }
        return text.substr(0, below(8) == 0 ? below(text.size() + 1) : text.size());
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(_random); }

    std::vector<std::string> _pieces;
    std::mt19937 _random;
};

class Fuzz : public Form {
protected:
    /// How many of so many texts were understood.
    int understood(const std::string& strategy, RandomTexts texts, int count) {
        int fine = 0;
        for (int i = 0; i < count; ++i) {
            const std::string text = texts.next();
            const Element from = i % 3 == 0 ? one(10) : tree.application();
            try {
                find(from, strategy, text);
                ++fine;
            } catch (const Refusal& refusal) {
                EXPECT_EQ(refusal.code(), Error::InvalidSelector) << text;
                EXPECT_STRNE(refusal.what(), "");
            }
        }
        return fine;
    }
};

const std::vector<std::string> predicatePieces = {"label ",
                                                  "name ",
                                                  "visible ",
                                                  "index ",
                                                  "rect.x ",
                                                  "== ",
                                                  "!= ",
                                                  "< ",
                                                  ">= ",
                                                  "BEGINSWITH ",
                                                  "CONTAINS[cd] ",
                                                  "LIKE ",
                                                  "IN ",
                                                  "MATCHES ",
                                                  "'Done' ",
                                                  "'a*' ",
                                                  "\"x",
                                                  "'",
                                                  "{1, 2} ",
                                                  "{",
                                                  "}",
                                                  ",",
                                                  "AND ",
                                                  "OR ",
                                                  "NOT ",
                                                  "(",
                                                  ")",
                                                  "1 ",
                                                  "-2.5 ",
                                                  "true ",
                                                  "nil ",
                                                  "TRUEPREDICATE ",
                                                  "[c]",
                                                  "\\",
                                                  "\\u00e4",
                                                  "'(a+)+b' ",
                                                  "ä",
                                                  "!",
                                                  "&& ",
                                                  "|| ",
                                                  "BETWEEN ",
                                                  "label == 'Done' "};

const std::vector<std::string> chainPieces = {"**/",
                                              "*",
                                              "/",
                                              "XCUIElementTypeCell",
                                              "XCUIElementTypeStaticText",
                                              "Window",
                                              "[",
                                              "]",
                                              "`",
                                              "$",
                                              "[1]",
                                              "[-1]",
                                              "0",
                                              "[2]",
                                              "[`label == 'Work'`]",
                                              "[$label == 'Never'$]",
                                              "``",
                                              "$$",
                                              "'",
                                              "visible == 1",
                                              "ä",
                                              " "};

const std::vector<std::string> xpathPieces = {"//",
                                              "/",
                                              "*",
                                              "XCUIElementTypeCell",
                                              "@label",
                                              "@*",
                                              "[",
                                              "]",
                                              "(",
                                              ")",
                                              "'Work'",
                                              "\"",
                                              "=",
                                              "!=",
                                              "<",
                                              "and ",
                                              " or ",
                                              "|",
                                              "..",
                                              ".",
                                              "1",
                                              "last()",
                                              "position()",
                                              "count(",
                                              "contains(",
                                              ",",
                                              "text()",
                                              "node()",
                                              "following::",
                                              "ancestor::",
                                              "preceding::",
                                              "descendant::",
                                              "-",
                                              "+",
                                              " div ",
                                              "not(",
                                              "//*[@label='Work']",
                                              "[1]",
                                              "string(",
                                              "$a"};

const std::vector<std::string> cssPieces = {"*",
                                            "[id=",
                                            "[name=",
                                            "\"",
                                            "'",
                                            "]",
                                            ".",
                                            "#",
                                            "Done",
                                            "\\",
                                            "\\31 ",
                                            "\\,",
                                            "ä",
                                            " ",
                                            "XCUIElementTypeCell",
                                            "*[id=\"finish\"]"};

} // namespace

TEST_F(Fuzz, PredicatesAreAnsweredWhateverTheyAre) {
    EXPECT_GT(understood("predicate string", {predicatePieces, 1}, 20'000), 100);
}

TEST_F(Fuzz, ClassChainsAreAnsweredWhateverTheyAre) {
    EXPECT_GT(understood("class chain", {chainPieces, 2}, 20'000), 100);
}

TEST_F(Fuzz, XPathIsAnsweredWhateverItIs) { EXPECT_GT(understood("xpath", {xpathPieces, 3}, 20'000), 100); }

TEST_F(Fuzz, StyleSheetSelectorsAreAnsweredWhateverTheyAre) {
    EXPECT_GT(understood("css selector", {cssPieces, 4}, 10'000), 100);
}

TEST_F(Fuzz, ScreensAreReadWhateverTheySay) {
    std::mt19937 random(5);
    const std::string whole = screen(form());
    for (int i = 0; i < 3'000; ++i) {
        std::string spoiled = whole;
        for (int j = 0; j < 5; ++j) {
            spoiled[random() % spoiled.size()] = static_cast<char>(random() % 256);
        }
        const std::string refused = refusalOf([&] { AccessibilityTree(spoiled, "Phone"); });
        EXPECT_TRUE(refused.empty() || refused.starts_with("unknown error")) << refused;
    }
}

} // namespace phone::webdriver
