#include "Quorvan/common/DateText.h"

namespace quorvan {

NSDateFormatter formatter(const char* pattern) {
    const auto made = NSDateFormatter::make();
    // The one locale that the platform leaves alone. In any other, a clock that the person has set to 12 hours turns
    // "HH" into "h a", and the digits may not be 0 to 9: the hour read from such a text is wrong.
    made.setLocale(NSLocale::withIdentifier("en_US_POSIX"_ns));
    made.setDateFormat(NSString::utf8(pattern));
    return made;
}

NSString dateText(const NSDate& date, const char* pattern) { return formatter(pattern).string(date); }

} // namespace quorvan
