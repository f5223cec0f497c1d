/// The private Notes framework as it lies on the device: a folder that brings the classes of the Notes store into
/// the process that loads it, and into no other.
#pragma once

#include <filesystem>

namespace phone {

struct NotesFramework {
    static constexpr const char* devicePath = "/System/Library/PrivateFrameworks/Notes.framework";

    /// Makes it below a root folder; throws std::filesystem::filesystem_error where that cannot be done.
    static void create(const std::filesystem::path& root);
};

} // namespace phone
