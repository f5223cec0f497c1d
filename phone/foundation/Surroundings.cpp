#include "phone/foundation/Surroundings.h"

#include "phone/device/Settings.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSTimeZone.h"

#include <unistd.h>

#include <filesystem>

namespace phone {

namespace {

struct NSUserDefaults : NSObject {
    static constexpr auto objc_name = "NSUserDefaults";
};

struct NSLocale : NSObject {
    static constexpr auto objc_name = "NSLocale";
    static NSLocale withIdentifier(const NSString& identifier) {
        return objc::make<NSLocale, "initWithLocaleIdentifier:">(identifier);
    }
};

struct NSProcessInfo : NSObject {
    static constexpr auto objc_name = "NSProcessInfo";
};

id languages(id, SEL) { return autoreleased(NSArray::of(string(settings().language))); }

id currentLocale(id, SEL) {
    const std::string identifier = localeIdentifier(settings().language, settings().region);
    return autoreleased(NSLocale::withIdentifier(string(identifier)));
}

void readEnvironmentAgain() {
    std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    char* arguments[] = {program.data(), nullptr};
    objc::sendClass<NSProcessInfo, "initializeWithArguments:count:environment:">(&arguments[0], 1, environ);
}

id timeZone(id, SEL) { return autoreleased(NSTimeZone::named(string(settings().zone))); }

} // namespace

void installSurroundings() {
    readEnvironmentAgain();
    const Class zone = objc::classOf<NSTimeZone>();
    correctClass<"systemTimeZone">(zone, &timeZone);
    correctClass<"defaultTimeZone">(zone, &timeZone);
    correctClass<"userLanguages">(objc::classOf<NSUserDefaults>(), &languages);
    const Class locale = objc::classOf<NSLocale>();
    correctClass<"preferredLanguages">(locale, &languages);
    correctClass<"currentLocale">(locale, &currentLocale);
}

} // namespace phone
