#include "phone/flow/Preferences.h"

#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;
using testing::Not;

namespace {
constexpr const char* file = "var/mobile/Library/Preferences/Mirelda.Quorvan.plist";
}

TEST(Preferences, AreWrittenAsAnXmlPropertyList) {
    const TemporaryFolder root;

    writePreferences(root.path(), {{{"SwitchCell1", true}, {"b", 3L}, {"c", 0.5}, {"d", std::string("a & b")}}});

    const std::string text = root.read(file);
    EXPECT_THAT(text, HasSubstr("<!DOCTYPE plist PUBLIC"));
    EXPECT_THAT(text, HasSubstr("<key>SwitchCell1</key>\n\t\t<true />"));
    EXPECT_THAT(text, HasSubstr("<key>b</key>\n\t\t<integer>3</integer>"));
    EXPECT_THAT(text, HasSubstr("<key>c</key>\n\t\t<real>0.5</real>"));
    EXPECT_THAT(text, HasSubstr("<key>d</key>\n\t\t<string>a &amp; b</string>"));
}

TEST(Preferences, KeepOtherKeysAndRemoveWithNull) {
    const TemporaryFolder root;
    root.write(file, "<plist version=\"1.0\"><dict><key>other</key><array><string> x </string></array>"
                     "<key>SwitchCell1</key><true/><key>SwitchCell2</key><true/></dict></plist>");

    writePreferences(root.path(), {{{"SwitchCell1", false}, {"SwitchCell2", std::monostate()}}});

    const std::string text = root.read(file);
    EXPECT_THAT(text, HasSubstr("<string> x </string>"));
    EXPECT_THAT(text, HasSubstr("<key>SwitchCell1</key>\n\t\t<false />"));
    EXPECT_THAT(text, Not(HasSubstr("SwitchCell2")));
    EXPECT_THAT(text, Not(HasSubstr("<true")));
}

TEST(Preferences, ReplaceAFileThatIsNoPropertyList) {
    const TemporaryFolder root;
    root.write(file, "rubbish <");

    writePreferences(root.path(), {{{"SwitchCell1", true}}});

    EXPECT_THAT(root.read(file), HasSubstr("SwitchCell1"));
}

TEST(Preferences, DoNotDestroyABinaryPropertyList) {
    const TemporaryFolder root;
    root.write(file, "bplist00...");

    EXPECT_THROW(writePreferences(root.path(), {{{"SwitchCell1", true}}}), InputError);
    EXPECT_EQ(root.read(file), "bplist00...");
}
