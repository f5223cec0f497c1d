/// NSString, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSRange.h"

/// `NSStringCompareOptions`, a set of bits.
enum NSStringCompareOptions : objc::UInt { NSLiteralSearch = 2 };

class NSString : public NSObject {
public:
    static constexpr auto objc_name = "NSString";
    using NSObject::NSObject;
    /// Of a text in UTF-8; nil for nullptr and for bytes that are not UTF-8.
    static NSString utf8(const char* text) {
        return text == nullptr ? NSString() : objc::make<NSString, "initWithUTF8String:">(text);
    }

    /// In UTF-16 units; 0 for nil.
    objc::UInt length() const { return send<"length", objc::UInt>(); }
    /// Lives as long as the innermost pool; nullptr for nil.
    const char* UTF8String() const { return send<"UTF8String", const char*>(); }
    bool isEqualToString(const NSString& other) const { return send<"isEqualToString:", bool>(other); }
    bool boolValue() const { return send<"boolValue", bool>(); }
    /// 0 for a text that begins with no number.
    objc::Int integerValue() const { return send<"integerValue", objc::Int>(); }
    NSRange rangeOfString(const NSString& part, NSStringCompareOptions options) const {
        return send<"rangeOfString:options:", NSRange>(part, options);
    }
    NSRange rangeOfCharacterFromSet(const NSCharacterSet& set) const {
        return send<"rangeOfCharacterFromSet:", NSRange>(set);
    }
    NSString substringToIndex(objc::UInt end) const { return send<"substringToIndex:", NSString>(end); }
    NSString substringFromIndex(objc::UInt start) const { return send<"substringFromIndex:", NSString>(start); }
    NSString substringWithRange(NSRange range) const { return send<"substringWithRange:", NSString>(range); }

    /// A new text; nil when this is nil. A nil argument raises on the platform.
    NSString stringByAppendingString(const NSString& tail) const {
        return send<"stringByAppendingString:", NSString>(tail);
    }
    NSString stringByAppendingPathComponent(const NSString& name) const {
        return send<"stringByAppendingPathComponent:", NSString>(name);
    }
    NSString stringByReplacingCharactersInRange(NSRange range, const NSString& text) const {
        return send<"stringByReplacingCharactersInRange:withString:", NSString>(range, text);
    }
};

inline NSString NSObject::description() const { return send<"description", NSString>(); }

/// A text written in the source.
inline NSString operator""_ns(const char* text, std::size_t) { return NSString::utf8(text); }
