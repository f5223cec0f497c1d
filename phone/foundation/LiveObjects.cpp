#include "phone/foundation/LiveObjects.h"

#include "platform/objc/Object.h"

#include <cstdlib>

// Foundation counts what it allocates, for its own debugging.
extern "C" {
unsigned char GSDebugAllocationActive(unsigned char active);
int GSDebugAllocationCount(Class cls);
Class* GSDebugAllocationClassList();
}

namespace phone {

void countLiveObjects() { GSDebugAllocationActive(1); }

std::map<std::string, int> liveObjects() {
    std::map<std::string, int> counts;
    Class* const classes =
        GSDebugAllocationClassList(); // ends with nil; belongs to Foundation's zone, which is the heap
    for (Class* cls = classes; cls != nullptr && *cls != nullptr; ++cls) {
        if (const int count = GSDebugAllocationCount(*cls); count != 0) {
            counts[class_getName(*cls)] = count;
        }
    }
    std::free(classes);
    return counts;
}

} // namespace phone
