/// The time zone that a phone was last in.
#pragma once

#include <string>

namespace phone {

/// Keeps the zone in the phone's root folder. Throws InputError when it cannot be written.
void rememberZone(const std::string& root, const std::string& zone);

/// "UTC" when none was kept, or what was kept is no zone.
std::string rememberedZone(const std::string& root);

} // namespace phone
