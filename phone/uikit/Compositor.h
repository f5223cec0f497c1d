/// Draws what is on the screen: the windows, back to front, as they look at this moment.
#pragma once

#include "phone/coregraphics/Painter.h"

#include <memory>
#include <string>

namespace phone {

/// A picture of the screen as the person holds it, at the device's scale.
std::unique_ptr<Canvas> pictureOfScreen();
/// Writes it as a PNG file; false when the file cannot be written.
bool writeScreenshot(const std::string& path);
/// The same of a part that lies on the screen: points, as the person holds the device.
bool writeScreenshot(const std::string& path, CGRect part);

} // namespace phone
