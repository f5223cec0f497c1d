#include "phone/notes/Store.h"

#include "phone/foundation/Text.h"
#include "phone/notes/Account.h"

namespace phone::notes {

void Store::define(objc::ClassTable<Store>& c) {
    c.def<"account", &Store::logged<"account", &Store::_account>>();
    c.def<"name", &Store::logged<"name", &Store::_name>>();
}

NoteStoreObject Store::make(const StoreRow& row) {
    const auto store = objc::make<NoteStoreObject>();
    Store* peer = of(store);
    peer->_key = row.key;
    peer->_name = string(row.accountName); // a store is named after its account
    peer->_account = Account::make(peer->_name);
    return store;
}

} // namespace phone::notes
