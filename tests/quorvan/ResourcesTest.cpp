#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* preferences = "/var/mobile/Library/Preferences/Mirelda.Quorvan.plist";

class Resources : public CallTest {
protected:
    void writeSettings(const std::string& body) {
        write(preferences, "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + body + "</dict></plist>");
    }
    bool hasTitleField() { return static_cast<bool>(titleField()); }
    bool hasKeyboard() { return static_cast<bool>(tree().select_node("//*[@firstResponder='true']")); }
};

class Switches : public Resources {};
class Words : public Resources {};

TEST_F(Switches, WithoutAPreferencesFileEveryOneIsOff) {
    start();
    startNote();

    EXPECT_FALSE(hasTitleField());
    EXPECT_FALSE(hasKeyboard());
    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
    typeNote("lost");
    cancel();
    EXPECT_EQ(keptText(), "  Note|Title");
}

TEST_F(Switches, ABooleanCounts) {
    writeSettings("<key>SwitchCell3</key><true/>");
    start();
    startNote();

    EXPECT_TRUE(hasTitleField());
}

TEST_F(Switches, ANumberCountsByItsTruth) {
    writeSettings("<key>SwitchCell3</key><integer>2</integer><key>SwitchCell1</key><integer>0</integer>");
    start();
    startNote();

    EXPECT_TRUE(hasTitleField());
    EXPECT_FALSE(hasKeyboard());
}

TEST_F(Switches, AnythingElseIsOff) {
    for (const char* value :
         {"<string>YES</string>", "<string>1</string>", "<array><true/></array>", "<dict><key>a</key><true/></dict>",
          "<data>AQ==</data>", "<date>2026-03-05T14:37:12Z</date>"}) {
        SCOPED_TRACE(value);
        writeSettings(std::string("<key>SwitchCell3</key>") + value);
        if (!isStarted()) {
            start();
            startCall();
        }
        openSheet();
        openNote();
        EXPECT_FALSE(hasTitleField());
        cancel();
    }
}

TEST_F(Switches, ACorruptFileTurnsEveryOneOff) {
    write(preferences, "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>SwitchCell3</key><tr");
    start();
    startNote();

    EXPECT_FALSE(hasTitleField());
}

TEST_F(Switches, TheFileIsReadAnewForEveryScreen) {
    start();
    startNote();
    EXPECT_FALSE(hasTitleField());
    cancel();
    turnOn({3});

    openSheet();
    openNote();

    EXPECT_TRUE(hasTitleField());
}

TEST_F(Switches, TheFirstOpensTheKeyboardWithTheScreen) {
    turnOn({1});
    start();

    startNote();

    EXPECT_EQ(attribute(noteText(), "firstResponder"), "true");
    EXPECT_EQ(attribute(noteText(), "text"), "");
}

TEST_F(Switches, TurningTheTitleOffAfterATitleWasKeptShowsNoTitle) {
    turnOn({2, 3});
    keepText("<string>milk</string>", "<string>Shopping</string>");
    start();
    turnOn({2});

    startNote();

    EXPECT_FALSE(hasTitleField());
    EXPECT_EQ(attribute(noteText(), "text"), "milk");
}

TEST_F(Words, AKeyMissingFromTheBundleIsShownItself) {
    write(resource("Translations.bundle/de.lproj/Localizable.strings"), "\"Cancel\" = \"Abbrechen\";\n");
    start({.language = "de"});
    startCall();
    openSheet();
    touchAndWait("Note");

    EXPECT_TRUE(find("Abbrechen"));
    EXPECT_TRUE(find("Done"));
    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
}

TEST_F(Words, ACorruptTableShowsTheKeys) {
    write(resource("Translations.bundle/de.lproj/Localizable.strings"), "\"Cancel\" = \"Abbr");
    start({.language = "de"});
    startCall();
    openSheet();
    touchAndWait("Note");

    EXPECT_TRUE(panel());
    EXPECT_TRUE(find("Done"));
}

TEST_F(Words, AreTranslatedOnEveryPartOfTheNoteScreen) {
    turnOn({3});
    start({.language = "de"});
    startNote();

    EXPECT_TRUE(find("Abbrechen"));
    EXPECT_TRUE(find("Fertig"));
    EXPECT_TRUE(find("Notiz"));
    EXPECT_TRUE(find("Standard"));
    EXPECT_EQ(attribute(titleField(), "placeholder"), "Titel");
    EXPECT_EQ(attribute(noteText(), "text"), "  Notiz");
}

TEST_F(Words, ARegionalLanguageFallsBackToItsParent) {
    start({.language = "de-AT"});
    startCall();
    openSheet();

    EXPECT_TRUE(find("Notiz"));
}

TEST_F(Words, ALanguageWithoutATableIsShownInEnglish) {
    start({.language = "fi"});
    startCall();
    openSheet();

    EXPECT_TRUE(find("Note"));
}

} // namespace
