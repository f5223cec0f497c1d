#include "Quorvan/common/Resources.h"

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSNumber.h"

namespace quorvan {

namespace {
constexpr const char* directory = "/Library/Quorvan/";
constexpr const char* translations = "/Library/Quorvan/Translations.bundle/";
constexpr const char* preferencesDirectory = "/var/mobile/Library/Preferences";
constexpr const char* preferencesFile = "Mirelda.Quorvan.plist";
} // namespace

NSString localized(const char* key) { return localized(NSString::utf8(key)); }

NSString localized(const NSString& key) {
    const auto bundle = NSBundle::withPath(NSString::utf8(translations));
    const NSString word = bundle.localizedString(key, ""_ns, nullptr);
    return word ? word : key; // no bundle answers nil
}

NSString placeholder(const char* key) { return "  "_ns.stringByAppendingString(localized(key)); }

NSString resourcePath(const char* name) {
    return NSString::utf8(directory).stringByAppendingPathComponent(NSString::utf8(name));
}

UIImage picture(const char* name) { return UIImage::withContentsOfFile(resourcePath(name)); }

bool isOn(const char* preference) {
    const NSString path =
        NSString::utf8(preferencesDirectory).stringByAppendingPathComponent(NSString::utf8(preferencesFile));
    const auto value = NSDictionary::withContentsOfFile(path).at<NSNumber>(NSString::utf8(preference));
    return objc::isKind<NSNumber>(value) && value.boolValue();
}

} // namespace quorvan
