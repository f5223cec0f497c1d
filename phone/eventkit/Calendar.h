/// One reminder list or event calendar, as the store found it.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKCalendar.h"

namespace phone::eventkit {

/// Neither a property list value nor a dictionary's key: it follows no such protocol.
class Calendar : public objc::Implements<Calendar, EKCalendar, objc::Ref<StoredObject>> {
public:
    static void define(objc::ClassTable<Calendar>& c);
    static EKCalendar make(StoreNumber store, EntityType type, const CalendarRow& row);

    const std::string& id() const { return _row.id; }
    EntityType type() const { return _type; }
    bool isReadOnly() const { return _row.isReadOnly; }
    /// How many alarms an item in it keeps; nullopt for any number.
    std::optional<std::size_t> mostAlarms() const { return _row.mostAlarms; }
    /// The same calendar as it is now.
    void update(const CalendarRow& row) { _row = row; }

private:
    NSString title();
    NSString calendarIdentifier();
    bool allowsContentModifications();

    EntityType _type = EntityType::Event;
    CalendarRow _row;
};

} // namespace phone::eventkit
