/// The entities of the Notes model by name.
#pragma once

#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

namespace phone::notes {

class EntityDescription : public objc::Implements<EntityDescription, NSEntityDescription, NSObject> {
public:
    static void define(objc::ClassTable<EntityDescription>& c);

private:
    /// A new object in the context. Raises NSInvalidArgumentException for a nil context and for a name
    /// that the model does not have.
    static NSObject insertNew(const NSString& entity, const NSManagedObjectContext& context);
};

} // namespace phone::notes
