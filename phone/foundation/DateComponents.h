/// Date components as the platform has them, where GNUstep differs.
#pragma once

namespace phone {

/// Makes a copy another object, and a date of components without a year one of the year 1.
void installDateComponents();

} // namespace phone
