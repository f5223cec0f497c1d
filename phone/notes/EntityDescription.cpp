#include "phone/notes/EntityDescription.h"

#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "phone/notes/ManagedObjectContext.h"

namespace phone::notes {

namespace {

constexpr const char* insertion = "insertNewObjectForEntityForName:inManagedObjectContext:";

/// nil for a name that the model does not have.
NSObject newObject(const std::string& entity) {
    if (entity == "Note") {
        return objc::make<NoteObject>();
    }
    if (entity == "NoteBody") {
        return objc::make<NoteBodyObject>();
    }
    return nullptr;
}

} // namespace

void EntityDescription::define(objc::ClassTable<EntityDescription>& c) {
    c.classMethod<"insertNewObjectForEntityForName:inManagedObjectContext:", &EntityDescription::insertNew>();
}

NSObject EntityDescription::insertNew(const NSString& entity, const NSManagedObjectContext& context) {
    const NotesTurn turn(objc_name, insertion, entity, context);
    ManagedObjectContext* into = ManagedObjectContext::of(context);
    if (into == nullptr) {
        raise("NSInvalidArgumentException",
              "+entityForName: nil is not a legal NSManagedObjectContext parameter searching for entity name '" +
                  text(entity) + "'");
    }
    const NSObject made = newObject(text(entity));
    if (!made) {
        raise("NSInvalidArgumentException",
              "+entityForName: could not locate an entity named '" + text(entity) + "' in this model.");
    }
    into->insert(made);
    return made;
}

} // namespace phone::notes
