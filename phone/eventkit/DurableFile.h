/// Small files that survive a crash at any moment, shared by several processes.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace phone {

/// Replaces the file in one step: readers, and whoever comes after a crash, find the old content or the
/// new. The folder has to exist. Throws std::filesystem::filesystem_error.
void replaceFile(const std::filesystem::path& file, const std::string& content);

/// nullopt for a file that is not there or cannot be read.
std::optional<std::string> contentOf(const std::filesystem::path& file);

/// Keeps every other process, and every other thread, out while it lives. Throws
/// std::filesystem::filesystem_error when the file cannot be made.
class FileLock {
public:
    explicit FileLock(const std::filesystem::path& file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int _file;
};

} // namespace phone
