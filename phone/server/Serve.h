/// `phone serve`: from the command line to the end.
#pragma once

#include "phone/flow/PhoneOptions.h"

#include <string>

namespace phone {

/// Launches the application, serves it on this port and says so on standard output; comes back when the program is
/// interrupted or told to end. Gives the exit status; throws InputError when something given is unusable.
int serve(const std::string& root, const LaunchSettings& settings, int port);

} // namespace phone
