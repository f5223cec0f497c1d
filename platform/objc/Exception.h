/// Reading the platform's exceptions where C++ has caught them. Not for the library, which has none.
#pragma once

#include "platform/objc/Object.h"

namespace objc {

/// Inside `catch (...)`: the object that the platform threw; nil when what was caught is a C++ exception.
Object caughtObject();

} // namespace objc
