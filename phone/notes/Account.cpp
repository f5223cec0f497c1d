#include "phone/notes/Account.h"

namespace phone::notes {

void Account::define(objc::ClassTable<Account>& c) { c.def<"name", &Account::logged<"name", &Account::_name>>(); }

NoteAccountObject Account::make(const NSString& name) {
    const auto account = objc::make<NoteAccountObject>();
    of(account)->_name = name;
    return account;
}

} // namespace phone::notes
