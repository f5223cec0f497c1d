#include "phone/notes/NotesDatabase.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <sys/wait.h>

using namespace phone;
using testing::HasSubstr;

namespace {

/// The built program, as a person calls it.
class CommandLineTest : public testing::Test {
protected:
    int phone(const std::string& arguments) {
        const std::string command = std::string(BUILD_DIRECTORY "/phone ") + arguments + " >" + folder.path("out.txt") +
                                    " 2>" + folder.path("err.txt");
        const int status = std::system(command.c_str());
        output = folder.read("out.txt");
        errors = folder.read("err.txt");
        return WEXITSTATUS(status);
    }
    std::string root() const { return folder.path("root"); }

    TemporaryFolder folder;
    std::string output;
    std::string errors;
};

} // namespace

TEST_F(CommandLineTest, PrintsHelpAndVersion) {
    EXPECT_EQ(phone("help"), 0);
    EXPECT_THAT(output, HasSubstr("phone play"));
    EXPECT_EQ(phone("--help"), 0);
    EXPECT_THAT(output, HasSubstr("SELECTORS"));
    EXPECT_EQ(phone("--version"), 0);
    EXPECT_THAT(output, testing::StartsWith("phone "));
}

TEST_F(CommandLineTest, RefusesWhatItDoesNotKnowInOneLine) {
    EXPECT_EQ(phone(""), 2);
    EXPECT_THAT(errors, HasSubstr("a command is missing"));
    EXPECT_EQ(phone("fly"), 2);
    EXPECT_THAT(errors, HasSubstr("unknown command `fly`"));
    EXPECT_EQ(phone("new"), 2);
    EXPECT_THAT(errors, HasSubstr("--root"));
    EXPECT_EQ(phone("new --root x --colour red"), 2);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1);
}

// Holds: notes-file
TEST_F(CommandLineTest, MakesAPhoneWithTheLibraryAndItsStores) {
    EXPECT_EQ(phone("new --root " + root()), 0);

    EXPECT_EQ(errors, "");
    EXPECT_TRUE(std::filesystem::exists(root() + "/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib"));
    EXPECT_TRUE(std::filesystem::exists(root() + "/Library/Quorvan/Translations.bundle"));
    EXPECT_TRUE(std::filesystem::is_directory(root() + "/var/mobile/Library/Preferences"));
    const auto stores = NotesDatabase(root() + NotesDatabase::devicePath).stores();
    ASSERT_EQ(stores.size(), 2u);
    EXPECT_EQ(stores[0].accountName, "LOCAL_NOTES_ACCOUNT");
    EXPECT_TRUE(stores[0].isDefault);
    EXPECT_EQ(stores[1].accountName, "Mail");
}

TEST_F(CommandLineTest, MakesAPhoneInAnEmptyFolderOnly) {
    std::filesystem::create_directories(root());
    EXPECT_EQ(phone("new --root " + root()), 0);

    EXPECT_EQ(phone("new --root " + root()), 2);
    EXPECT_THAT(errors, HasSubstr("exists and is not an empty folder"));
}

TEST_F(CommandLineTest, MakesNothingFromAWrongStoresFile) {
    const std::string file = folder.write("stores.yaml", "notes: {accounts: [{nam: A}]}\n");

    EXPECT_EQ(phone("new --root " + root() + " --stores " + file), 2);

    EXPECT_EQ(errors, file + ":1: unknown key `nam` in an account; known: name, default\n");
    EXPECT_FALSE(std::filesystem::exists(root()));
}

