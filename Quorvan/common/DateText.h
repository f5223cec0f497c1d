/// Dates as the screens show them, and as the library reads hours off them.
#pragma once

#include "platform/foundation/NSDateFormatter.h"

namespace quorvan {

/// Writes one of the platform's patterns exactly as it stands, in the person's time zone.
NSDateFormatter formatter(const char* pattern);
/// The date by a formatter of its own.
NSString dateText(const NSDate& date, const char* pattern);

} // namespace quorvan
