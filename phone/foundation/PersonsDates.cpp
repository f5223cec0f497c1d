#include "phone/foundation/PersonsDates.h"

#include "phone/foundation/HourPattern.h"
#include "phone/foundation/Text.h"

namespace phone {

std::string personsPattern(const char* fields) {
    const auto locale = NSDateFormatter::make().send<"locale", objc::Object>();
    return text(objc::sendClass<NSDateFormatter, "dateFormatFromTemplate:options:locale:", NSString>(
        string(fields), objc::UInt(0), locale));
}

bool hasTwelveHours() { return withoutQuotes(personsPattern("j")).find('a') != std::string::npos; }

NSDateFormatter personsFormatter(const std::string& pattern) {
    const auto formatter = NSDateFormatter::make();
    formatter.setDateFormat(string(pattern));
    return formatter;
}

} // namespace phone
