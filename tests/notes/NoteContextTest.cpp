#include "platform/notes/NoteContext.h"
#include "phone/device/Log.h"
#include "phone/notes/NotesDatabase.h"
#include "phone/notes/NotesFramework.h"
#include "phone/notes/Register.h"
#include "tests/Raised.h"
#include "tests/foundation/FoundationTest.h"

#include <set>

namespace phone {
namespace {

class NoteContextTest : public FoundationTest {
protected:
    NoteContextTest() {
        NotesFramework::create(root());
        provideNotesClasses();
        NotesDatabase::create(path(), {{.name = "LOCAL_NOTES_ACCOUNT", .isDefault = true}, {.name = "Mail"}});
    }

    std::string path() const { return host(NotesDatabase::devicePath).string(); }
    std::vector<NoteRow> notes() const { return NotesDatabase(path()).notes(); }
    std::string fileBytes() const { return bytes(NotesDatabase::devicePath); }

    /// A note with everything that makes it worth saving.
    static NoteObject insert(const NoteContext& context, const NSString& content) {
        const auto managed = context.managedObjectContext();
        const auto note = NSEntityDescription::insertNew<NoteObject>("Note"_ns, managed);
        const auto body = NSEntityDescription::insertNew<NoteBodyObject>("NoteBody"_ns, managed);
        note.setIsPlainText(true);
        note.setContent(content);
        body.setContent(content);
        body.setOwner(note);
        note.setStore(context.defaultStoreForNewNote());
        note.setIntegerId(context.nextIndex());
        note.setTitle("title"_ns);
        note.setSummary("summary"_ns);
        note.setBody(body);
        note.setCreationDate(NSDate::now());
        note.setModificationDate(NSDate::now());
        return note;
    }
    static bool save(const NoteContext& context) { return context.send<"saveOutsideApp:", bool>(nullptr); }
};

// Holds: notes-context, notes-stores-by-position
TEST_F(NoteContextTest, StoresComeInTheDatabasesOrderWithTheirAccounts) {
    const auto stores = NoteContext::make().allStores();

    ASSERT_EQ(stores.count(), 2u);
    EXPECT_EQ(text(stores.at<NoteStoreObject>(0).account().name()), "LOCAL_NOTES_ACCOUNT");
    EXPECT_EQ(text(stores.at<NoteStoreObject>(1).account().name()), "Mail");
}

// Holds: notes-context
TEST_F(NoteContextTest, TheDefaultStoreIsTheAccountsThatHasOne) {
    EXPECT_EQ(text(NoteContext::make().defaultStoreForNewNote().account().name()), "LOCAL_NOTES_ACCOUNT");

    std::filesystem::remove(path());
    NotesDatabase::create(path(), {{.name = "Mail"}});
    EXPECT_FALSE(NoteContext::make().defaultStoreForNewNote());
}

// Holds: notes-attributes, notes-insertion, notes-dates
TEST_F(NoteContextTest, ASavedNoteStandsInTheDatabase) {
    const auto context = NoteContext::make();
    insert(context, "milk\neggs"_ns);

    EXPECT_TRUE(save(context));

    ASSERT_EQ(notes().size(), 1u);
    const NoteRow note = notes().front();
    EXPECT_EQ(note.store, "LOCAL_NOTES_ACCOUNT");
    EXPECT_EQ(note.title, "title");
    EXPECT_EQ(note.summary, "summary");
    EXPECT_EQ(note.content, "milk\neggs");
    EXPECT_TRUE(note.isPlainText);
    EXPECT_EQ(note.created, now - 978307200);
}

TEST_F(NoteContextTest, WhatIsNotSavedLeavesNoTrace) {
    const std::string before = fileBytes();
    {
        const objc::Pool pool;
        insert(NoteContext::make(), "text"_ns);
    }

    EXPECT_EQ(fileBytes(), before);
}

TEST_F(NoteContextTest, SavingTwiceWritesOnce) {
    const auto context = NoteContext::make();
    insert(context, "text"_ns);

    save(context);
    save(context);

    EXPECT_EQ(notes().size(), 1u);
}

TEST_F(NoteContextTest, ANoteWithoutAStoreFailsTheWholeSave) {
    const auto context = NoteContext::make();
    insert(context, "whole"_ns);
    insert(context, "homeless"_ns).setStore(nullptr);

    EXPECT_FALSE(save(context));
    EXPECT_TRUE(notes().empty());
}

// Holds: notes-want-title-and-summary
TEST_F(NoteContextTest, ANoteWithoutATitleOrASummaryRaisesWhenItIsSaved) {
    const auto context = NoteContext::make();
    const auto note = insert(context, "text"_ns);
    note.setTitle(nullptr);
    EXPECT_EQ(raised([&] { save(context); }), invalidArgument);

    note.setTitle("title"_ns);
    note.setSummary(nullptr);
    EXPECT_EQ(raised([&] { save(context); }), invalidArgument);
    EXPECT_TRUE(notes().empty());

    note.setSummary(""_ns);
    EXPECT_TRUE(save(context));
    EXPECT_EQ(notes().size(), 1u);
}

TEST_F(NoteContextTest, ANoteWithoutABodyCannotBeSaved) {
    const auto context = NoteContext::make();
    insert(context, "text"_ns).setBody(nullptr);

    EXPECT_FALSE(save(context));
}

// Holds: notes-context
TEST_F(NoteContextTest, NumbersAreObjectsAndNeverTheSame) {
    const auto context = NoteContext::make();
    const NSNumber first = context.nextIndex();
    EXPECT_TRUE(objc::isKind<NSNumber>(first));
    EXPECT_NE(first.integerValue(), context.nextIndex().integerValue());

    insert(context, "one"_ns);
    insert(context, "two"_ns);
    save(context);
    const auto later = NoteContext::make();
    insert(later, "three"_ns);
    save(later);

    std::set<long> numbers;
    for (const NoteRow& note : notes()) {
        numbers.insert(note.integerId);
    }
    EXPECT_EQ(numbers.size(), 3u);
}

// Holds: notes-attributes
TEST_F(NoteContextTest, TheRelationOfNoteAndBodyHasTwoSides) {
    const auto managed = NoteContext::make().managedObjectContext();
    const auto note = NSEntityDescription::insertNew<NoteObject>("Note"_ns, managed);
    const auto body = NSEntityDescription::insertNew<NoteBodyObject>("NoteBody"_ns, managed);

    body.setOwner(note);

    EXPECT_EQ((note.send<"body", NSObject>()), body);
    note.setBody(nullptr);
    EXPECT_FALSE((body.send<"owner", NSObject>()));
}

// Holds: notes-attributes
TEST_F(NoteContextTest, ANotesContentIsItsBodys) {
    const auto note = insert(NoteContext::make(), "old"_ns);

    note.setContent("new"_ns);

    EXPECT_EQ(text(note.send<"content", NSString>()), "new");
    EXPECT_EQ(text(note.send<"body", NSObject>().send<"content", NSString>()), "new");
}

// Holds: notes-stores-by-position
TEST_F(NoteContextTest, AMissingOrCorruptDatabaseHasNoStoresAndSavesNothing) {
    for (const bool corrupt : {false, true}) {
        std::filesystem::remove(path());
        if (corrupt) {
            put(NotesDatabase::devicePath, std::string(3000, 'x'));
        }
        testing::internal::CaptureStderr();
        const auto context = NoteContext::make();

        EXPECT_EQ(context.allStores().count(), 0u);
        EXPECT_FALSE(context.defaultStoreForNewNote());
        insert(context, "text"_ns);
        EXPECT_FALSE(save(context));

        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(std::filesystem::exists(path()), corrupt);
    }
}

TEST_F(NoteContextTest, AnUnknownEntityOrANilContextRaises) {
    const auto inserting = [](const NSString& entity, const NSManagedObjectContext& context) {
        return raised([&] {
            objc::sendClass<NSEntityDescription, "insertNewObjectForEntityForName:inManagedObjectContext:", NSObject>(
                entity, context);
        });
    };

    EXPECT_EQ(inserting("Song"_ns, NoteContext::make().managedObjectContext()), invalidArgument);
    EXPECT_EQ(inserting("Note"_ns, nullptr), invalidArgument);
}

// Holds: notes-insertion
TEST_F(NoteContextTest, EveryMessageIsLoggedInOrderWithItsArguments) {
    const auto context = NoteContext::make();
    context.enableChangeLogging(true);
    insert(context, "text"_ns);
    context.saveOutsideApp(nullptr);

    std::vector<std::string> lines;
    for (const auto& entry : Log::shared().entries()) {
        if (entry["what"] == "store") {
            lines.push_back(entry["class"].get<std::string>() + " " + entry["message"].get<std::string>() + " " +
                            entry["arguments"].dump());
        }
    }

    EXPECT_EQ(lines, (std::vector<std::string>{
                         "NoteContext init []",
                         "NoteContext enableChangeLogging: [\"true\"]",
                         "NoteContext managedObjectContext []",
                         "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: "
                         "[\"Note\",\"NSManagedObjectContext\"]",
                         "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: "
                         "[\"NoteBody\",\"NSManagedObjectContext\"]",
                         "NoteObject setIsPlainText: [\"true\"]",
                         "NoteObject setContent: [\"text\"]",
                         "NoteBodyObject setContent: [\"text\"]",
                         "NoteBodyObject setOwner: [\"NoteObject\"]",
                         "NoteContext defaultStoreForNewNote []",
                         "NoteObject setStore: [\"NoteStoreObject\"]",
                         "NoteContext nextIndex []",
                         "NoteObject setIntegerId: [\"1\"]",
                         "NoteObject setTitle: [\"title\"]",
                         "NoteObject setSummary: [\"summary\"]",
                         "NoteObject setBody: [\"NoteBodyObject\"]",
                         "NoteObject setCreationDate: [\"2026-03-05T14:37:12Z\"]",
                         "NoteObject setModificationDate: [\"2026-03-05T14:37:12Z\"]",
                         "NoteContext saveOutsideApp: [null]",
                     }));
}

TEST_F(NoteContextTest, NothingStaysAliveAfterItsContext) {
    {
        const objc::Pool pool;
        const auto context = NoteContext::make();
        insert(context, "text"_ns);
        save(context);
        insert(context, "unsaved"_ns);
    }

    for (objc::PeerClass* peer = objc::peerClasses(); peer != nullptr; peer = peer->next) {
        EXPECT_EQ(peer->live, 0) << peer->name;
    }
}

// Trap: what-is-missing-is-nil
// Holds: notes-classes
TEST_F(NoteContextTest, TheClassesAreFoundByTheirNamesOnceTheFrameworkIsLoaded) {
    EXPECT_EQ(objc_getClass("NoteContext"), nullptr);

    NoteContext::make();

    for (const char* name : {"NoteContext", "NoteObject", "NoteBodyObject", "NoteStoreObject", "NoteAccountObject"}) {
        EXPECT_NE(objc_getClass(name), nullptr) << name;
    }
}

} // namespace
} // namespace phone
