/// The shape of the device's Notes database.
#pragma once

#include <string>

struct sqlite3;

namespace phone {

/// The entities of the Notes model, numbered as in the database's Z_ENT columns.
enum NotesEntity : long {
    AccountEntity = 1,
    NextIdEntity,
    NoteEntity,
    NoteBodyEntity,
    NoteChangeEntity,
    PropertyEntity,
    StoreEntity
};

/// Makes the tables and indices in an empty database, and the rows that every such database has.
void createNotesSchema(sqlite3* database);

/// Takes the next primary key of an entity, inside the caller's transaction.
long takeKey(sqlite3* database, NotesEntity entity);

} // namespace phone
