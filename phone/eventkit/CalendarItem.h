/// What events and reminders have in common.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/eventkit/StoredObject.h"
#include "platform/eventkit/EKCalendarItem.h"

#include <optional>
#include <string>
#include <vector>

namespace phone::eventkit {

class CalendarItem : public objc::Implements<CalendarItem, EKCalendarItem, objc::Ref<StoredObject>> {
public:
    static void define(objc::ClassTable<CalendarItem>& c);
    CalendarItem();

    const std::string& id() const { return _id; }
    const EKCalendar& currentCalendar() const { return _calendar; }
    std::string titleText() const;
    std::optional<std::string> locationText() const;
    std::optional<std::string> notesText() const;
    std::vector<CalendarAlarm> alarmRows() const;

    // What saving leaves behind.
    std::optional<double> created;  // seconds since 1970, UTC
    std::optional<double> modified; // likewise
    std::string savedIn;            // the id of the calendar that it was last saved in; "" for none
    long order = 0;                 // its place in the order of creation

private:
    EKCalendar calendar();
    void setCalendar(const EKCalendar& calendar);
    /// "", not nil, where there is none.
    NSString title();
    void setTitle(const NSString& title);
    NSString location();
    void setLocation(const NSString& location);
    NSString notes();
    void setNotes(const NSString& notes);
    NSString calendarItemIdentifier();
    NSDate creationDate();
    NSDate lastModifiedDate();

    NSArray alarms();
    /// Raises NSInvalidArgumentException for anything that is no alarm.
    void setAlarms(const NSArray& alarms);
    void addAlarm(const EKAlarm& alarm);
    void removeAlarm(const EKAlarm& alarm);
    bool hasAlarms();

    std::string _id;
    EKCalendar _calendar;
    NSString _title;
    NSString _location;
    NSString _notes;
    std::vector<EKAlarm> _alarms;
};

} // namespace phone::eventkit
