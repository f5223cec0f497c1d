/// Starts the phone application in this process.
#pragma once

#include "phone/device/Settings.h"

namespace phone {

/// How much of the phone starts.
enum class Start {
    Everything, // libraries and the phone application, as on a device
    Classes,    // the classes alone: no library, no application
};

/// Once per process, on the thread that is the main thread from then on. Sets the root folder, corrects
/// Foundation, registers all classes, loads the libraries, then lets the application open its window.
void boot(const Settings& settings, Start start = Start::Everything);

} // namespace phone
