#include "phone/uikit/SystemWords.h"

#include "phone/device/Settings.h"

namespace phone {

NSString inPhoneLanguage(const char* english, const char* german) {
    const std::string& language = settings().language;
    const bool isGerman = language == "de" || language.starts_with("de-") || language.starts_with("de_");
    return NSString::utf8(isGerman ? german : english);
}

} // namespace phone
