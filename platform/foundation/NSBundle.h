/// NSBundle, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class NSBundle : public NSObject {
public:
    static constexpr auto objc_name = "NSBundle";
    using NSObject::NSObject;
    /// nil for a path that is missing or no directory.
    static NSBundle withPath(const NSString& path) { return objc::make<NSBundle, "initWithPath:">(path); }

    /// Brings its classes into the process, if they are not there yet. False when that fails.
    bool load() const { return send<"load", bool>(); }

    /// `value` where the key is unknown, or the key itself when `value` is empty. A nil table means "Localizable".
    NSString localizedString(const NSString& key, const NSString& value, const NSString& table) const {
        return send<"localizedStringForKey:value:table:", NSString>(key, value, table);
    }
};
