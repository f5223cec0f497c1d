/// NSLocale, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class NSLocale : public NSObject {
public:
    static constexpr auto objc_name = "NSLocale";
    using NSObject::NSObject;
    /// "de_AT". One named like this has none of the person's own settings.
    static NSLocale withIdentifier(const NSString& identifier) {
        return objc::make<NSLocale, "initWithLocaleIdentifier:">(identifier);
    }
};
