#include "phone/notes/Body.h"

#include "phone/notes/Note.h"

namespace phone::notes {

void Body::define(objc::ClassTable<Body>& c) {
    c.def<"content", &Body::logged<"content", &Body::_content>>()
        .def<"setContent:", &Body::setLogged<"setContent:", &Body::_content>>();

    c.def<"owner", &Body::owner>().def<"setOwner:", &Body::setOwner>();
}

NoteObject Body::owner() {
    const NotesTurn turn(objc_name, "owner");
    return _owner.get();
}

void Body::setOwner(const NoteObject& note) {
    const NotesTurn turn(objc_name, "setOwner:", note);
    if (Note* before = Note::of(_owner.raw()); before != nullptr && _owner.raw() != note.raw()) {
        before->setBodyOnly(nullptr);
    }
    _owner = note;
    if (Note* owner = Note::of(note)) {
        owner->setBodyOnly(*this);
    }
}

} // namespace phone::notes
