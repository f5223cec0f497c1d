#include "Quorvan/event/EventTimes.h"

#include "Quorvan/common/DateText.h"
#include "platform/foundation/NSNumber.h"

namespace quorvan {

objc::Int hourOf(const NSDate& date) { return dateText(date, "HH").integerValue(); }

objc::Int minuteOf(const NSDate& date) { return dateText(date, "mm").integerValue(); }

NSString clockText(const NSDate& date) { return dateText(date, "HH:mm"); }

NSString clockTextAnHourLater(const NSDate& date) {
    return NSNumber::withInteger(hourOf(date) + 1)
        .stringValue()
        .stringByAppendingString(":"_ns)
        .stringByAppendingString(dateText(date, "mm"));
}

NSString rangeText(const NSString& start, const NSString& end) {
    return start.stringByAppendingString(" - "_ns).stringByAppendingString(end);
}

} // namespace quorvan