TEST_F(CommandLineTest, PrintsTheRecordsInTheZoneGiven) {
    ASSERT_EQ(phone("new --root " + root()), 0);
    NoteRow note;
    {
        NotesDatabase database(root() + NotesDatabase::devicePath);
        note.storeKey = database.stores()[0].key;
        note.store = "LOCAL_NOTES_ACCOUNT";
        note.integerId = database.lastIndex() + 1;
        note.isPlainText = true;
        note.title = "Milk";
        note.content = note.summary = "Milk\nEggs";
        note.created = note.modified = 1772721432.0 - 978307200;
        database.insert({note});
    }

    EXPECT_EQ(phone("records --json --zone Europe/Berlin --root " + root()), 0);

    const auto json = nlohmann::json::parse(output);
    ASSERT_EQ(json["notes"].size(), 1u);
    const auto& found = json["notes"][0];
    EXPECT_EQ(found["store"], "LOCAL_NOTES_ACCOUNT");
    EXPECT_EQ(found["title"], "Milk");
    EXPECT_EQ(found["content"], "Milk\nEggs");
    EXPECT_EQ(found["body"], "Milk\nEggs");
    EXPECT_EQ(found["plainText"], true);
    EXPECT_EQ(found["created"], "2026-03-05T15:37:12+01:00");
    EXPECT_EQ(json["reminders"], nlohmann::json::array());
    EXPECT_EQ(json["events"], nlohmann::json::array());
    EXPECT_EQ(phone("records --root " + root()), 0);
    EXPECT_THAT(output, HasSubstr("2026-03-05T14:37:12+00:00  LOCAL_NOTES_ACCOUNT  Milk   Milk⏎Eggs\n"));
}

TEST_F(CommandLineTest, PrintsNoRecordsWhereTheStoreIsGone) {
    std::filesystem::create_directories(root());

    EXPECT_EQ(phone("records --json --root " + root()), 0);

    EXPECT_EQ(nlohmann::json::parse(output)["notes"], nlohmann::json::array());
    folder.write("root/var/mobile/Library/Notes/notes.sqlite", "no database");
    EXPECT_EQ(phone("records --root " + root()), 2);
}

TEST_F(CommandLineTest, ChecksAllFlowsBeforeAnythingRuns) {
    ASSERT_EQ(phone("new --root " + root()), 0);
    const std::string good = folder.write("good.yaml", "- setPreferences: {SwitchCell1: true}\n");
    const std::string bad = folder.write("bad.yaml", "name: x\n---\n- tapon: y\n");

    EXPECT_EQ(phone("play " + good + " " + bad + " --root " + root() + " --out " + folder.path("pictures")), 2);

    EXPECT_EQ(errors, bad + ":3: command 1: unknown command `tapon`; `phone help` lists the commands\n");
    EXPECT_FALSE(std::filesystem::exists(root() + "/var/mobile/Library/Preferences/Mirelda.Quorvan.plist"));
}

TEST_F(CommandLineTest, RefusesUnusableOptionsOfAPlay) {
    const std::string flow = folder.write("flow.yaml", "- setPreferences: {SwitchCell1: true}\n");
    const std::string rest = flow + " --out " + folder.path("pictures") + " --root ";

    EXPECT_EQ(phone("play " + rest + folder.path("nowhere")), 2);
    EXPECT_THAT(errors, HasSubstr("no such phone"));
    EXPECT_EQ(phone("play " + rest + folder.path() + " --device iphone9"), 2);
    EXPECT_THAT(errors, HasSubstr("--device: unknown device `iphone9`"));
    EXPECT_EQ(phone("play " + rest + folder.path() + " --zone Europe/Bonn"), 2);
    EXPECT_THAT(errors, HasSubstr("--zone: unknown time zone"));
}

TEST_F(CommandLineTest, WritesAReport) {
    ASSERT_EQ(phone("new --root " + root()), 0);
    const std::string flow = folder.write("flow.yaml", "- setPreferences: {SwitchCell1: true}\n");

    EXPECT_EQ(phone("play " + flow + " --root " + root() + " --out " + folder.path("o") + " --report " +
                    folder.path("report.json")),
              0);

    const auto report = nlohmann::json::parse(folder.read("report.json"));
    EXPECT_EQ(report["flows"][0]["file"], flow);
    EXPECT_EQ(report["flows"][0]["commands"][0]["command"], "setPreferences");
}
