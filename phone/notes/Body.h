/// The content of one note being written.
#pragma once

#include "phone/notes/ManagedObject.h"
#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

namespace phone::notes {

class Body : public objc::Implements<Body, NoteBodyObject, objc::Ref<ManagedObject>>, public LoggedFields<Body> {
public:
    static void define(objc::ClassTable<Body>& c);

    const NSString& content() const { return _content; }
    void setContent(const NSString& content) { _content = content; }
    /// The note's side of the relation; sets this side alone.
    void setOwnerOnly(const NoteObject& note) { _owner = note; }

private:
    friend LoggedFields<Body>;

    NoteObject owner();
    /// The note takes this as its body: the model keeps both sides of the relation.
    void setOwner(const NoteObject& note);

    NSString _content;
    objc::Unretained<NoteObject> _owner; // the note owns its body
};

} // namespace phone::notes
