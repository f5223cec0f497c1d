#include "phone/elements/Source.h"

#include "tests/elements/Canned.h"

#include <gmock/gmock.h>

namespace phone::webdriver {

using testing::HasSubstr;
using testing::Not;

TEST_F(Form, PrintsItsSourceAsXml) {
    const std::string xml = xmlSource(tree.application());

    EXPECT_THAT(xml, HasSubstr("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<XCUIElementTypeApplication "
                               "type=\"XCUIElementTypeApplication\" name=\"Phone\" label=\"Phone\" enabled=\"true\" "
                               "visible=\"true\" accessible=\"false\" x=\"0\" y=\"0\" width=\"320\" height=\"568\" "
                               "index=\"0\">"));
    EXPECT_THAT(xml, HasSubstr("<XCUIElementTypeTextField type=\"XCUIElementTypeTextField\" value=\"Title\" "
                               "enabled=\"true\" visible=\"true\" accessible=\"true\" x=\"0\" y=\"0\" width=\"10\" "
                               "height=\"10\" index=\"2\" placeholderValue=\"Title\" />"));
    EXPECT_THAT(xml, HasSubstr("value=\"Äpfel &amp; Birnen\""));
    EXPECT_THAT(xml, Not(HasSubstr("identity")));
    EXPECT_THAT(xml, Not(HasSubstr("hittable")));
}

TEST_F(Form, LeavesAttributesOutOfItsSource) {
    const std::string xml = xmlSource(tree.application(), {"visible", "x", "accessible"});

    EXPECT_THAT(xml, Not(HasSubstr("visible=")));
    EXPECT_THAT(xml, Not(HasSubstr(" x=")));
    EXPECT_THAT(xml, HasSubstr(" y="));
}

TEST_F(Form, PrintsTheSourceOfAPart) {
    EXPECT_THAT(xmlSource(one(10)), HasSubstr("?>\n<XCUIElementTypeCell "));
    EXPECT_THAT(xmlSource(one(10)), Not(HasSubstr("Repeat")));
}

TEST(Source, LeavesOutWhatXmlDoesNotHave) {
    const AccessibilityTree tree(screen(view("UILabel", "UILabel", 1, "text=\"a&#1;b&#10;c\"")), "Phone");

    EXPECT_THAT(xmlSource(tree.application()), HasSubstr("value=\"ab&#10;c\""));
}

TEST_F(Form, PrintsItsSourceAsJson) {
    const auto root = jsonSource(tree.application());

    EXPECT_EQ(root["type"], "Application");
    EXPECT_EQ(root["rawIdentifier"], nullptr);
    EXPECT_EQ(root["isVisible"], "1");
    const auto& button = root["children"][0]["children"][1];
    EXPECT_EQ(button["type"], "Button");
    EXPECT_EQ(button["rawIdentifier"], "finish");
    EXPECT_EQ(button["name"], "finish");
    EXPECT_EQ(button["label"], "Done");
    EXPECT_EQ(button["value"], nullptr);
    EXPECT_EQ(button["rect"]["width"], 10);
    EXPECT_EQ(button["isEnabled"], "1");
    EXPECT_FALSE(button["children"][0].contains("children"));
}

TEST_F(Form, DescribesItselfToPeople) {
    EXPECT_THAT(
        descriptionSource(tree.application()),
        HasSubstr("Application, {{0, 0}, {320, 568}}, label: \"Phone\"\n"
                  "  Window, {{0, 0}, {10, 10}}\n"
                  "    StaticText, {{15, 20}, {100, 22}}, label: \"Äpfel & Birnen\", value: \"Äpfel & Birnen\"\n"
                  "    Button, {{0, 0}, {10, 10}}, identifier: \"finish\", label: \"Done\"\n"));
}

} // namespace phone::webdriver
