/// Messages to UIKit that are sent on another thread than the main thread.
#pragma once

namespace phone {

/// From now on the log tells of each: on a device it is a race. Creating, asking and releasing an object as every
/// object can be is none; neither is what the platform allows on any thread (colours, fonts, pictures, and the end of
/// an activity).
void watchForMessagesOffMainThread();

} // namespace phone
