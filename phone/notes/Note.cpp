#include "phone/notes/Note.h"

#include "phone/foundation/Text.h"
#include "phone/notes/Body.h"
#include "phone/notes/Store.h"

namespace phone::notes {

namespace {

std::optional<std::string> optional(const NSString& string) {
    return string ? std::optional(text(string)) : std::nullopt;
}

std::optional<double> optional(const NSDate& date) {
    return date ? std::optional(date.sinceReferenceDate()) : std::nullopt;
}

} // namespace

void Note::define(objc::ClassTable<Note>& c) {
    c.def<"isPlainText", &Note::logged<"isPlainText", &Note::_isPlainText>>()
        .def<"setIsPlainText:", &Note::setLogged<"setIsPlainText:", &Note::_isPlainText>>();
    c.def<"content", &Note::content>().def<"setContent:", &Note::setContent>();
    c.def<"store", &Note::logged<"store", &Note::_store>>()
        .def<"setStore:", &Note::setLogged<"setStore:", &Note::_store>>();
    c.def<"integerId", &Note::logged<"integerId", &Note::_integerId>>()
        .def<"setIntegerId:", &Note::setLogged<"setIntegerId:", &Note::_integerId>>();
    c.def<"title", &Note::logged<"title", &Note::_title>>()
        .def<"setTitle:", &Note::setLogged<"setTitle:", &Note::_title>>();
    c.def<"summary", &Note::logged<"summary", &Note::_summary>>()
        .def<"setSummary:", &Note::setLogged<"setSummary:", &Note::_summary>>();
    c.def<"body", &Note::logged<"body", &Note::_body>>().def<"setBody:", &Note::setBody>();
    c.def<"creationDate", &Note::logged<"creationDate", &Note::_creationDate>>()
        .def<"setCreationDate:", &Note::setLogged<"setCreationDate:", &Note::_creationDate>>();
    c.def<"modificationDate", &Note::logged<"modificationDate", &Note::_modificationDate>>()
        .def<"setModificationDate:", &Note::setLogged<"setModificationDate:", &Note::_modificationDate>>();
}

Note::~Note() {
    if (Body* body = Body::of(_body)) {
        body->setOwnerOnly(nullptr);
    }
}

NSString Note::content() {
    const NotesTurn turn(objc_name, "content");
    const Body* body = Body::of(_body);
    return body == nullptr ? _content : body->content();
}

void Note::setContent(const NSString& content) {
    const NotesTurn turn(objc_name, "setContent:", content);
    _content = content;
    if (Body* body = Body::of(_body)) {
        body->setContent(content);
    }
}

void Note::setBody(const NoteBodyObject& body) {
    const NotesTurn turn(objc_name, "setBody:", body);
    if (Body* before = Body::of(_body)) {
        before->setOwnerOnly(nullptr);
    }
    _body = body;
    if (Body* owned = Body::of(body)) {
        owned->setOwnerOnly(*this);
    }
}

std::optional<NoteRow> Note::row() const {
    const Store* store = Store::of(_store);
    const Body* body = Body::of(_body);
    if (store == nullptr || body == nullptr) {
        return std::nullopt;
    }
    NoteRow row;
    row.storeKey = store->key();
    row.integerId = _integerId.integerValue();
    row.isPlainText = _isPlainText;
    row.title = optional(_title);
    row.summary = optional(_summary);
    row.content = optional(body->content());
    row.created = optional(_creationDate);
    row.modified = optional(_modificationDate);
    return row;
}

} // namespace phone::notes
