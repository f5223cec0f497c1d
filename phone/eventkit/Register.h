/// Registers the classes of the calendar store.
#pragma once

namespace phone {

/// Before the first library is loaded, after `installFoundation`. From then on answers that wait are
/// given whenever the main loop comes to rest.
void registerEventKitClasses();

} // namespace phone
