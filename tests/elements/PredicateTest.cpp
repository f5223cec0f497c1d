#include "phone/elements/Predicate.h"

#include "tests/elements/Canned.h"

namespace phone::webdriver {

namespace {

class Predicates : public Form {
protected:
    bool holds(const std::string& predicate, std::uint64_t identity) const {
        return Predicate::parse(predicate).matches(one(identity));
    }
    /// Of the label "Äpfel & Birnen".
    bool label(const std::string& condition) const { return holds("label " + condition, 2); }
    static std::string refusal(const std::string& predicate) {
        return refusalOf([&] { Predicate::parse(predicate); });
    }
};

} // namespace

TEST_F(Predicates, ComparesTexts) {
    EXPECT_TRUE(label("== 'Äpfel & Birnen'"));
    EXPECT_TRUE(label("= \"Äpfel & Birnen\""));
    EXPECT_FALSE(label("== 'äpfel & birnen'"));
    EXPECT_TRUE(label("!= 'Birnen'"));
    EXPECT_TRUE(label("<> 'Birnen'"));
    EXPECT_TRUE(label("> 'Ananas'"));
    EXPECT_FALSE(label("<= 'Ananas'"));
    EXPECT_TRUE(holds("'Done' == label", 3));
}

TEST_F(Predicates, LooksAtPartsOfTexts) {
    EXPECT_TRUE(label("BEGINSWITH 'Äpfel'"));
    EXPECT_FALSE(label("beginswith 'Birnen'"));
    EXPECT_TRUE(label("EndsWith 'Birnen'"));
    EXPECT_TRUE(label("CONTAINS '&'"));
    EXPECT_TRUE(label("CONTAINS ''"));
    EXPECT_TRUE(holds("'fel' IN label", 2));
}

TEST_F(Predicates, OverlooksCapitalsAndAccentsWhereAsked) {
    EXPECT_FALSE(label("BEGINSWITH[c] 'apfel'"));
    EXPECT_TRUE(label("BEGINSWITH[c] 'äpFEL'"));
    EXPECT_TRUE(label("BEGINSWITH[d] 'Apfel'"));
    EXPECT_FALSE(label("BEGINSWITH[d] 'apfel'"));
    EXPECT_TRUE(label("BEGINSWITH[cd] 'apfel'"));
    EXPECT_TRUE(label("CONTAINS[dc] 'BIRNEN'"));
    EXPECT_TRUE(label("==[cd] 'APFEL & BIRNEN'"));
    EXPECT_TRUE(label("MATCHES[cd] 'apfel.*'"));
    EXPECT_TRUE(label("LIKE[cd] 'apfel*'"));
    EXPECT_TRUE(label("IN[cd] {'apfel & birnen'}"));
}

TEST_F(Predicates, KnowsPatternsAndRegularExpressions) {
    EXPECT_TRUE(label("LIKE '?pfel*'"));
    EXPECT_FALSE(label("LIKE 'pfel*'"));
    EXPECT_TRUE(label("LIKE '*&*'"));
    EXPECT_FALSE(label(R"(LIKE '\*')"));
    EXPECT_TRUE(label("MATCHES '.{5} & B[a-z]+'"));
    EXPECT_FALSE(label("MATCHES 'Birnen'"));
    EXPECT_TRUE(label(R"(MATCHES '\w.*\s&\s\w+')"));
}

TEST_F(Predicates, ComparesTruthsAndNumbers) {
    EXPECT_TRUE(holds("visible == 1", 3));
    EXPECT_TRUE(holds("isVisible == true AND enabled == YES", 3));
    EXPECT_TRUE(holds("isWDAccessible == TRUE", 3));
    EXPECT_FALSE(holds("wdSelected == 1", 3));
    EXPECT_TRUE(holds("selected != 1", 3));
    EXPECT_TRUE(holds("hittable == true", 3));
    EXPECT_TRUE(holds("index == 1", 3));
    EXPECT_TRUE(holds("index BETWEEN {0, 1}", 3));
    EXPECT_FALSE(holds("index BETWEEN {2, 5}", 3));
    EXPECT_TRUE(holds("rect.x >= 15 && rect.y < 20.5 && wdRect.size.height = 22 && rect.origin.x == 15", 2));
    EXPECT_TRUE(holds("rect.x > -1", 2));
}

TEST_F(Predicates, ComparesWithNothing) {
    EXPECT_TRUE(holds("value == nil", 3));
    EXPECT_TRUE(holds("label != NULL", 3));
    EXPECT_TRUE(holds("value != 'x'", 3));
    EXPECT_FALSE(holds("value CONTAINS ''", 3));
    EXPECT_FALSE(holds("value < 'x'", 3));
}

TEST_F(Predicates, KnowsLists) {
    EXPECT_TRUE(holds("type IN {'XCUIElementTypeKey', 'XCUIElementTypeButton'}", 3));
    EXPECT_FALSE(holds("type IN {'XCUIElementTypeKey'}", 3));
    EXPECT_FALSE(holds("type IN {}", 3));
    EXPECT_TRUE(holds("index IN {1, 3}", 3));
}

TEST_F(Predicates, JoinsConditions) {
    EXPECT_TRUE(holds("name == 'x' OR name == 'finish' AND label == 'Done'", 3));
    EXPECT_FALSE(holds("(name == 'x' OR name == 'finish') AND label == 'x'", 3));
    EXPECT_TRUE(holds("NOT name == 'x'", 3));
    EXPECT_TRUE(holds("!(name == 'x') && NOT (label == 'x' || label == 'y')", 3));
    EXPECT_TRUE(holds("NOT NOT TRUEPREDICATE", 3));
    EXPECT_FALSE(holds("truepredicate and FALSEPREDICATE", 3));
}

TEST_F(Predicates, ReadsEscapes) {
    EXPECT_TRUE(holds(R"('it\'s' == "it's")", 3));
    EXPECT_TRUE(holds(R"("a\"b" == 'a"b')", 3));
    EXPECT_TRUE(holds(R"('\u00c4' == 'Ä')", 3));
    EXPECT_TRUE(holds(R"('a\\b' MATCHES 'a\\\\b')", 3));
}

TEST_F(Predicates, TakesATextForTheNumberThatItIs) {
    EXPECT_TRUE(holds("'12' > 9", 3));
    EXPECT_TRUE(holds("'1' == true", 3));
    EXPECT_FALSE(holds("'12a' > 9", 3));
}

TEST_F(Predicates, SayWhereTheyCannotBeRead) {
    EXPECT_EQ(refusal("label = = 'x'"),
              "invalid selector: the predicate `label = = 'x'` cannot be read at character 9: "
              "a name or a value is missing");
    EXPECT_EQ(refusal("label == 'Ä' foo"), "invalid selector: the predicate `label == 'Ä' foo` cannot be read at "
                                           "character 14: the condition is complete before this; join conditions with "
                                           "AND or OR");
    EXPECT_NE(refusal("titel == 'x'").find("at character 1: there is no attribute `titel`"), std::string::npos);
    EXPECT_NE(refusal("visible == 'true'").find("write true or 1 without quotes"), std::string::npos);
    EXPECT_NE(refusal("label MATCHES '('").find("is no regular expression"), std::string::npos);
}

TEST_F(Predicates, RefuseWhatIsNone) {
    for (const char* wrong : {"",
                              "   ",
                              "label",
                              "visible",
                              "label ==",
                              "== 'x'",
                              "label == 'x",
                              "label == \"x'",
                              "label == 'x' AND",
                              "AND label == 'x'",
                              "label == 'x' OR OR label == 'y'",
                              "NOT",
                              "(label == 'x'",
                              "label == 'x')",
                              "()",
                              "label === 'x'",
                              "label IN {'x'",
                              "label IN {'x',}",
                              "label IN {'x' 'y'}",
                              "label IN",
                              "index BETWEEN {1}",
                              "index BETWEEN 1",
                              "label CONTAINS[x] 'a'",
                              "label CONTAINS[] 'a'",
                              "label CONTAINS[cc] 'a'",
                              "label CONTAINS[c 'a'",
                              "label CONTAINS 5",
                              "visible CONTAINS 'a'",
                              "label CONTAINS nil",
                              "label MATCHES '[a'",
                              "label MATCHES '(?<n>'",
                              "label MATCHES name",
                              "index == 'x'",
                              "rect == 5",
                              "rect.z == 5",
                              "label.length == 5",
                              "index == 1e999",
                              "index == 12abc",
                              "label == %@",
                              "label == $x",
                              "ANY children.label == 'x'",
                              "SELF == 'x'",
                              R"(label == '\u12')",
                              R"(label == '\ud800')",
                              "label == 'x';",
                              "label LIKES 'x'",
                              "elementType == 9"}) {
        EXPECT_EQ(refusal(wrong).substr(0, 17), "invalid selector:") << wrong;
    }
}

TEST_F(Predicates, EndureDeepNestingAndLength) {
    const int many = 100'000;
    const std::string open(many, '(');

    EXPECT_NE(refusal(open), "");
    EXPECT_NE(refusal(open + "index == 1" + std::string(many, ')')).find("parentheses are open"), std::string::npos);
    EXPECT_LT(refusal(open).size(), 1000U);

    std::string chain = "index == 5";
    std::string negations;
    for (int i = 0; i < many; ++i) {
        chain += i % 2 == 0 ? " OR index == 5" : " AND index == 5";
        negations += "NOT ";
    }
    EXPECT_FALSE(holds(chain, 3));
    EXPECT_TRUE(holds(negations + "index == 1", 3));
}

TEST_F(Predicates, EndureExpressionsThatTakeForever) {
    const AccessibilityTree long1(screen(view("UILabel", "UILabel", 1, "text=\"" + std::string(5000, 'a') + "\"")),
                                  "Phone");
    const Predicate predicate = Predicate::parse("label MATCHES '(a+)+(a+)+(a+)+b'");

    EXPECT_NE(refusalOf([&] { predicate.matches(long1.byIdentity(1)); }).find("is too much work"), std::string::npos);
}

} // namespace phone::webdriver
