#include "phone/foundation/PropertyListGuard.h"
#include "phone/foundation/PropertyList.h"
#include "platform/foundation/NSDictionary.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string xmlArrays(int depth) {
    return "<?xml version=\"1.0\"?><plist>" + repeated("<array>", depth) + repeated("</array>", depth) + "</plist>";
}

std::string oldStyleArrays(int depth) { return repeated("(", depth) + repeated(")", depth); }

/// The text in the other width, its lower byte first.
std::string utf16(const std::string& ascii) {
    std::string wide = "\xff\xfe";
    for (const char c : ascii) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

/// A binary property list of one-byte references and offsets; the first object is the root.
std::string binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += static_cast<char>(bytes.size());
        bytes += object;
    }
    const auto tableAt = static_cast<char>(bytes.size());
    return bytes + table + std::string(6, '\0') + "\1\1" + std::string(7, '\0') + static_cast<char>(objects.size()) +
           std::string(8, '\0') + std::string(7, '\0') + tableAt;
}

class PropertyListGuardTest : public FoundationTest {};

TEST_F(PropertyListGuardTest, TheDeepestThatIsAllowedIsRead) {
    EXPECT_TRUE(parsePropertyList(xmlArrays(deepestPropertyList)));
    EXPECT_TRUE(parsePropertyList(oldStyleArrays(deepestPropertyList)));
    EXPECT_TRUE(isSafeToParse(utf16(oldStyleArrays(deepestPropertyList))));
}

TEST_F(PropertyListGuardTest, OneDeeperIsNot) {
    EXPECT_FALSE(isSafeToParse(xmlArrays(deepestPropertyList + 1)));
    EXPECT_FALSE(isSafeToParse(oldStyleArrays(deepestPropertyList + 1)));
    EXPECT_FALSE(isSafeToParse(utf16(oldStyleArrays(deepestPropertyList + 1))));
    EXPECT_FALSE(isSafeToParse(utf16(xmlArrays(deepestPropertyList + 1))));
}

TEST_F(PropertyListGuardTest, ManyBesideEachOtherAreNotDeep) {
    EXPECT_TRUE(isSafeToParse("<plist><array>" + repeated("<array></array>", 2 * deepestPropertyList)));
    EXPECT_TRUE(isSafeToParse("(" + repeated("(a),", 2 * deepestPropertyList) + ")"));
    EXPECT_TRUE(isSafeToParse("<plist><array>" + repeated("<array/>", 2 * deepestPropertyList)));
}

TEST_F(PropertyListGuardTest, WhatLooksLikeNestingInTextsAndCommentsIsNone) {
    const std::string open = repeated("(", 2 * deepestPropertyList);

    EXPECT_TRUE(isSafeToParse("\"a\" = \"\\\"" + open + "\"; /* " + open + " */ // " + open));
    EXPECT_TRUE(isSafeToParse("<?xml version=\"1.0\"?><plist><string>" + open + "</string></plist>"));
    EXPECT_TRUE(isSafeToParse("<plist><!-- " + repeated("<array>", 2 * deepestPropertyList) + " --></plist>"));
}

TEST_F(PropertyListGuardTest, CommentsHideNoNesting) {
    EXPECT_FALSE(isSafeToParse("<plist>" + repeated("<array><!-- </array> -->", deepestPropertyList + 1)));
    EXPECT_FALSE(isSafeToParse("<plist>" + repeated("<array><![CDATA[</array>]]>", deepestPropertyList + 1)));
    EXPECT_FALSE(isSafeToParse(repeated("(/* ) */", deepestPropertyList + 1)));
    EXPECT_FALSE(isSafeToParse(repeated("(a//b,", deepestPropertyList + 1)));
}

TEST_F(PropertyListGuardTest, BinaryListsAreRead) {
    const NSObject read =
        parsePropertyList(binary({"\xd2\x01\x02\x03\x04", "\x51o", "\x51t", "\x53one", "\x5f\x10\x03two"}));

    ASSERT_TRUE(objc::isKind<NSDictionary>(read));
    EXPECT_EQ(text(objc::as<NSDictionary>(read).at<NSString>("o"_ns)), "one");
    EXPECT_EQ(text(objc::as<NSDictionary>(read).at<NSString>("t"_ns)), "two");
}

TEST_F(PropertyListGuardTest, ABinaryListCutShortAnywhereIsNone) {
    const std::string whole = binary({"\xd1\x01\x02", "\x51o", "\x53one"});
    ASSERT_TRUE(parsePropertyList(whole));

    for (std::size_t length = 0; length < whole.size(); ++length) {
        // A few letters alone are a text in the old style.
        EXPECT_FALSE(objc::isKind<NSDictionary>(parsePropertyList(whole.substr(0, length)))) << length;
    }
}

TEST_F(PropertyListGuardTest, ABinaryListWithAnyByteChangedIsReadOrNot) {
    const std::string whole =
        binary({"\xd2\x01\x02\x03\x04", "\x51o", "\x51t", "\xa1\x02", "\x13" + std::string(8, '\1')});

    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char byte : {'\x00', '\x0f', '\x5f', '\x7f', '\xaf', '\xdf', '\xff'}) {
            std::string changed = whole;
            changed[at] = byte;
            (void)parsePropertyList(changed);
        }
    }
}

TEST_F(PropertyListGuardTest, AnObjectThatHoldsItselfIsNoList) {
    EXPECT_FALSE(isSafeToParse(binary({std::string("\xa1\x00", 2)})));
    EXPECT_FALSE(isSafeToParse(binary({"\xa1\x01", std::string("\xa1\x00", 2)})));
}

TEST_F(PropertyListGuardTest, ASharedObjectCountsWhereverItIsReferredTo) {
    std::vector<std::string> objects;
    for (int i = 1; i <= 20; ++i) { // the last of them a million times
        objects.push_back(std::string("\xa2") + static_cast<char>(i) + static_cast<char>(i));
    }
    objects.emplace_back("\x51x");

    EXPECT_FALSE(isSafeToParse(binary(objects)));
}

TEST_F(PropertyListGuardTest, AnXmlListCutShortAnywhereIsNone) {
    const std::string whole = "<?xml version=\"1.0\"?>\n<!DOCTYPE plist PUBLIC \"-//a//b\" \"http://c/d.dtd\">\n"
                              "<plist version=\"1.0\"><!-- a --><dict><key>a</key><string>b &amp; c</string>"
                              "<key>d</key><array><true/><![CDATA[e]]></array></dict></plist>";

    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(parsePropertyList(whole.substr(0, length))) << length;
    }
}

TEST_F(PropertyListGuardTest, AnXmlListWithAnyByteChangedIsReadOrNot) {
    const std::string whole = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key><string>&lt;</string>"
                              "<key>d</key><array><true/><integer>1</integer></array></dict></plist>";

    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char byte : std::string("<>/&;!?\"-[ \0\xff", 13)) {
            std::string changed = whole;
            changed[at] = byte;
            (void)parsePropertyList(changed);
            changed.insert(at, 1, byte);
            (void)parsePropertyList(changed);
        }
    }
}

TEST_F(PropertyListGuardTest, ATableCutShortAnywhereIsReadOrNot) {
    const std::string whole = "/* words */ \"Done\" = \"Fertig\";\n\"Cancel\" = \"Abbrechen\\n\"; {a=(b,<00ff>);}\n";

    for (std::size_t length = 0; length <= whole.size(); ++length) {
        (void)parsePropertyList(whole.substr(0, length));
        (void)parsePropertyList(utf16(whole).substr(0, length));
    }
}

} // namespace
} // namespace phone
