/// Dates as the screens show them.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSString.h"

namespace quorvan {

/// The date in the person's time zone and words; the format is one of the platform's patterns.
NSString dateText(const NSDate& date, const char* format);

} // namespace quorvan
