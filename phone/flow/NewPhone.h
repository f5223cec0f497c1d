/// Making a phone: a root folder with what is installed and with fresh stores.
#pragma once

#include "phone/flow/Stores.h"

#include <filesystem>

namespace phone {

/// Makes the folder. `stage` holds what is installed, laid out as on the device. Throws InputError when
/// the folder exists and is not empty, and when something cannot be made.
void makePhone(const std::filesystem::path& root, const std::filesystem::path& stage, const Stores& stores);

} // namespace phone
