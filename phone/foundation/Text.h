/// Between the platform's strings and the standard library's.
#pragma once

#include "platform/foundation/NSString.h"

#include <string>

namespace phone {

/// In UTF-8; "" for nil.
inline std::string text(const NSString& string) {
    const char* utf8 = string.UTF8String();
    return utf8 == nullptr ? std::string() : std::string(utf8);
}

/// Bytes that are not UTF-8 give nil.
inline NSString string(const std::string& utf8) { return NSString::utf8(utf8.c_str()); }

} // namespace phone
