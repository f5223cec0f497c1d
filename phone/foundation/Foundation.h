/// The platform's Foundation: GNUstep's, corrected where it differs.
#pragma once

namespace phone {

/// Points Foundation's own files (user defaults, temporary files) into the root folder, sets its
/// language and time zone from `settings()`, and starts the wall clock. Before any class of Foundation
/// is used; makes the folders it needs. Throws std::invalid_argument when the settings name no root folder.
void prepareEnvironment();

/// Corrects the classes of Foundation. After `prepareEnvironment`, before any other class of the phone
/// is registered. A second call does nothing.
void installFoundation();

} // namespace phone
