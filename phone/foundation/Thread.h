/// Threads beside the main thread that send messages.
#pragma once

#include <functional>
#include <thread>

namespace phone {

/// Tells Foundation that there will be more threads than one, while there is only one: some of what it has is
/// guarded from then on. Once per process.
void prepareForThreads();

/// A thread that Foundation and the object runtime know. The work brings a pool of its own.
std::thread startThread(std::function<void()> work);

} // namespace phone
