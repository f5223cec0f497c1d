/// A place on the screen.
#pragma once

namespace phone {

/// In points, as the person holds the device.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

} // namespace phone
