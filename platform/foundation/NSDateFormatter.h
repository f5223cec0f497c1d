/// NSDateFormatter, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSLocale.h"

/// Speaks the current locale in the default time zone unless told otherwise.
class NSDateFormatter : public NSObject {
public:
    static constexpr auto objc_name = "NSDateFormatter";
    using NSObject::NSObject;
    static NSDateFormatter make() { return objc::make<NSDateFormatter>(); }

    NSString dateFormat() const { return send<"dateFormat", NSString>(); }
    void setDateFormat(const NSString& format) const { send<"setDateFormat:">(format); }
    void setLocale(const NSLocale& locale) const { send<"setLocale:">(locale); }
    NSString string(const NSDate& date) const { return send<"stringFromDate:", NSString>(date); }
};
