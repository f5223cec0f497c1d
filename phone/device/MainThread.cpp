#include "phone/device/MainThread.h"

namespace phone {

constinit thread_local bool detail::isMainThread = false;

void becomeMainThread() { detail::isMainThread = true; }

} // namespace phone
