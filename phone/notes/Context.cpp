#include "phone/notes/Context.h"

#include "phone/device/RootFolder.h"
#include "phone/foundation/Raise.h"
#include "phone/notes/ManagedObjectContext.h"
#include "phone/notes/Note.h"
#include "phone/notes/Store.h"

#include <algorithm>

namespace phone::notes {

void Context::define(objc::ClassTable<Context>& c) {
    c.init<"init", &Context::init>();

    c.def<"allStores", &Context::allStores>()
        .def<"defaultStoreForNewNote", &Context::defaultStoreForNewNote>()
        .def<"managedObjectContext", &Context::managedObjectContext>()
        .def<"nextIndex", &Context::nextIndex>();

    c.def<"enableChangeLogging:", &Context::enableChangeLogging>().def<"saveOutsideApp:", &Context::saveOutsideApp>();
}

void Context::init() {
    super<"init">();
    const NotesTurn turn(objc_name, "init");
    _managed = objc::make<NSManagedObjectContext>();
    const auto stores = objc::make<NSMutableArray>();
    try {
        _database = std::make_unique<NotesDatabase>(RootFolder::hostPath(NotesDatabase::devicePath));
        for (const StoreRow& row : _database->stores()) {
            const NoteStoreObject store = Store::make(row);
            stores.add(store);
            if (row.isDefault && !_defaultStore) {
                _defaultStore = store;
            }
        }
    } catch (const NotesDatabaseError&) {
        _database = nullptr;
    }
    _stores = stores;
}

NSArray Context::allStores() {
    const NotesTurn turn(objc_name, "allStores");
    return _stores;
}

NoteStoreObject Context::defaultStoreForNewNote() {
    const NotesTurn turn(objc_name, "defaultStoreForNewNote");
    return _defaultStore;
}

NSManagedObjectContext Context::managedObjectContext() {
    const NotesTurn turn(objc_name, "managedObjectContext");
    return _managed;
}

NSNumber Context::nextIndex() {
    const NotesTurn turn(objc_name, "nextIndex");
    try {
        _lastIndex = std::max(_lastIndex, _database == nullptr ? 0 : _database->lastIndex());
    } catch (const NotesDatabaseError&) {
        // The file has been broken since it was opened: the numbers go on from the last.
    }
    return NSNumber::withInteger(++_lastIndex);
}

void Context::enableChangeLogging(bool enabled) {
    const NotesTurn turn(objc_name, "enableChangeLogging:", enabled);
    _changeLogging = enabled;
}

bool Context::saveOutsideApp(const NSObject& error) {
    const NotesTurn turn(objc_name, "saveOutsideApp:", error);
    return save();
}

bool Context::save() {
    ManagedObjectContext* managed = ManagedObjectContext::of(_managed);
    std::vector<NoteRow> rows;
    for (const NSObject& object : managed->inserted()) {
        if (const Note* note = Note::of(object)) {
            const auto row = note->row();
            if (!row) {
                return false;
            }
            if (!row->title || !row->summary) {
                raise("NSInvalidArgumentException", "a note needs a title and a summary to be saved");
            }
            rows.push_back(*row);
        }
    }
    if (_database == nullptr) {
        return false;
    }
    try {
        _database->insert(rows, _changeLogging);
    } catch (const NotesDatabaseError&) {
        return false;
    }
    managed->clear();
    return true;
}

} // namespace phone::notes
