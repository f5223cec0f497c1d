#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

const std::string library = SOURCE_DIRECTORY "/resources/Library/";
const std::string words = library + "Quorvan/Translations.bundle/";
const std::string pane = library + "PreferenceLoader/Preferences/Quorvan/";

using Table = std::map<std::string, std::string>;

std::string content(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Expects every line behind the comment to be a word, and none to stand twice.
Table table(const std::string& folder, const std::string& language) {
    Table found;
    std::ifstream in(folder + language + ".lproj/Localizable.strings");
    std::string line;
    std::getline(in, line);
    EXPECT_TRUE(std::regex_match(line, std::regex(R"(/\* .* \*/)"))) << line;
    while (std::getline(in, line)) {
        std::smatch match;
        const bool isWord = std::regex_match(line, match, std::regex(R"re("([^"\\]+)" = "([^"\\]+)";)re"));
        EXPECT_TRUE(isWord) << language << ": " << line;
        if (isWord) {
            EXPECT_TRUE(found.emplace(match.str(1), match.str(2)).second) << language << ": " << line;
        }
    }
    return found;
}

std::set<std::string> keys(const Table& table) {
    std::set<std::string> found;
    for (const auto& [key, value] : table) {
        found.insert(key);
    }
    return found;
}

class Translations : public testing::TestWithParam<const char*> {};

TEST_P(Translations, HaveEveryKeyOfTheScreens) { EXPECT_EQ(keys(table(words, GetParam())), keys(table(words, "en"))); }

TEST_P(Translations, HaveEveryKeyOfThePane) { EXPECT_EQ(keys(table(pane, GetParam())), keys(table(pane, "en"))); }

INSTANTIATE_TEST_SUITE_P(Every, Translations,
                         testing::Values("de", "en", "es", "fr", "it", "ja", "nl", "pt", "ru", "zh-Hans"),
                         [](const auto& info) {
                             const std::string language = info.param;
                             return language.substr(0, language.find('-'));
                         });

TEST(EnglishTranslations, ShowTheKeys) {
    for (const std::string& folder : {words, pane}) {
        for (const auto& [key, value] : table(folder, "en")) {
            if (!key.starts_with("Omi")) {
                EXPECT_EQ(value, key);
            }
        }
    }
    EXPECT_EQ(table(words, "en").size(), 33U);
}

/// The settings pane as PreferenceLoader reads it.
class Pane : public testing::Test {
protected:
    Pane() { EXPECT_TRUE(document.load_file((pane + "Quorvan.plist").c_str())); }
    /// The value under a key of a dictionary.
    static pugi::xml_node value(pugi::xml_node dictionary, const char* key) {
        return dictionary.select_node((std::string("key[.='") + key + "']/following-sibling::*[1]").c_str()).node();
    }
    pugi::xml_node root() const { return document.child("plist").child("dict"); }
    std::vector<pugi::xml_node> items() const {
        const auto range = value(root(), "items").children("dict");
        return {range.begin(), range.end()};
    }

    pugi::xml_document document;
};

TEST_F(Pane, IsEnteredFromTheSettingsUnderItsIcon) {
    const pugi::xml_node entry = value(root(), "entry");
    EXPECT_STREQ(value(entry, "cell").text().get(), "PSLinkCell");
    EXPECT_STREQ(value(entry, "label").text().get(), "Quorvan");
    EXPECT_TRUE(std::filesystem::exists(pane + value(entry, "icon").text().get()));
    EXPECT_STREQ(value(root(), "title").text().get(), "Quorvan");
}

TEST_F(Pane, HasThreeSwitchesThatAreOffUntilTouched) {
    std::vector<std::string> switches;
    for (const pugi::xml_node item : items()) {
        if (value(item, "cell").text().get() == std::string("PSSwitchCell")) {
            switches.emplace_back(value(item, "key").text().get());
            EXPECT_STREQ(value(item, "defaults").text().get(), "Mirelda.Quorvan");
            EXPECT_STREQ(value(item, "default").name(), "false");
        }
    }
    EXPECT_THAT(switches, ElementsAre("SwitchCell1", "SwitchCell2", "SwitchCell3"));
}

TEST_F(Pane, ShowsOnlyWordsThatAreTranslated) {
    std::set<std::string> shown;
    for (const pugi::xml_node item : items()) {
        const bool isGroup = value(item, "cell").text().get() == std::string("PSGroupCell");
        shown.insert(value(item, isGroup ? "footerText" : "label").text().get());
    }
    EXPECT_EQ(shown, keys(table(pane, "en")));
}

TEST_F(Pane, FallsBackToEnglish) {
    EXPECT_THAT(content(pane + "Info.plist"),
                testing::ContainsRegex("<key>CFBundleDevelopmentRegion</key>[[:space:]]*<string>en</string>"));
}

} // namespace
