/// Reads the values of `setPreferences`.
#pragma once

#include "phone/flow/CommandReader.h"

namespace phone {

/// Keys with booleans, numbers, texts, or null for a key that is to go.
commands::SetPreferences readPreferences(const Yaml& node, const CommandScope& scope);

} // namespace phone
