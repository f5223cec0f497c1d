/// Writing a file in one step.
#pragma once

#include <filesystem>
#include <string>

namespace phone {

/// Writes beside the file and renames, so that readers see the old content or the new; makes the folder.
/// Throws InputError when that cannot be done.
void writeAtomically(const std::filesystem::path& file, const std::string& content);

} // namespace phone
