#include "phone/elements/ClassChain.h"

#include "tests/elements/Canned.h"

namespace phone::webdriver {

namespace {

class ClassChains : public Form {
protected:
    Names chain(const std::string& text) { return found("-ios class chain", text); }
    static std::string refusal(const std::string& text) {
        return refusalOf([&] { ClassChain::parse(text); });
    }
};

} // namespace

TEST_F(ClassChains, FollowChildren) {
    EXPECT_EQ(chain("XCUIElementTypeWindow/XCUIElementTypeButton"), Names{"finish"});
    EXPECT_EQ(chain("Window/Button"), Names{"finish"});
    EXPECT_EQ(chain("XCUIElementTypeButton"), Names{});
    EXPECT_EQ(chain("*/*/XCUIElementTypeCell"), (Names{"Calendar, Work", "Repeat, Never"}));
    EXPECT_EQ(chain("XCUIElementTypeAny/XCUIElementTypeTextField").size(), 1U);
}

TEST_F(ClassChains, FollowDescendants) {
    EXPECT_EQ(chain("**/XCUIElementTypeCell/XCUIElementTypeStaticText"),
              (Names{"Calendar", "Work", "Repeat", "Never"}));
    EXPECT_EQ(chain("XCUIElementTypeWindow/**/XCUIElementTypeCell").size(), 2U);
    EXPECT_EQ(chain("**/*/**/XCUIElementTypeStaticText"),
              (Names{"Äpfel & Birnen", "Done", "Calendar", "Work", "Repeat", "Never"}));
}

TEST_F(ClassChains, ChooseByNumber) {
    EXPECT_EQ(chain("**/XCUIElementTypeCell[1]"), Names{"Calendar, Work"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[-1]"), Names{"Repeat, Never"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[-2]/*[2]"), Names{"Work"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[3]"), Names{});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[-3]"), Names{});
}

TEST_F(ClassChains, ChooseByConditions) {
    EXPECT_EQ(chain("**/XCUIElementTypeCell[`label BEGINSWITH \"R\"`]"), Names{"Repeat, Never"});
    EXPECT_EQ(chain("**/*[`label BEGINSWITH 'R'`][-1]"), Names{"Repeat"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[`visible == 1`][`label CONTAINS 'Work'`]/*[1]"), Names{"Calendar"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[$label == 'Never'$]"), Names{"Repeat, Never"});
    EXPECT_EQ(chain("**/XCUIElementTypeCell[$label == 'Repeat, Never'$]"), Names{});
    EXPECT_EQ(chain("**/XCUIElementTypeTable[$type == 'XCUIElementTypeCell' AND label BEGINSWITH 'C'$]").size(), 1U);
}

TEST_F(ClassChains, TakeDoubledSignsForOne) {
    const AccessibilityTree odd(screen(view("UILabel", "UILabel", 1, "text=\"a`b\"") +
                                       view("UIView", "UIView", 2, "", view("UILabel", "UILabel", 3, "text=\"5$\""))),
                                "Phone");

    EXPECT_EQ(names(find(odd.application(), "class chain", "**/*[`label == 'a``b'`]")), Names{"a`b"});
    EXPECT_EQ(find(odd.application(), "class chain", "**/*[$label == '5$$'$]").size(), 1U);
}

TEST_F(ClassChains, BeginAtTheElementThatIsSearched) {
    EXPECT_EQ(names(find(one(10), "class chain", "XCUIElementTypeStaticText")), (Names{"Calendar", "Work"}));
    EXPECT_EQ(names(find(one(6), "class chain", "**/XCUIElementTypeStaticText[-1]")), Names{"Never"});
}

TEST_F(ClassChains, SayWhereTheyCannotBeRead) {
    EXPECT_EQ(refusal("**/XCUIElementTypeCell[0]"), "invalid selector: the class chain cannot be read at character 24: "
                                                    "numbers begin at 1, or at -1 from the end");
    EXPECT_EQ(refusal("**/Cel"),
              "invalid selector: the class chain cannot be read at character 4: there is no type Cel");
    EXPECT_NE(refusal("**/*[`label =`]").find("at character 7: the predicate `label =` cannot be read at character 8"),
              std::string::npos);
}

TEST_F(ClassChains, RefuseWhatIsNone) {
    for (const char* wrong : {"",
                              " ",
                              "/",
                              "//",
                              "/XCUIElementTypeCell",
                              "//XCUIElementTypeCell",
                              "XCUIElementTypeCell/",
                              "XCUIElementTypeCell//XCUIElementTypeButton",
                              "**",
                              "**/",
                              "***",
                              "**XCUIElementTypeCell",
                              "**/**/XCUIElementTypeCell",
                              "XCUIElementTypeCell**",
                              "XCUIElementTypeCell*",
                              "*XCUIElementTypeCell",
                              "XCUIElementTypeNothing",
                              "xcuielementtypecell",
                              "XCUIElementType",
                              "XCUIElementTypeCell ",
                              "XCUIElementTypeCell [1]",
                              "XCUIElementTypeCell[]",
                              "XCUIElementTypeCell[",
                              "XCUIElementTypeCell[1",
                              "XCUIElementTypeCell]",
                              "XCUIElementTypeCell[0]",
                              "XCUIElementTypeCell[-0]",
                              "XCUIElementTypeCell[1.5]",
                              "XCUIElementTypeCell[--1]",
                              "XCUIElementTypeCell[+1]",
                              "XCUIElementTypeCell[one]",
                              "XCUIElementTypeCell[1][2]",
                              "XCUIElementTypeCell[1][`label == 'x'`]",
                              "XCUIElementTypeCell[99999999999999999999]",
                              "XCUIElementTypeCell[`label == 'x']",
                              "XCUIElementTypeCell[label == 'x'`]",
                              "XCUIElementTypeCell[label == 'x']",
                              "XCUIElementTypeCell[`label == 'x'$]",
                              "XCUIElementTypeCell[$label == 'x'`]",
                              "XCUIElementTypeCell[``]",
                              "XCUIElementTypeCell[$$]",
                              "XCUIElementTypeCell[`label`]",
                              "XCUIElementTypeCell[`label == 'x'`1]",
                              "XCUIElementTypeCell[`label == 'x'`",
                              "XCUIElementTypeCell['label == 1']",
                              "XCUIElementTypeCell.XCUIElementTypeButton",
                              "#id"}) {
        EXPECT_EQ(refusal(wrong).substr(0, 17), "invalid selector:") << wrong;
    }
}

TEST_F(ClassChains, EndureLength) {
    std::string many = "*";
    for (int i = 0; i < 100'000; ++i) {
        many += "/**/*";
    }
    EXPECT_NE(refusal(many).find("more than 50 steps"), std::string::npos);
    EXPECT_NE(refusal("*[" + std::string(100'000, '`')), "");
}

} // namespace phone::webdriver
