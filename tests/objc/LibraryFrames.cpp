#include "tests/objc/LibraryFrames.h"

#include "platform/foundation/NSString.h"

NSObject readPastTheEnd(const NSArray& array) {
    const auto held = "held while the exception passes"_ns;
    const NSObject found = array.at(100);
    return held ? found : NSObject();
}
