/// One account that notes belong to, as the database holds it.
#pragma once

#include "phone/notes/ManagedObject.h"
#include "phone/notes/NotesTurn.h"
#include "platform/notes/NoteContext.h"

namespace phone::notes {

class Account : public objc::Implements<Account, NoteAccountObject, objc::Ref<ManagedObject>>,
                public LoggedFields<Account> {
public:
    static void define(objc::ClassTable<Account>& c);
    static NoteAccountObject make(const NSString& name);

private:
    friend LoggedFields<Account>;

    NSString _name;
};

} // namespace phone::notes
