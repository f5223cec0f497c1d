/// One object of the Notes model; see NoteObject and NoteBodyObject for what it holds.
#pragma once

#include "platform/foundation/NSObject.h"

namespace phone::notes {

/// The superclass of all objects of the model.
class ManagedObject : public objc::Defines<ManagedObject, NSObject> {
public:
    static constexpr auto objc_name = "NSManagedObject";
    static void define(objc::ClassTable<ManagedObject>&) {}
};

} // namespace phone::notes
