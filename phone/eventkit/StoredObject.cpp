#include "phone/eventkit/StoredObject.h"

#include "phone/eventkit/Turn.h"

namespace phone::eventkit {

void StoredObject::define(objc::ClassTable<StoredObject>& c) {
    c.def<"hasChanges", &StoredObject::hasChanges>().def<"isNew", &StoredObject::isNew>();
}

bool StoredObject::hasChanges() {
    const Turn turn(*this, "hasChanges");
    return _hasChanges;
}

bool StoredObject::isNew() {
    const Turn turn(*this, "isNew");
    return _isNew;
}

} // namespace phone::eventkit
