#include "phone/eventkit/Register.h"

#include "phone/device/RunLoop.h"
#include "phone/eventkit/AccessRequests.h"
#include "phone/eventkit/Alarm.h"
#include "phone/eventkit/Calendar.h"
#include "phone/eventkit/Event.h"
#include "phone/eventkit/EventStore.h"
#include "phone/eventkit/LiveStores.h"
#include "phone/eventkit/RecurrenceEnd.h"
#include "phone/eventkit/RecurrenceRule.h"
#include "phone/eventkit/Reminder.h"

namespace phone {

void registerEventKitClasses() {
    eventkit::StoredObject::definedClass();
    eventkit::Calendar::definedClass();
    eventkit::Alarm::definedClass();
    eventkit::CalendarItem::definedClass();
    eventkit::Reminder::definedClass();
    eventkit::RecurrenceEnd::definedClass();
    eventkit::RecurrenceRule::definedClass();
    eventkit::Event::definedClass();
    eventkit::EventStore::definedClass();
    eventkit::LiveStores::watchReleases();
    RunLoop::main().setAtRest([] { return eventkit::AccessRequests::shared().answerWaiting(); });
}

} // namespace phone
