#include "phone/foundation/PropertyList.h"
#include "phone/device/Log.h"
#include "phone/foundation/Data.h"
#include "phone/foundation/XmlPropertyList.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSDictionary.h"
#include "platform/foundation/NSNumber.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

constexpr const char* path = "/Library/Quorvan/noteText.plist";

struct NSNull : NSObject {
    static constexpr auto objc_name = "NSNull";
};

class PropertyListTest : public FoundationTest {
protected:
    PropertyListTest() { std::filesystem::create_directories(host("/Library/Quorvan")); }

    static NSMutableDictionary dictionary(const std::string& key, const NSObject& value) {
        const auto made = objc::make<NSMutableDictionary>();
        made.set(value, string(key));
        return made;
    }
    NSDictionary read(const std::string& contents) const {
        put(path, contents);
        return NSDictionary::withContentsOfFile(string(path));
    }
    static NSObject null() { return objc::sendClass<NSNull, "null", NSObject>(); }
};

TEST_F(PropertyListTest, DictionariesAreWrittenAsXml) {
    ASSERT_TRUE(dictionary("Title", "  Note"_ns).writeToFile(string(path), true));

    EXPECT_TRUE(bytes(path).starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    EXPECT_NE(bytes(path).find("<key>Title</key>"), std::string::npos);
    EXPECT_NE(bytes(path).find("<string>  Note</string>"), std::string::npos);
}

TEST_F(PropertyListTest, ArraysAreWrittenAsXml) {
    ASSERT_TRUE((NSArray::of("Tasks"_ns, "Work"_ns).send<"writeToFile:atomically:", bool>(string(path), true)));

    EXPECT_NE(bytes(path).find("<array>"), std::string::npos);
    EXPECT_EQ(NSArray::withContentsOfFile(string(path)).count(), 2u);
}

TEST_F(PropertyListTest, WhatIsWrittenReadsBackAsItWas) {
    const std::string odd = "ä & <b>\n  „Wörter“ \U0001F600 日本";
    const auto written = dictionary("text", string(odd));
    written.set(NSNumber::withBool(true), "flag"_ns);
    written.set(NSNumber::withDouble(0.5), "number"_ns);
    written.set(NSDate::now(), "date"_ns);
    written.set(NSArray::of(""_ns), "list"_ns);
    written.writeToFile(string(path), false);

    const auto read = NSDictionary::withContentsOfFile(string(path));

    EXPECT_EQ(text(read.at<NSString>("text"_ns)), odd);
    EXPECT_TRUE(read.at<NSNumber>("flag"_ns).boolValue());
    EXPECT_EQ(read.at<NSNumber>("number"_ns).doubleValue(), 0.5);
    EXPECT_EQ(read.at<NSDate>("date"_ns).sinceReferenceDate(), NSDate::now().sinceReferenceDate());
    EXPECT_EQ(text(read.at<NSArray>("list"_ns).at<NSString>(0)), "");
}

TEST_F(PropertyListTest, NumbersDatesAndDataHaveTheirElements) {
    const auto all = NSArray::of(NSNumber::withBool(true), NSNumber::withBool(false), NSNumber::withInteger(1),
                                 NSNumber::withInteger(-5), NSNumber::withDouble(0.1), NSDate::now(),
                                 NSData::of("hello"), NSArray::of(), objc::make<NSDictionary>());

    EXPECT_NE(
        xmlPropertyList(all).find("<array>\n\t<true/>\n\t<false/>\n\t<integer>1</integer>\n\t<integer>-5</integer>"
                                  "\n\t<real>0.1</real>\n\t<date>2026-03-05T14:37:12Z</date>\n\t<data>aGVsbG8="
                                  "</data>\n\t<array/>\n\t<dict/>\n</array>\n</plist>\n"),
        std::string::npos)
        << xmlPropertyList(all);
}

// Holds: property-list-refused-whole, property-list-values
TEST_F(PropertyListTest, WhatIsNoPropertyListIsRefusedAndTheOldFileStays) {
    dictionary("Title", "old"_ns).writeToFile(string(path), true);
    const std::string before = bytes(path);

    EXPECT_FALSE(dictionary("Title", null()).writeToFile(string(path), true));
    EXPECT_FALSE(dictionary("Title", NSArray::of(null())).writeToFile(string(path), true));
    EXPECT_FALSE((NSArray::of(objc::make<NSObject>()).send<"writeToFile:atomically:", bool>(string(path), true)));

    EXPECT_EQ(bytes(path), before);
}

// Holds: property-list-values
TEST_F(PropertyListTest, KeysMustBeStrings) {
    const auto numbered = objc::make<NSMutableDictionary>();
    numbered.set("value"_ns, NSNumber::withInteger(1));

    EXPECT_FALSE(numbered.writeToFile(string(path), true));
    EXPECT_FALSE(std::filesystem::exists(host(path)));
}

TEST_F(PropertyListTest, WritingIntoAMissingFolderFails) {
    EXPECT_FALSE(dictionary("a", "b"_ns).writeToFile("/Library/Missing/file.plist"_ns, true));
    EXPECT_FALSE(dictionary("a", "b"_ns).writeToFile("/Library/Missing/file.plist"_ns, false));
}

TEST_F(PropertyListTest, AnAtomicWriteLeavesNothingElseBehind) {
    dictionary("a", "b"_ns).writeToFile(string(path), true);

    const std::filesystem::directory_iterator files(host("/Library/Quorvan"));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

// Holds: property-list-read
TEST_F(PropertyListTest, XmlBinaryAndOldStyleAreRead) {
    const auto xml =
        read("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>SwitchCell1</key>"
             "<true/></dict></plist>");
    EXPECT_TRUE(xml.at<NSNumber>("SwitchCell1"_ns).boolValue());

    const auto old = read("{ Filter = { Bundles = ( \"com.apple.InCallService\", other ); }; }");
    EXPECT_EQ(old.at<NSDictionary>("Filter"_ns).at<NSArray>("Bundles"_ns).count(), 2u);

    // {"a": true}, as the platform's tools write it.
    const auto binary = read(std::string("bplist00\xd1\x01\x02Qa\t\x08\x0b\r\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03"
                                         "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x0e",
                                         49));
    EXPECT_TRUE(binary.at<NSNumber>("a"_ns).boolValue());
}

// Holds: property-list-read
TEST_F(PropertyListTest, WhatCannotBeReadIsNilWithoutAWord) {
    testing::internal::CaptureStderr();

    EXPECT_FALSE(NSDictionary::withContentsOfFile("/Library/Quorvan/missing.plist"_ns));
    for (const std::string& corrupt :
         {std::string(), std::string("{ a = b; c = (1, 2; }"), std::string("\x01\x02\xff\0zz", 6),
          std::string("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key><string>b</dict></plist>"),
          std::string("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key>"), std::string("bplist00"),
          std::string("bplist00abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz"), std::string("this is text")}) {
        EXPECT_FALSE(read(corrupt)) << corrupt;
    }

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Holds: property-list-read
TEST_F(PropertyListTest, ARootOfAnotherKindIsNil) {
    EXPECT_FALSE(read("( a, b )"));
    EXPECT_FALSE(read("hello"));
    EXPECT_FALSE(NSArray::withContentsOfFile(string(path)));
    put(path, "{ a = b; }");
    EXPECT_FALSE(NSArray::withContentsOfFile(string(path)));
}

// Holds: property-list-read
TEST_F(PropertyListTest, NestedContainersCannotBeChanged) {
    const auto inner = read("{ a = ( b ); }").at<NSMutableArray>("a"_ns);

    EXPECT_FALSE(objc::isKind<NSMutableArray>(inner));
}

TEST_F(PropertyListTest, AMutableDictionaryReadsAFileToo) {
    put(path, "{ a = b; }");

    const auto read = objc::make<NSMutableDictionary, "initWithContentsOfFile:">(string(path));
    read.set("d"_ns, "c"_ns);

    EXPECT_EQ(read.count(), 2u);
}

TEST_F(PropertyListTest, EachWritingAndReadingIsOneEntryInTheLog) {
    const auto contents = dictionary("Title", "text"_ns);
    contents.writeToFile(string(path), true);
    contents.writeToFile(string(path), true);
    NSDictionary::withContentsOfFile(string(path));
    NSDictionary::withContentsOfFile("/Library/Quorvan/missing.plist"_ns);

    const auto entries = Log::shared().entries();

    ASSERT_EQ(entries.size(), 4u);
    for (int i : {0, 1}) {
        EXPECT_EQ(entries[i].dump(),
                  R"({"t":0.0,"what":"file","action":"write","path":"/Library/Quorvan/noteText.plist","ok":true})");
    }
    EXPECT_EQ(entries[2]["action"], "read");
    EXPECT_EQ(entries[2]["ok"], true);
    EXPECT_EQ(entries[3]["ok"], false);
}

TEST_F(PropertyListTest, StringsInFilesAreLoggedOnce) {
    "text"_ns.send<"writeToFile:atomically:", bool>(string(path), true);
    objc::make<NSString, "initWithContentsOfFile:">(string(path));

    const auto entries = Log::shared().entries();

    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0]["action"], "write");
    EXPECT_EQ(entries[1]["action"], "read");
    EXPECT_EQ(entries[1]["ok"], true);
}

} // namespace
} // namespace phone
