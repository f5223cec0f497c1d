/// NSValue and NSNumber, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSString.h"

class NSValue : public NSObject {
public:
    static constexpr auto objc_name = "NSValue";
    using NSObject::NSObject;
    static NSValue withCGRect(CGRect rect) { return objc::sendClass<NSValue, "valueWithCGRect:", NSValue>(rect); }

    CGRect CGRectValue() const { return send<"CGRectValue", CGRect>(); }
};

class NSNumber : public NSValue {
public:
    static constexpr auto objc_name = "NSNumber";
    using NSValue::NSValue;
    static NSNumber withBool(bool value) { return objc::sendClass<NSNumber, "numberWithBool:", NSNumber>(value); }
    static NSNumber withInteger(objc::Int value) {
        return objc::sendClass<NSNumber, "numberWithInteger:", NSNumber>(value);
    }
    static NSNumber withDouble(double value) { return objc::sendClass<NSNumber, "numberWithDouble:", NSNumber>(value); }

    bool boolValue() const { return send<"boolValue", bool>(); }
    objc::Int integerValue() const { return send<"integerValue", objc::Int>(); }
    double doubleValue() const { return send<"doubleValue", double>(); }
    /// In plain digits, whatever the locale.
    NSString stringValue() const { return send<"stringValue", NSString>(); }
};
