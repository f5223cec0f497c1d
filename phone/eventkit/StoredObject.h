/// What everything in the calendar store has in common: its store, and whether it is saved.
#pragma once

#include "platform/eventkit/EKObject.h"

namespace phone::eventkit {

/// The number of an event store in this process; 0 for an object of no store.
using StoreNumber = unsigned long;

class StoredObject : public objc::Implements<StoredObject, EKObject, NSObject> {
public:
    static void define(objc::ClassTable<StoredObject>& c);

    StoreNumber store() const { return _store; }
    void setStore(StoreNumber store) { _store = store; }
    bool isUnsaved() const { return _isNew; }
    bool isChanged() const { return _hasChanges; }
    void setChanged() { _hasChanges = true; }
    void setSaved() {
        _isNew = false;
        _hasChanges = false;
    }

private:
    bool hasChanges();
    bool isNew();

    StoreNumber _store = 0;
    bool _isNew = true;
    bool _hasChanges = false;
};

} // namespace phone::eventkit
