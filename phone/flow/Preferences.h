/// The library's preferences file, written as its settings pane would.
#pragma once

#include "phone/flow/Flow.h"

#include <string>

namespace phone {

/// Where the file lies on the device.
inline constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/Mirelda.Quorvan.plist";

/// Sets and removes these keys; others stay. The file is an XML property list, replaced in one step; one that cannot be
/// read as such is written anew. Throws InputError when it cannot be written, or when it is a binary
/// property list, whose other keys would be lost.
void writePreferences(const std::string& root, const commands::SetPreferences& preferences);

} // namespace phone
