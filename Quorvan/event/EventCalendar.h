/// The calendars that an event can be written into.
#pragma once

#include "Quorvan/common/CalendarChooser.h"

namespace quorvan {

class EventCalendar : public CalendarChooser<EventCalendar> {
public:
    static constexpr auto objc_name = "EventCalendar";
    static constexpr auto kind = EKEntityType::Event;
    static constexpr auto identifiersFile = "EventsID.plist";
    static constexpr auto titlesFile = "Events.plist";
    static constexpr auto controllerTitle = "Event";
    static constexpr auto barTitle = "Calendar";
    static constexpr auto firstBarTitle = "Calendar";
    static constexpr auto reload = Reload::BeforeThePop;
    static objc::Int& marked() { return prevSelect; }
    static objc::Int& choice() { return chosenNum; }
    static objc::Global<NSString>& shown() { return elist; }
    UITableView& table() { return eCalendarTable; }
    ~EventCalendar() { takeBackDelegates(eCalendarTable); }

private:
    UITableView eCalendarTable;
};

} // namespace quorvan
