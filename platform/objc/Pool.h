/// A scope that releases what was autoreleased within it.
#pragma once

#include "platform/objc/Object.h"

namespace objc {

class Pool {
public:
    Pool() : _pool(make<NSAutoreleasePool>()) {}
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

private:
    struct NSAutoreleasePool : Object {
        static constexpr auto objc_name = "NSAutoreleasePool";
    };
    NSAutoreleasePool _pool;
};

} // namespace objc
