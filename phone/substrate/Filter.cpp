#include "phone/substrate/Filter.h"

#include "phone/device/Settings.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSNumber.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace phone {

namespace {

/// What every application here has loaded besides its own bundle.
constexpr std::array<std::string_view, 5> frameworks = {"com.apple.CoreFoundation", "com.apple.Foundation",
                                                        "com.apple.CoreGraphics", "com.apple.QuartzCore",
                                                        "com.apple.UIKit"};

bool isLoaded(const std::string& bundle) {
    return bundle == settings().application.bundle ||
           std::find(frameworks.begin(), frameworks.end(), bundle) != frameworks.end();
}

bool anyOf(const NSArray& names, const std::function<bool(const std::string&)>& matches) {
    for (const NSObject& name : names) {
        if (objc::isKind<NSString>(name) && matches(text(objc::as<NSString>(name)))) {
            return true;
        }
    }
    return false;
}

/// [least] or [least, first too high]; nothing but numbers counts.
bool versionMatches(const NSArray& range) {
    const auto number = [&](objc::UInt index) {
        const NSObject bound = range.at(index);
        return objc::isKind<NSNumber>(bound) ? objc::as<NSNumber>(bound) : NSNumber();
    };
    if (range.count() != 1 && range.count() != 2) {
        return false;
    }
    const double version = settings().system.coreFoundation;
    const NSNumber least = number(0);
    if (!least || version < least.doubleValue()) {
        return false;
    }
    if (range.count() == 1) {
        return true;
    }
    const NSNumber tooHigh = number(1);
    return tooHigh && version < tooHigh.doubleValue();
}

bool listMatches(const std::string& key, const NSArray& list) {
    const ApplicationProfile& application = settings().application;
    if (key == "Bundles") {
        return anyOf(list, isLoaded);
    }
    if (key == "Executables") {
        return anyOf(list, [&](const std::string& name) { return name == application.executable; });
    }
    if (key == "Classes") {
        return anyOf(list, [](const std::string& name) { return objc_lookUpClass(name.c_str()) != nullptr; });
    }
    return versionMatches(list);
}

} // namespace

bool filterMatches(const NSDictionary& propertyList) {
    const NSObject given = propertyList.at("Filter"_ns);
    if (!objc::isKind<NSDictionary>(given)) {
        return true;
    }
    const auto filter = objc::as<NSDictionary>(given);
    int lists = 0;
    int matching = 0;
    for (const char* key : {"Bundles", "Executables", "Classes", "CoreFoundationVersion"}) {
        const NSObject list = filter.at(string(key));
        if (objc::isKind<NSArray>(list)) {
            ++lists;
            matching += listMatches(key, objc::as<NSArray>(list));
        }
    }
    const NSObject mode = filter.at("Mode"_ns);
    const bool oneSuffices = mode && mode.isEqual("Any"_ns);
    return lists == 0 || (oneSuffices ? matching > 0 : matching == lists);
}

} // namespace phone
