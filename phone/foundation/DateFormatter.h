/// Dates as text, where GNUstep differs from the platform.
#pragma once

namespace phone {

/// Corrections of NSDateFormatter: the person's choice of 12 or 24 hours, where it is not what the region is used to,
/// changes the hours of every pattern, an explicit one too, in writing and reading dates and in what a template gives;
/// but `en_US_POSIX` is left alone. The spaces that the platform writes are plain ones.
void installDateFormatters();

} // namespace phone
