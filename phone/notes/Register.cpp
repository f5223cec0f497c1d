#include "phone/notes/Register.h"

#include "phone/foundation/Bundle.h"
#include "phone/notes/Account.h"
#include "phone/notes/Body.h"
#include "phone/notes/Context.h"
#include "phone/notes/EntityDescription.h"
#include "phone/notes/ManagedObject.h"
#include "phone/notes/ManagedObjectContext.h"
#include "phone/notes/Note.h"
#include "phone/notes/NotesFramework.h"
#include "phone/notes/Store.h"

namespace phone {

namespace {

void registerNotesClasses() {
    notes::ManagedObject::definedClass();
    notes::Account::definedClass();
    notes::Store::definedClass();
    notes::Body::definedClass();
    notes::Note::definedClass();
    notes::ManagedObjectContext::definedClass();
    notes::EntityDescription::definedClass();
    notes::Context::definedClass();
}

} // namespace

void provideNotesClasses() { provideBundle(NotesFramework::devicePath, &registerNotesClasses); }

} // namespace phone
