#include "phone/eventkit/Turn.h"

namespace phone::eventkit {

std::recursive_mutex& Turn::mutex() {
    static auto* all = new std::recursive_mutex; // messages may come until the very end of the process
    return *all;
}

} // namespace phone::eventkit
