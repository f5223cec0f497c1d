#include "phone/eventkit/StoredObject.h"

#include "phone/eventkit/StoreEntry.h"

namespace phone::eventkit {

void StoredObject::define(objc::ClassTable<StoredObject>& c) {
    c.def<"hasChanges", &StoredObject::hasChanges>().def<"isNew", &StoredObject::isNew>();
}

bool StoredObject::hasChanges() {
    logMessage(*this, "hasChanges");
    return _hasChanges;
}

bool StoredObject::isNew() {
    logMessage(*this, "isNew");
    return _isNew;
}

} // namespace phone::eventkit
