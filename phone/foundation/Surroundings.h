/// The surroundings of the phone as Foundation sees them.
#pragma once

namespace phone {

/// Makes the user's languages, the current locale (language and region) and the time zone those of `settings()`, and
/// the process's environment the one that `prepareEnvironment` made: Foundation looked at it before the program began.
void installSurroundings();

} // namespace phone
