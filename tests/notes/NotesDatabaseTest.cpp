#include "phone/notes/NotesDatabase.h"
#include "phone/notes/Sqlite.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace phone {
namespace {

class NotesDatabaseTest : public testing::Test {
protected:
    NotesDatabaseTest() {
        std::string name = P_tmpdir "/notes-XXXXXX";
        _folder = mkdtemp(name.data());
    }
    ~NotesDatabaseTest() override { std::filesystem::remove_all(_folder); }

    std::string path() const { return (_folder / "Notes/notes.sqlite").string(); }
    const std::filesystem::path& folder() const { return _folder; }
    using Values = std::vector<std::string>;

    void create() const {
        NotesDatabase::create(path(), {{.name = "LOCAL_NOTES_ACCOUNT", .isDefault = true}, {.name = "Mail"}});
    }
    /// The values of the first column, each as text.
    std::vector<std::string> values(const std::string& query) const {
        sqlite3* database = nullptr;
        sqlite3_open(path().c_str(), &database);
        std::vector<std::string> all;
        {
            sqlite::Statement rows(database, query);
            while (rows.next()) {
                all.push_back(rows.text(0));
            }
        }
        sqlite3_close(database);
        return all;
    }
    static NoteRow note(long integerId, const std::string& content) {
        NoteRow row;
        row.storeKey = 1;
        row.integerId = integerId;
        row.isPlainText = true;
        row.title = "title";
        row.summary = "summary";
        row.content = content;
        row.created = 794414232.5;
        row.modified = 794414233;
        return row;
    }

private:
    std::filesystem::path _folder;
};

TEST_F(NotesDatabaseTest, StoresComeInTheOrderGivenWithTheirAccounts) {
    create();

    const auto stores = NotesDatabase(path()).stores();

    ASSERT_EQ(stores.size(), 2u);
    EXPECT_EQ(stores[0].accountName, "LOCAL_NOTES_ACCOUNT");
    EXPECT_TRUE(stores[0].isDefault);
    EXPECT_EQ(stores[1].accountName, "Mail");
    EXPECT_FALSE(stores[1].isDefault);
}

// Holds: notes-tables
TEST_F(NotesDatabaseTest, TheTablesAndIndicesAreTheDevices) {
    create();

    EXPECT_EQ(values("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"),
              (std::vector<std::string>{"ZACCOUNT", "ZNEXTID", "ZNOTE", "ZNOTEBODY", "ZNOTECHANGE", "ZPROPERTY",
                                        "ZSTORE", "Z_METADATA", "Z_PRIMARYKEY"}));
    EXPECT_EQ(values("SELECT tbl_name || ' ' || (SELECT group_concat(name) FROM pragma_index_info(master.name)) "
                     "FROM sqlite_master AS master WHERE type = 'index' ORDER BY 1"),
              (Values{"ZACCOUNT ZDEFAULTSTORE", "ZNOTE ZBODY", "ZNOTE ZINTEGERID", "ZNOTE ZSTORE", "ZNOTEBODY ZOWNER",
                      "ZNOTECHANGE ZSTORE", "ZSTORE ZACCOUNT"}));
    EXPECT_EQ(values("SELECT Z_VERSION FROM Z_METADATA"), std::vector<std::string>{"1"});
    EXPECT_EQ(values("SELECT Z_UUID FROM Z_METADATA").front().size(), 36u);
    EXPECT_EQ(values("PRAGMA journal_mode"), std::vector<std::string>{"delete"});
}

// Holds: notes-entities
TEST_F(NotesDatabaseTest, EntitiesHaveTheirNumbersAlsoInTheRows) {
    create();
    NotesDatabase(path()).insert({note(1, "a")}, true);

    EXPECT_EQ(values("SELECT Z_ENT || ' ' || Z_NAME FROM Z_PRIMARYKEY ORDER BY Z_ENT"),
              (Values{"1 Account", "2 NextId", "3 Note", "4 NoteBody", "5 NoteChange", "6 Property", "7 Store"}));
    EXPECT_EQ(values("SELECT DISTINCT Z_ENT FROM ZACCOUNT"), Values{"1"});
    EXPECT_EQ(values("SELECT Z_ENT FROM ZNEXTID"), Values{"2"});
    EXPECT_EQ(values("SELECT Z_ENT FROM ZNOTE"), Values{"3"});
    EXPECT_EQ(values("SELECT Z_ENT FROM ZNOTEBODY"), Values{"4"});
    EXPECT_EQ(values("SELECT Z_ENT FROM ZNOTECHANGE"), Values{"5"});
    EXPECT_EQ(values("SELECT DISTINCT Z_ENT FROM ZSTORE"), Values{"7"});
}

// Holds: notes-columns
TEST_F(NotesDatabaseTest, NotesAndBodiesHaveTheDevicesColumnsAndNoOthers) {
    create();

    EXPECT_EQ(values("SELECT name FROM pragma_table_info('ZNOTE')"), (Values{"Z_PK",
                                                                             "Z_ENT",
                                                                             "Z_OPT",
                                                                             "ZCONTAINSCJK",
                                                                             "ZCONTENTTYPE",
                                                                             "ZDELETEDFLAG",
                                                                             "ZEXTERNALFLAGS",
                                                                             "ZEXTERNALSEQUENCENUMBER",
                                                                             "ZEXTERNALSERVERINTID",
                                                                             "ZINTEGERID",
                                                                             "ZISBOOKKEEPINGENTRY",
                                                                             "ZBODY",
                                                                             "ZSTORE",
                                                                             "ZCREATIONDATE",
                                                                             "ZMODIFICATIONDATE",
                                                                             "ZAUTHOR",
                                                                             "ZGUID",
                                                                             "ZSERVERID",
                                                                             "ZSUMMARY",
                                                                             "ZTITLE"}));
    EXPECT_EQ(
        values("SELECT name FROM pragma_table_info('ZNOTEBODY')"),
        (Values{"Z_PK", "Z_ENT", "Z_OPT", "ZOWNER", "ZCONTENT", "ZEXTERNALCONTENTREF", "ZEXTERNALREPRESENTATION"}));
}

// Holds: notes-plain-text
TEST_F(NotesDatabaseTest, PlainTextHasTheContentTypeNought) {
    create();
    NoteRow markup = note(2, "<b>");
    markup.isPlainText = false;
    NotesDatabase(path()).insert({note(1, "a"), markup});

    EXPECT_EQ(values("SELECT ZCONTENTTYPE FROM ZNOTE ORDER BY Z_PK"), (Values{"0", "1"}));
    EXPECT_TRUE(NotesDatabase(path()).notes()[0].isPlainText);
    EXPECT_FALSE(NotesDatabase(path()).notes()[1].isPlainText);
}

TEST_F(NotesDatabaseTest, ANoteReadsBackAsItWasWritten) {
    create();
    NotesDatabase(path()).insert({note(1, "milk\neggs \U0001F600")});

    const auto notes = NotesDatabase(path()).notes();

    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].store, "LOCAL_NOTES_ACCOUNT");
    EXPECT_EQ(notes[0].integerId, 1);
    EXPECT_TRUE(notes[0].isPlainText);
    EXPECT_EQ(notes[0].title, "title");
    EXPECT_EQ(notes[0].summary, "summary");
    EXPECT_EQ(notes[0].content, "milk\neggs \U0001F600");
    EXPECT_EQ(notes[0].created, 794414232.5);
    EXPECT_EQ(notes[0].modified, 794414233);
}

