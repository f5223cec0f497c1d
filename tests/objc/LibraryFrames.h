/// Frames built as the library is: without exceptions.
#pragma once

#include "platform/foundation/NSArray.h"

/// Reads past the array's end while holding a handle; the platform raises.
NSObject readPastTheEnd(const NSArray& array);
