/// The share sheet's Event.
#pragma once

#include "Quorvan/activities/ShareActivity.h"
#include "Quorvan/event/EventController.h"

namespace quorvan {

class EventCreate : public ShareActivity<EventCreate> {
public:
    static constexpr auto objc_name = "EventCreate";
    static constexpr auto titleKey = "Event";
    static constexpr auto type = "com.tovesk.calendarevent";
    static constexpr auto image = "Events.png";
    using Compose = EventController;
};

} // namespace quorvan
