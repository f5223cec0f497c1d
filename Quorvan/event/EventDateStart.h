/// When the event starts.
#pragma once

#include "Quorvan/event/EventDateChooser.h"

namespace quorvan {

class EventDateStart : public EventDateChooser<EventDateStart> {
public:
    static constexpr auto objc_name = "EventDateStart";
    static constexpr auto title = "Start";
    static NSDate firstDate() { return nullptr; }
    static objc::Global<UIDatePicker>& picker() { return startPicker; }
    static objc::Global<NSDate>& date() { return startingDate; }
    static objc::Global<NSString>& text() { return startDate; }
};

} // namespace quorvan
