/// NSData, as far as the phone itself uses it.
#pragma once

#include "platform/foundation/NSObject.h"

#include <string>

namespace phone {

class NSData : public NSObject {
public:
    static constexpr auto objc_name = "NSData";
    using NSObject::NSObject;
    static NSData of(const std::string& bytes) {
        return objc::make<NSData, "initWithBytes:length:">(static_cast<const void*>(bytes.data()),
                                                           objc::UInt(bytes.size()));
    }

    /// A copy.
    std::string bytes() const {
        return {static_cast<const char*>(send<"bytes", const void*>()), send<"length", objc::UInt>()};
    }
};

} // namespace phone
