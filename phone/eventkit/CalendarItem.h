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
    /// As it is written.
    void fill(StoredItem& item) const;
    /// Alarms and rules are part of their item: what is set in them counts as a change of the item.
    bool hasChangedParts() const;
    /// Where its calendar takes fewer alarms the last ones go, without a word.
    void cutAlarms();
    /// It has been written like this, into the calendar with this id.
    void setSaved(const StoredItem& item, const std::string& calendar);
    /// The id of the calendar that it was last saved in; "" for none.
    const std::string& savedIn() const { return _savedIn; }

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

    NSArray recurrenceRules();
    /// Raises NSInvalidArgumentException for anything that is no rule.
    void setRecurrenceRules(const NSArray& rules);
    void addRecurrenceRule(const EKRecurrenceRule& rule);

    std::string _id;
    EKCalendar _calendar;
    NSString _title;
    NSString _location;
    NSString _notes;
    std::vector<EKAlarm> _alarms;
    std::vector<EKRecurrenceRule> _rules;

    // What saving leaves behind.
    std::optional<double> _created;  // seconds since 1970, UTC
    std::optional<double> _modified; // likewise
    std::string _savedIn;
    long _order = 0; // its place in the order of creation
};

} // namespace phone::eventkit
