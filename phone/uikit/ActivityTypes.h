/// The platform's own activity types, exported as C constants.
#pragma once

namespace phone {

/// Gives the constants their values. Before the first library is loaded.
void setActivityTypes();

} // namespace phone
