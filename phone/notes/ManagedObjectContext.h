/// Where inserted objects live until they are saved; those that never are go with it.
#pragma once

#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

#include <vector>

namespace phone::notes {

class ManagedObjectContext : public objc::Implements<ManagedObjectContext, NSManagedObjectContext, NSObject> {
public:
    static void define(objc::ClassTable<ManagedObjectContext>&) {}

    void insert(const NSObject& object) { _inserted.push_back(object); }
    const std::vector<NSObject>& inserted() const { return _inserted; }
    /// What was inserted has been saved.
    void clear() { _inserted.clear(); }

private:
    std::vector<NSObject> _inserted;
};

} // namespace phone::notes
