/// Registers the classes of the private Notes framework.
#pragma once

namespace phone {

/// Before the first library is loaded, after `installFoundation`.
void registerNotesClasses();

} // namespace phone
