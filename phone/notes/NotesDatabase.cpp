#include "phone/notes/NotesDatabase.h"

#include "phone/notes/NotesSchema.h"
#include "phone/notes/Sqlite.h"

#include <algorithm>
#include <filesystem>

namespace phone {

namespace {

namespace fs = std::filesystem;
using sqlite::Statement;

// How ZCONTENTTYPE tells plain text from a text with markup.
constexpr long plainContent = 0;
constexpr long markupContent = 1;
// What a note has that no server knows.
constexpr long noServerId = -4294967296;
constexpr long noteAdded = 0; // ZCHANGETYPE
constexpr int busyMilliseconds = 2000;

sqlite3* openFile(const std::string& path, int flags) {
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(path.c_str(), &database, flags, nullptr) != SQLITE_OK) {
        const std::string reason = database == nullptr ? "out of memory" : sqlite3_errmsg(database);
        sqlite3_close(database);
        throw NotesDatabaseError(path + ": " + reason);
    }
    sqlite3_busy_timeout(database, busyMilliseconds);
    return database;
}

void insertAccount(sqlite3* database, const NotesAccount& account) {
    const long accountKey = takeKey(database, AccountEntity);
    const long storeKey = takeKey(database, StoreEntity);
    Statement(database, "INSERT INTO ZACCOUNT (Z_PK, Z_ENT, Z_OPT, ZTYPE, ZDEFAULTSTORE, ZACCOUNTIDENTIFIER, ZNAME) "
                        "VALUES (?, ?, 1, 0, ?, ?, ?)")
        .bind(accountKey)
        .bind(AccountEntity)
        .bind(account.isDefault ? std::optional(storeKey) : std::nullopt)
        .bind(account.name)
        .bind(account.name)
        .run();
    Statement(database, "INSERT INTO ZSTORE (Z_PK, Z_ENT, Z_OPT, ZACCOUNT, ZNAME) VALUES (?, ?, 1, ?, ?)")
        .bind(storeKey)
        .bind(StoreEntity)
        .bind(accountKey)
        .bind(account.name)
        .run();
}

/// Whether the text holds Chinese, Japanese or Korean characters; the device keeps it for its search.
bool containsCjk(const std::string& utf8) {
    for (std::size_t i = 0; i + 2 < utf8.size(); ++i) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
        if ((byte(i) & 0xf0) == 0xe0) {
            const int point = (byte(i) & 0x0f) << 12 | (byte(i + 1) & 0x3f) << 6 | (byte(i + 2) & 0x3f);
            if ((point >= 0x3040 && point <= 0x9fff) || (point >= 0xac00 && point <= 0xd7a3) ||
                (point >= 0xf900 && point <= 0xfaff)) {
                return true;
            }
        }
    }
    return false;
}

void insertNote(sqlite3* database, const NoteRow& note) {
    const long noteKey = takeKey(database, NoteEntity);
    const long bodyKey = takeKey(database, NoteBodyEntity);
    const bool cjk = containsCjk(note.title.value_or("")) || containsCjk(note.content.value_or(""));
    Statement(database, "INSERT INTO ZNOTE (Z_PK, Z_ENT, Z_OPT, ZCONTAINSCJK, ZCONTENTTYPE, ZDELETEDFLAG, "
                        "ZEXTERNALFLAGS, ZEXTERNALSEQUENCENUMBER, ZEXTERNALSERVERINTID, ZINTEGERID, "
                        "ZISBOOKKEEPINGENTRY, ZBODY, ZSTORE, ZCREATIONDATE, ZMODIFICATIONDATE, ZSUMMARY, ZTITLE) "
                        "VALUES (?, ?, 1, ?, ?, 0, 0, 0, ?, ?, 0, ?, ?, ?, ?, ?, ?)")
        .bind(noteKey)
        .bind(NoteEntity)
        .bind(cjk ? 1L : 0L)
        .bind(note.isPlainText ? plainContent : markupContent)
        .bind(noServerId)
        .bind(note.integerId)
        .bind(bodyKey)
        .bind(note.storeKey)
        .bind(note.created)
        .bind(note.modified)
        .bind(note.summary)
        .bind(note.title)
        .run();
    Statement(database, "INSERT INTO ZNOTEBODY (Z_PK, Z_ENT, Z_OPT, ZOWNER, ZCONTENT) VALUES (?, ?, 1, ?, ?)")
        .bind(bodyKey)
        .bind(NoteBodyEntity)
        .bind(noteKey)
        .bind(note.content)
        .run();
}

