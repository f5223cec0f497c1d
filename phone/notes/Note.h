/// One note being written. Nothing of it stands in the database before its context is saved.
#pragma once

#include "phone/notes/ManagedObject.h"
#include "phone/notes/NotesDatabase.h"
#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

#include <optional>

namespace phone::notes {

class Note : public objc::Implements<Note, NoteObject, objc::Ref<ManagedObject>>, public LoggedFields<Note> {
public:
    static void define(objc::ClassTable<Note>& c);
    ~Note();

    /// The note as a row; nullopt for one that cannot be saved: without a store or without a body.
    std::optional<NoteRow> row() const;
    /// The body's side of the relation; sets this side alone.
    void setBodyOnly(const NoteBodyObject& body) { _body = body; }

private:
    friend LoggedFields<Note>;

    /// A note's content is its body's; it is kept here only until there is a body.
    NSString content();
    void setContent(const NSString& content);
    /// The body takes this as its owner: the model keeps both sides of the relation.
    void setBody(const NoteBodyObject& body);

    bool _isPlainText = false;
    NSString _content; // until there is a body
    NoteStoreObject _store;
    NSNumber _integerId;
    NSString _title;
    NSString _summary;
    NoteBodyObject _body;
    NSDate _creationDate;
    NSDate _modificationDate;
};

} // namespace phone::notes
