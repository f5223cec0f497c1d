/// The way into the Notes store: its stores, its counter, and saving.
#pragma once

#include "phone/notes/NotesDatabase.h"
#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

#include <memory>

namespace phone::notes {

/// Opens the database when it is made. Where that is missing or corrupt, there are no stores and nothing
/// can be saved; nobody is told.
class Context : public objc::Implements<Context, NoteContext, NSObject> {
public:
    static void define(objc::ClassTable<Context>& c);

private:
    void init();
    NSArray allStores();
    /// nil when no account has a default store.
    NoteStoreObject defaultStoreForNewNote();
    NSManagedObjectContext managedObjectContext();
    /// A number that no saved note has and that this context has not given out. The database's counter
    /// moves when a note with it is saved.
    NSNumber nextIndex();
    void enableChangeLogging(bool enabled);
    /// All that was inserted, or nothing: a note without a store or a body cannot be saved. Raises
    /// NSInvalidArgumentException for one without a title or a summary.
    bool saveOutsideApp(const NSObject& error);

    bool save();

    std::unique_ptr<NotesDatabase> _database; // none where it cannot be opened
    NSArray _stores;
    NoteStoreObject _defaultStore;
    NSManagedObjectContext _managed;
    long _lastIndex = 0; // given out
    bool _changeLogging = false;
};

} // namespace phone::notes
