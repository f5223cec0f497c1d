/// Loads the libraries that lie in the device's library folder into this process.
#pragma once

#include <string>
#include <vector>

namespace phone {

/// Where the libraries and their filters lie on the device.
inline constexpr const char* librariesFolder = "/Library/MobileSubstrate/DynamicLibraries";

/// How each line begins that the loader writes to standard error; a device's would stand in the system's log.
inline constexpr const char* loaderMark = "loader: ";

/// Loads every library whose filter matches this process, in alphabetical order, each completely before
/// the next; answers the device paths of those loaded. A library without a filter matches; one with a
/// corrupt filter is skipped, and one that does not load is passed over: each with a warning on standard
/// error. After all classes of the phone are registered.
std::vector<std::string> loadLibraries();

} // namespace phone