// Holds: notes-local-row
TEST_F(NotesDatabaseTest, ANoteHasTheValuesOfALocalOne) {
    create();
    NotesDatabase(path()).insert({note(7, "日本")});

    const auto column = [&](const std::string& name) { return values("SELECT quote(" + name + ") FROM ZNOTE").at(0); };
    for (const char* name : {"ZDELETEDFLAG", "ZEXTERNALFLAGS", "ZEXTERNALSEQUENCENUMBER", "ZISBOOKKEEPINGENTRY"}) {
        EXPECT_EQ(column(name), "0") << name;
    }
    for (const char* name : {"ZAUTHOR", "ZGUID", "ZSERVERID"}) {
        EXPECT_EQ(column(name), "NULL") << name;
    }
    EXPECT_EQ(column("ZEXTERNALSERVERINTID"), "-4294967296");
    EXPECT_EQ(column("ZCONTAINSCJK"), "1");
    EXPECT_EQ(column("ZINTEGERID"), "7");
    EXPECT_EQ(column("ZSTORE"), "1");
    EXPECT_EQ(column("ZTITLE"), "'title'");
    EXPECT_EQ(column("ZSUMMARY"), "'summary'");
    EXPECT_EQ(column("ZCREATIONDATE"), "794414232.5");
    EXPECT_EQ(column("ZMODIFICATIONDATE"), "794414233");
    EXPECT_EQ(values("SELECT ZOWNER = ZNOTE.Z_PK FROM ZNOTEBODY JOIN ZNOTE ON ZNOTE.ZBODY = ZNOTEBODY.Z_PK"),
              Values{"1"});
    EXPECT_EQ(values("SELECT ZCONTENT FROM ZNOTEBODY"), Values{"日本"});
    EXPECT_EQ(values("SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_NAME = 'Note'"), Values{"1"});
}

