/// The classes of the private Notes framework.
#pragma once

namespace phone {

/// Registers the classes when the framework's bundle is loaded: no phone application does that by itself. Call
/// after `installFoundation`.
void provideNotesClasses();

} // namespace phone
