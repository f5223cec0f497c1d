/// The file of the Notes store: an SQLite database in the device's shape. Knows nothing of Foundation,
/// so that the phone application and the driver share it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

struct sqlite3;

namespace phone {

/// The database is missing, is no database, or could not be read or written. The text says what and where.
class NotesDatabaseError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One account with its one store.
struct NotesAccount {
    std::string name; // "LOCAL_NOTES_ACCOUNT" for the device's own
    bool isDefault = false;
};

/// One note as it stands in the database; dates are seconds since the start of 2001, UTC.
struct NoteRow {
    long key = 0;      // Z_PK, the order of creation
    std::string store; // the name of the store's account
    long storeKey = 0; // Z_PK of the store
    long integerId = 0;
    bool isPlainText = false;
    std::optional<std::string> title;
    std::optional<std::string> summary;
    std::optional<std::string> content; // of its NoteBody: what the note itself answers too
    std::optional<double> created;
    std::optional<double> modified;
};

/// One store as it stands in the database.
struct StoreRow {
    long key = 0;
    std::string accountName;
    bool isDefault = false;
};

/// An open database. Not copyable.
class NotesDatabase {
public:
    /// Where the store lies on the device.
    static constexpr const char* devicePath = "/var/mobile/Library/Notes/notes.sqlite";

    /// Makes the file, with its folder, holding these accounts and no notes. Throws when it exists.
    static void create(const std::string& path, const std::vector<NotesAccount>& accounts);

    /// Opens an existing file; throws when it is missing or no Notes database.
    explicit NotesDatabase(const std::string& path);
    ~NotesDatabase();
    NotesDatabase(const NotesDatabase&) = delete;
    NotesDatabase& operator=(const NotesDatabase&) = delete;

    /// In the store's own order.
    std::vector<StoreRow> stores() const;
    /// In order of creation.
    std::vector<NoteRow> notes() const;
    /// The highest note number given out by what has been saved.
    long lastIndex() const;
    /// Writes all notes in one transaction: all or none. `key`s and `store` names are the database's own
    /// business; a note's content goes into its body. The counter of note numbers moves up to the highest of
    /// them. `logChanges` leaves a change record for each, as programs that synchronise notes expect.
    void insert(const std::vector<NoteRow>& notes, bool logChanges = false);

private:
    sqlite3* _database = nullptr;
};

} // namespace phone
