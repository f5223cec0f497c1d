/// One collection of notes, as the database holds it.
#pragma once

#include "phone/notes/ManagedObject.h"
#include "phone/notes/NotesDatabase.h"
#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

namespace phone::notes {

class Store : public objc::Implements<Store, NoteStoreObject, objc::Ref<ManagedObject>>, public LoggedFields<Store> {
public:
    static void define(objc::ClassTable<Store>& c);
    static NoteStoreObject make(const StoreRow& row);

    /// The row's primary key.
    long key() const { return _key; }

private:
    friend LoggedFields<Store>;

    long _key = 0;
    NSString _name;
    NoteAccountObject _account;
};

} // namespace phone::notes
