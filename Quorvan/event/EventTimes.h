/// The event's hours: read off the clock, and as its screens show them.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSString.h"

namespace quorvan {

/// The hour or the minute of the date, as the person's clock shows it.
objc::Int hourOf(const NSDate& date);
objc::Int minuteOf(const NSDate& date);

/// "14:37"
NSString clockText(const NSDate& date);
/// The same an hour later: "15:37", but also "9:05" and "24:40" (docs/kept.md: the end's hour).
NSString clockTextAnHourLater(const NSDate& date);
/// "14:37 - 15:37", of its two ends.
NSString rangeText(const NSString& start, const NSString& end);

} // namespace quorvan
