/// Where views and controllers end: on the main thread, whoever lets go of them last.
#pragma once

namespace phone {

/// From now on a view or controller that is released on another thread is released at the start of the main
/// thread's next cycle instead, as the platform does for those whom a background thread held last. Call once
/// the classes exist.
void releaseRespondersOnMainThread();

} // namespace phone