void insertChange(sqlite3* database, const NoteRow& note) {
    const std::string numbers =
        "<plist version=\"1.0\"><array><integer>" + std::to_string(note.integerId) + "</integer></array></plist>";
    Statement(database, "INSERT INTO ZNOTECHANGE (Z_PK, Z_ENT, Z_OPT, ZCHANGETYPE, ZSTORE, ZNOTEINTEGERIDS) "
                        "VALUES (?, ?, 1, ?, ?, CAST(? AS BLOB))")
        .bind(takeKey(database, NoteChangeEntity))
        .bind(NoteChangeEntity)
        .bind(noteAdded)
        .bind(note.storeKey)
        .bind(numbers)
        .run();
}

} // namespace

void NotesDatabase::create(const std::string& path, const std::vector<NotesAccount>& accounts) {
    if (fs::exists(path)) {
        throw NotesDatabaseError(path + ": exists already");
    }
    fs::create_directories(fs::path(path).parent_path());
    // Made beside its place, so that a whole database or none stands there.
    const std::string made = path + ".new";
    fs::remove(made);
    sqlite3* database = openFile(made, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    try {
        sqlite::Transaction transaction(database);
        createNotesSchema(database);
        for (const NotesAccount& account : accounts) {
            insertAccount(database, account);
        }
        transaction.commit();
    } catch (...) {
        sqlite3_close(database);
        fs::remove(made);
        throw;
    }
    sqlite3_close(database);
    fs::rename(made, path);
}

NotesDatabase::NotesDatabase(const std::string& path) : _database(openFile(path, SQLITE_OPEN_READWRITE)) {
    try {
        // SQLite looks into the file at the first question only.
        stores();
        lastIndex();
    } catch (const NotesDatabaseError& error) {
        sqlite3_close(_database);
        throw NotesDatabaseError(path + ": " + error.what());
    }
}

NotesDatabase::~NotesDatabase() { sqlite3_close(_database); }

std::vector<StoreRow> NotesDatabase::stores() const {
    Statement rows(_database, "SELECT ZSTORE.Z_PK, ZACCOUNT.ZNAME, ZACCOUNT.ZDEFAULTSTORE = ZSTORE.Z_PK FROM ZSTORE "
                              "LEFT JOIN ZACCOUNT ON ZACCOUNT.Z_PK = ZSTORE.ZACCOUNT ORDER BY ZSTORE.Z_PK");
    std::vector<StoreRow> stores;
    while (rows.next()) {
        stores.push_back({.key = rows.integer(0), .accountName = rows.text(1), .isDefault = rows.integer(2) != 0});
    }
    return stores;
}

std::vector<NoteRow> NotesDatabase::notes() const {
    Statement rows(_database,
                   "SELECT ZNOTE.Z_PK, ZACCOUNT.ZNAME, ZNOTE.ZSTORE, ZINTEGERID, ZCONTENTTYPE, ZTITLE, ZSUMMARY, "
                   "ZNOTEBODY.ZCONTENT, ZCREATIONDATE, ZMODIFICATIONDATE FROM ZNOTE "
                   "LEFT JOIN ZNOTEBODY ON ZNOTEBODY.Z_PK = ZNOTE.ZBODY "
                   "LEFT JOIN ZSTORE ON ZSTORE.Z_PK = ZNOTE.ZSTORE "
                   "LEFT JOIN ZACCOUNT ON ZACCOUNT.Z_PK = ZSTORE.ZACCOUNT ORDER BY ZNOTE.Z_PK");
    std::vector<NoteRow> notes;
    while (rows.next()) {
        notes.push_back({.key = rows.integer(0),
                         .store = rows.text(1),
                         .storeKey = rows.integer(2),
                         .integerId = rows.integer(3),
                         .isPlainText = rows.integer(4) == plainContent,
                         .title = rows.optionalText(5),
                         .summary = rows.optionalText(6),
                         .content = rows.optionalText(7),
                         .created = rows.optionalReal(8),
                         .modified = rows.optionalReal(9)});
    }
    return notes;
}

long NotesDatabase::lastIndex() const {
    Statement counter(_database, "SELECT MAX(ZCOUNTER) FROM ZNEXTID");
    return counter.next() ? counter.integer(0) : 0;
}

void NotesDatabase::insert(const std::vector<NoteRow>& notes, bool logChanges) {
    sqlite::Transaction transaction(_database);
    long highest = lastIndex();
    for (const NoteRow& note : notes) {
        insertNote(_database, note);
        if (logChanges) {
            insertChange(_database, note);
        }
        highest = std::max(highest, note.integerId);
    }
    Statement(_database, "UPDATE ZNEXTID SET ZCOUNTER = ?").bind(highest).run();
    transaction.commit();
}

} // namespace phone