TEST_F(NotesDatabaseTest, ATextWithoutSuchCharactersSaysSo) {
    create();
    NotesDatabase(path()).insert({note(1, "Milch „und“ Brot \U0001F600")});

    EXPECT_EQ(values("SELECT ZCONTAINSCJK FROM ZNOTE"), Values{"0"});
}

// Holds: notes-without-a-summary
TEST_F(NotesDatabaseTest, WhatIsMissingIsNull) {
    create();
    NoteRow row;
    row.storeKey = 2;
    row.integerId = 5;
    NotesDatabase(path()).insert({row});

    const auto notes = NotesDatabase(path()).notes();

    EXPECT_EQ(notes[0].store, "Mail");
    EXPECT_FALSE(notes[0].title || notes[0].summary || notes[0].content || notes[0].created || notes[0].modified);
}

// Holds: notes-local-row
TEST_F(NotesDatabaseTest, TheCounterFollowsTheNumbersOfWhatIsSaved) {
    create();
    EXPECT_EQ(NotesDatabase(path()).lastIndex(), 0);

    NotesDatabase(path()).insert({note(3, "a"), note(2, "b")});

    EXPECT_EQ(NotesDatabase(path()).lastIndex(), 3);
}

TEST_F(NotesDatabaseTest, ChangesAreRecordedWhenAskedFor) {
    create();
    NotesDatabase(path()).insert({note(1, "a")});
    EXPECT_TRUE(values("SELECT ZSTORE FROM ZNOTECHANGE").empty());

    NotesDatabase(path()).insert({note(2, "b")}, true);

    EXPECT_EQ(values("SELECT ZSTORE FROM ZNOTECHANGE"), std::vector<std::string>{"1"});
}

TEST_F(NotesDatabaseTest, AFailedInsertionLeavesNothing) {
    create();
    values("CREATE TRIGGER refuse BEFORE INSERT ON ZNOTEBODY WHEN NEW.ZCONTENT = 'bad' BEGIN SELECT RAISE(ABORT, "
           "'no'); END");

    EXPECT_THROW(NotesDatabase(path()).insert({note(1, "good"), note(2, "bad")}), NotesDatabaseError);

    EXPECT_TRUE(NotesDatabase(path()).notes().empty());
    EXPECT_EQ(NotesDatabase(path()).lastIndex(), 0);
}

TEST_F(NotesDatabaseTest, AnExistingFileIsNotOverwritten) {
    create();

    EXPECT_THROW(create(), NotesDatabaseError);
}

TEST_F(NotesDatabaseTest, AMissingFileSaysSo) {
    try {
        NotesDatabase database(path());
        FAIL();
    } catch (const NotesDatabaseError& error) {
        EXPECT_NE(std::string(error.what()).find(path()), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(NotesDatabaseTest, ACorruptFileSaysSo) {
    std::filesystem::create_directories(folder() / "Notes");
    std::ofstream(path()) << std::string(2000, 'x');

    EXPECT_THROW(NotesDatabase{path()}, NotesDatabaseError);
    std::ofstream(path(), std::ios::trunc).close();
    EXPECT_THROW(NotesDatabase{path()}, NotesDatabaseError);
}

} // namespace
} // namespace phone
