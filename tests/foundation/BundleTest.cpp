#include "phone/foundation/Bundle.h"
#include "platform/foundation/NSBundle.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

constexpr const char* path = "/Library/Quorvan/Translations.bundle/";

class BundleTest : public FoundationTest {
protected:
    void table(const std::string& language, const std::string& contents) const {
        put(path + language + ".lproj/Localizable.strings", contents);
    }
    static NSBundle bundle() { return NSBundle::withPath(string(path)); }
    static std::string utf16(const std::u16string& text) {
        return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
    }
    static std::string word(const std::string& key) {
        return text(bundle().localizedString(string(key), ""_ns, nullptr));
    }
};

// Trap: what-is-missing-is-nil
// Holds: bundle-of-a-path
TEST_F(BundleTest, APathThatIsMissingOrAFileGivesNil) {
    put("/Library/Quorvan/file", "x");

    EXPECT_FALSE(NSBundle::withPath("/Library/Quorvan/Missing.bundle"_ns));
    EXPECT_FALSE(NSBundle::withPath("/Library/Quorvan/file"_ns));
    EXPECT_FALSE(NSBundle::withPath(nullptr));
}

// Holds: bundle-of-a-path
TEST_F(BundleTest, AFolderWithoutInformationIsABundle) {
    std::filesystem::create_directories(host(path));

    EXPECT_TRUE(bundle());
}

TEST_F(BundleTest, LoadsOnceWhatThePhoneHasBuiltIn) {
    static int loads = 0;
    std::filesystem::create_directories(host("/System/Library/Frameworks/Some.framework"));
    provideBundle("/System/Library/Frameworks/Some.framework", [] { ++loads; });
    const auto framework = NSBundle::withPath("/System/Library/Frameworks/Some.framework/"_ns);

    EXPECT_EQ(loads, 0);
    EXPECT_TRUE(framework.load());
    EXPECT_TRUE(framework.load());

    EXPECT_EQ(loads, 1);
}

TEST_F(BundleTest, CannotLoadWhatHasNoCode) {
    std::filesystem::create_directories(host(path));

    EXPECT_FALSE(bundle().load());
    EXPECT_FALSE(NSBundle().load());
}

TEST_F(BundleTest, TheTableMayBeTextInUtf8WithoutAMark) {
    table("en", "/* words */\n\"Note\" = \"Nöte „x“\";\n// one more\n\"Done\" = \"a\\nb\";\n");

    EXPECT_EQ(word("Note"), "Nöte „x“");
    EXPECT_EQ(word("Done"), "a\nb");
}

TEST_F(BundleTest, TheTableMayCarryAMarkOrBeUtf16) {
    table("en", "\xef\xbb\xbf\"Note\" = \"ä\";");
    table("de", utf16(u"\ufeff\"Note\" = \"ä\";"));

    EXPECT_EQ(word("Note"), "ä");
    speak("de");
    put("/Library/Second.bundle/de.lproj/Localizable.strings",
        bytes(std::string(path) + "de.lproj/Localizable.strings"));
    EXPECT_EQ(text(NSBundle::withPath("/Library/Second.bundle"_ns).localizedString("Note"_ns, nullptr, nullptr)), "ä");
}

TEST_F(BundleTest, TheTableMayBeAPropertyList) {
    table("en", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>Note</key>"
                "<string>word</string></dict></plist>");

    EXPECT_EQ(word("Note"), "word");
}

// Holds: bundle-unknown-key
TEST_F(BundleTest, AnUnknownKeyGivesTheValueOrElseTheKey) {
    table("en", "\"Note\" = \"word\";");

    EXPECT_EQ(word("Other"), "Other");
    EXPECT_EQ(text(bundle().localizedString("Other"_ns, nullptr, nullptr)), "Other");
    EXPECT_EQ(text(bundle().localizedString("Other"_ns, "value"_ns, nullptr)), "value");
    EXPECT_EQ(text(bundle().localizedString(nullptr, "value"_ns, nullptr)), "value");
    EXPECT_EQ(text(bundle().localizedString(nullptr, nullptr, nullptr)), "");
}

// Holds: bundle-unknown-key
TEST_F(BundleTest, ANamedTableIsAFileOfItsOwn) {
    put(std::string(path) + "en.lproj/Other.strings", "\"Note\" = \"other\";");
    table("en", "\"Note\" = \"word\";");

    EXPECT_EQ(text(bundle().localizedString("Note"_ns, nullptr, "Other"_ns)), "other");
    EXPECT_EQ(text(bundle().localizedString("Note"_ns, nullptr, ""_ns)), "word");
}

// Holds: bundle-corrupt-table
TEST_F(BundleTest, AMissingOrCorruptTableGivesKeysWithoutAWord) {
    std::filesystem::create_directories(host(path));
    testing::internal::CaptureStderr();

    EXPECT_EQ(word("Note"), "Note");
    put("/Library/Corrupt.bundle/en.lproj/Localizable.strings", "\"Note\" = \"word\"\n\"Done\" = ");
    EXPECT_EQ(text(NSBundle::withPath("/Library/Corrupt.bundle"_ns).localizedString("Note"_ns, nullptr, nullptr)),
              "Note");

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Holds: bundle-unknown-key
TEST_F(BundleTest, TablesAreReadOnce) {
    table("en", "\"Note\" = \"first\";");
    word("Note");
    table("en", "\"Note\" = \"second\";");

    EXPECT_EQ(word("Note"), "first");
}

// Holds: bundle-language
TEST_F(BundleTest, TheUsersLanguageIsTaken) {
    table("en", "\"Note\" = \"Note\";");
    table("de", "\"Note\" = \"Notiz\";");
    speak("de");

    EXPECT_EQ(word("Note"), "Notiz");
}

TEST_F(BundleTest, ATagFallsBackToItsParent) {
    table("en", "\"Note\" = \"Note\";");
    table("de", "\"Note\" = \"Notiz\";");
    speak("de-AT");

    EXPECT_EQ(word("Note"), "Notiz");
}

TEST_F(BundleTest, TheClosestTagWins) {
    table("pt", "\"Note\" = \"pt\";");
    table("pt_BR", "\"Note\" = \"pt_BR\";");
    speak("pt-BR");

    EXPECT_EQ(word("Note"), "pt_BR");
}

// Holds: bundle-language
TEST_F(BundleTest, ALanguageThatTheBundleLacksGivesTheDevelopmentRegions) {
    put(std::string(path) + "Info.plist", "{ CFBundleDevelopmentRegion = fr; }");
    table("en", "\"Note\" = \"en\";");
    table("fr", "\"Note\" = \"fr\";");
    speak("ja");

    EXPECT_EQ(word("Note"), "fr");
}

TEST_F(BundleTest, WithoutADevelopmentRegionItIsEnglish) {
    table("de", "\"Note\" = \"de\";");
    table("en", "\"Note\" = \"en\";");
    speak("ja");

    EXPECT_EQ(word("Note"), "en");
}

// Holds: bundle-of-nil
TEST_F(BundleTest, ANilBundleGivesNil) { EXPECT_FALSE(NSBundle().localizedString("Note"_ns, ""_ns, nullptr)); }

} // namespace
} // namespace phone
