#include "Quorvan/common/DateText.h"

#include "platform/foundation/NSDateFormatter.h"

namespace quorvan {

NSString dateText(const NSDate& date, const char* format) {
    const auto formatter = NSDateFormatter::make();
    formatter.setDateFormat(NSString::utf8(format));
    return formatter.string(date);
}

} // namespace quorvan
