#include "phone/notes/Sqlite.h"

namespace phone::sqlite {

void fail(sqlite3* database, const std::string& what) {
    throw NotesDatabaseError("notes database: " + what + ": " + sqlite3_errmsg(database));
}

void run(sqlite3* database, const std::string& statements) {
    if (sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail(database, statements);
    }
}

Statement::Statement(sqlite3* database, const std::string& text) : _database(database) {
    if (sqlite3_prepare_v2(database, text.c_str(), -1, &_statement, nullptr) != SQLITE_OK) {
        fail(database, text);
    }
}

Statement::~Statement() { sqlite3_finalize(_statement); }

void Statement::check(int result) const {
    if (result != SQLITE_OK) {
        fail(_database, sqlite3_sql(_statement));
    }
}

Statement& Statement::bind(long value) {
    check(sqlite3_bind_int64(_statement, ++_bound, value));
    return *this;
}

Statement& Statement::bind(double value) {
    check(sqlite3_bind_double(_statement, ++_bound, value));
    return *this;
}

Statement& Statement::bind(const std::string& value) {
    check(sqlite3_bind_text64(_statement, ++_bound, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bindNull() {
    check(sqlite3_bind_null(_statement, ++_bound));
    return *this;
}

bool Statement::next() {
    const int result = sqlite3_step(_statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        fail(_database, sqlite3_sql(_statement));
    }
    return result == SQLITE_ROW;
}

void Statement::run() { next(); }

bool Statement::isNull(int column) const { return sqlite3_column_type(_statement, column) == SQLITE_NULL; }

long Statement::integer(int column) const { return static_cast<long>(sqlite3_column_int64(_statement, column)); }

double Statement::real(int column) const { return sqlite3_column_double(_statement, column); }

std::string Statement::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(_statement, column));
    return bytes == nullptr ? std::string()
                            : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(_statement, column)));
}

std::optional<std::string> Statement::optionalText(int column) const {
    return isNull(column) ? std::nullopt : std::optional(text(column));
}

std::optional<double> Statement::optionalReal(int column) const {
    return isNull(column) ? std::nullopt : std::optional(real(column));
}

Transaction::Transaction(sqlite3* database) : _database(database) { run(database, "BEGIN IMMEDIATE"); }

Transaction::~Transaction() {
    if (_open) {
        sqlite3_exec(_database, "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    run(_database, "COMMIT");
    _open = false;
}

} // namespace phone::sqlite
