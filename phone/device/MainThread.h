/// Which thread is the main thread.
#pragma once

namespace phone {

namespace detail {
extern constinit thread_local bool isMainThread;
}

/// The calling thread is the main thread from now on. Once per process.
void becomeMainThread();

/// Whether the calling thread is the main thread.
inline bool isMainThread() { return detail::isMainThread; }

} // namespace phone
