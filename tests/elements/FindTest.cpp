#include "phone/elements/Find.h"

#include "tests/elements/Canned.h"

namespace phone::webdriver {

TEST_F(Form, FindsByName) {
    for (const char* strategy : {"accessibility id", "id", "name"}) {
        EXPECT_EQ(found(strategy, "finish"), Names{"finish"}) << strategy;
        EXPECT_EQ(found(strategy, "Done"), Names{"Done"}) << strategy;
        EXPECT_EQ(found(strategy, "Nobody"), Names{}) << strategy;
    }
}

TEST_F(Form, FindsByType) {
    EXPECT_EQ(found("class name", "XCUIElementTypeCell"), (Names{"Calendar, Work", "Repeat, Never"}));
    EXPECT_EQ(found("class name", "XCUIElementTypeApplication"), Names{"Phone"});
    EXPECT_EQ(found("class name", "XCUIElementTypeSlider"), Names{});
    EXPECT_EQ(refusalOf([&] { found("class name", "UIButton"); }),
              "invalid selector: there is no type \"UIButton\"; types are such as XCUIElementTypeButton");
}

TEST_F(Form, FindsByPredicate) {
    EXPECT_EQ(found("predicate string", "type == 'XCUIElementTypeApplication'"), Names{"Phone"});
    EXPECT_EQ(found("-ios predicate string", "label == 'Done'"), (Names{"finish", "Done"}));
}

TEST_F(Form, FindsByLinkText) {
    EXPECT_EQ(found("link text", "finish"), Names{"finish"});
    EXPECT_EQ(found("link text", "label=Done"), (Names{"finish", "Done"}));
    EXPECT_EQ(found("partial link text", "label=Wor"), (Names{"Calendar, Work", "Work"}));
    EXPECT_EQ(found("partial link text", "Birnen"), Names{"Äpfel & Birnen"});
    EXPECT_NE(refusalOf([&] { found("link text", "color=red"); }).find("invalid selector"), std::string::npos);
}

TEST_F(Form, FindsByWhatWebTestersSend) {
    EXPECT_EQ(found("css selector", "*[id=\"finish\"]"), Names{"finish"});
    EXPECT_EQ(found("css selector", "*[name=\"Calendar\\, Work\"]"), Names{"Calendar, Work"});
    EXPECT_EQ(found("css selector", "[name='Äpfel \\26  Birnen']"), Names{"Äpfel & Birnen"});
    EXPECT_EQ(found("css selector", ".XCUIElementTypeTextField"), Names{"XCUIElementTypeTextField"});
    EXPECT_EQ(found("css selector", "#Calendar\\,\\ Work"), Names{"Calendar, Work"});
}

TEST_F(Form, RefusesOtherStyleSheetSelectors) {
    for (const char* wrong : {"", "*", "div", ".", "#", ".a.b", ".a b", "#a > b", "*[id=x]", "*[id=\"x\"", "*[id=\"x]",
                              "*[id=\"x\"] a", "*[class=\"x\"]", "*[id^=\"x\"]", "a[id=\"x\"]", ".a\\"}) {
        EXPECT_EQ(refusalOf([&] { found("css selector", wrong); }).substr(0, 17), "invalid selector:") << wrong;
    }
}

TEST_F(Form, RefusesAnUnknownStrategy) {
    EXPECT_EQ(refusalOf([&] { found("tag name", "a"); }).substr(0, 54),
              "invalid argument: there is no strategy \"tag name\"; the");
}

TEST_F(Form, FindsInsideAnElementAndNotTheElement) {
    EXPECT_EQ(names(find(one(10), "class name", "StaticText")), (Names{"Calendar", "Work"}));
    EXPECT_EQ(names(find(one(10), "class name", "Cell")), Names{});
    EXPECT_EQ(names(find(one(10), "name", "Repeat")), Names{});
}

TEST_F(Form, FindsByXPath) {
    EXPECT_EQ(found("xpath", "//XCUIElementTypeCell"), (Names{"Calendar, Work", "Repeat, Never"}));
    EXPECT_EQ(found("xpath", "//*[@name='finish']/.."), Names{"XCUIElementTypeWindow"});
    EXPECT_EQ(found("xpath", "/XCUIElementTypeApplication/XCUIElementTypeWindow/*[2]"), Names{"finish"});
    EXPECT_EQ(found("xpath", "(//XCUIElementTypeStaticText)[last()]"), Names{"Never"});
    EXPECT_EQ(found("xpath", "//XCUIElementTypeStaticText[@label='Work']/preceding-sibling::*"), Names{"Calendar"});
    EXPECT_EQ(found("xpath", "//*[@hittable='true' and @visible='true']"), (Names{"Phone", "finish"}));
    EXPECT_EQ(found("xpath", "//XCUIElementTypeSlider"), Names{});
    EXPECT_EQ(found("xpath", "//*[.//*[@label='Never']][@type='XCUIElementTypeCell']"), Names{"Repeat, Never"});
}

TEST_F(Form, KeepsXPathInsideTheElementThatIsSearched) {
    const auto inside = [&](const char* expression) { return names(find(one(10), "xpath", expression)); };

    EXPECT_EQ(inside("./XCUIElementTypeStaticText"), (Names{"Calendar", "Work"}));
    EXPECT_EQ(inside(".//XCUIElementTypeStaticText[2]"), Names{"Work"});
    EXPECT_EQ(inside("XCUIElementTypeStaticText"), (Names{"Calendar", "Work"}));
    EXPECT_EQ(inside("//XCUIElementTypeStaticText"), (Names{"Calendar", "Work"}));
    EXPECT_EQ(inside("//XCUIElementTypeCell"), Names{"Calendar, Work"});
    EXPECT_EQ(inside("../*"), Names{"Calendar, Work"});
    EXPECT_EQ(inside("../.."), Names{});
    EXPECT_EQ(find(one(10), "xpath", "//*[@label='Work']").at(0), one(12));
}

TEST_F(Form, SaysWhereXPathCannotBeRead) {
    EXPECT_EQ(refusalOf([&] { found("xpath", "//*[@name='Ä'"); }),
              "invalid selector: the XPath expression cannot be read at character 14: Expected ']' to match an opening "
              "'['");
    EXPECT_NE(refusalOf([&] { found("xpath", "//*/@name"); }).find("gives attributes"), std::string::npos);
    EXPECT_NE(refusalOf([&] { found("xpath", "count(//*)"); }).find("gives a value"), std::string::npos);
    for (const char* wrong :
         {"", "//", "//[", "//*[", "//*[]", "foo(", "//*[@a=]", "//*[foo()]", "$x", "a b", "//*[@a='b]"}) {
        EXPECT_EQ(refusalOf([&] { found("xpath", wrong); }).substr(0, 17), "invalid selector:") << wrong;
    }
}

TEST_F(Form, RefusesXPathThatIsTooMuchWork) {
    EXPECT_NE(refusalOf([&] { found("xpath", "//*[//*[//*[//*[//*[//*[//*[//*]]]]]]]"); }).find("too much work"),
              std::string::npos);
    EXPECT_NE(refusalOf([&] { found("xpath", std::string(100'000, '(')); }), "");
    EXPECT_NE(refusalOf([&] { found("xpath", std::string(9'000, '(')); }), "");
    EXPECT_NE(refusalOf([&] { found("xpath", std::string(9'000, '-') + "1"); }), "");
}

} // namespace phone::webdriver
