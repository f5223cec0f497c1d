/// NSRange: a run of positions.
#pragma once

#include "platform/objc/Encoding.h"

struct NSRange {
    objc::UInt location = 0;
    objc::UInt length = 0;

    constexpr objc::UInt end() const { return location + length; }
    friend constexpr bool operator==(const NSRange&, const NSRange&) = default;
};

/// What a search gives that found nothing.
inline constexpr objc::UInt NSNotFound = ~objc::UInt(0) >> 1;

namespace objc {
template <>
struct Encoding<NSRange> {
    static constexpr auto text =
        FixedString("{_NSRange=") + Encoding<UInt>::text + Encoding<UInt>::text + FixedString("}");
};
} // namespace objc
