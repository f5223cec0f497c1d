/// SQLite statements as values. The one place that includes SQLite, with the database itself.
#pragma once

#include "phone/notes/NotesDatabase.h"

#include <sqlite3.h>

#include <optional>
#include <string>

namespace phone::sqlite {

/// Throws NotesDatabaseError with SQLite's own words.
[[noreturn]] void fail(sqlite3* database, const std::string& what);

/// Runs statements that give no rows.
void run(sqlite3* database, const std::string& statements);

/// One prepared statement. Every member throws NotesDatabaseError when SQLite refuses.
class Statement {
public:
    Statement(sqlite3* database, const std::string& text);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Binds the next parameter.
    Statement& bind(long value);
    Statement& bind(double value);
    Statement& bind(const std::string& value);
    template <class T>
    Statement& bind(const std::optional<T>& value) {
        return value ? bind(*value) : bindNull();
    }

    /// Moves to the next row; false behind the last.
    bool next();
    /// Runs a statement that gives no rows.
    void run();

    bool isNull(int column) const;
    long integer(int column) const;
    double real(int column) const;
    std::string text(int column) const;
    std::optional<std::string> optionalText(int column) const;
    std::optional<double> optionalReal(int column) const;

private:
    Statement& bindNull();
    void check(int result) const;

    sqlite3* _database;
    sqlite3_stmt* _statement = nullptr;
    int _bound = 0;
};

/// All or nothing: what was not committed at the end of its life is undone.
class Transaction {
public:
    explicit Transaction(sqlite3* database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    sqlite3* _database;
    bool _open = true;
};

} // namespace phone::sqlite
