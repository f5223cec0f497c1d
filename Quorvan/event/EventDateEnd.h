/// When the event ends.
#pragma once

#include "Quorvan/event/EventDateChooser.h"

namespace quorvan {

class EventDateEnd : public EventDateChooser<EventDateEnd> {
public:
    static constexpr auto objc_name = "EventDateEnd";
    static constexpr auto title = "End";
    static NSDate firstDate() { return NSDate::withSinceNow(3600); }
    static objc::Global<UIDatePicker>& picker() { return endPicker; }
    static objc::Global<NSDate>& date() { return endingDate; }
    static objc::Global<NSString>& text() { return endDate; }
};

} // namespace quorvan
