#include "phone/eventkit/Calendar.h"

#include "phone/eventkit/Turn.h"
#include "phone/foundation/Text.h"

namespace phone::eventkit {

void Calendar::define(objc::ClassTable<Calendar>& c) {
    c.def<"title", &Calendar::title>()
        .def<"calendarIdentifier", &Calendar::calendarIdentifier>()
        .def<"allowsContentModifications", &Calendar::allowsContentModifications>();
}

EKCalendar Calendar::make(StoreNumber store, EntityType type, const CalendarRow& row) {
    const auto calendar = objc::make<EKCalendar>();
    StoredObject::of(calendar)->setStore(store);
    StoredObject::of(calendar)->setSaved();
    of(calendar)->_type = type;
    of(calendar)->_row = row;
    return calendar;
}

NSString Calendar::title() {
    const Turn turn(*this, "title");
    return string(_row.title);
}

NSString Calendar::calendarIdentifier() {
    const Turn turn(*this, "calendarIdentifier");
    return string(_row.id);
}

bool Calendar::allowsContentModifications() {
    const Turn turn(*this, "allowsContentModifications");
    return !_row.isReadOnly;
}

} // namespace phone::eventkit
