/// Values that the platform adds to Foundation's classes.
#pragma once

namespace phone {

/// Adds the section and row of index paths and the rectangles of values.
void installValues();

} // namespace phone
