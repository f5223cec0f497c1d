/// Keeps two installations on one root folder apart.
#pragma once

#include <filesystem>

namespace phone {

/// Waits until no other process holds it. It locks the folder itself: nothing is made in it.
class RootLock {
public:
    /// Throws std::filesystem::filesystem_error.
    explicit RootLock(const std::filesystem::path& root);
    ~RootLock();
    RootLock(const RootLock&) = delete;
    RootLock& operator=(const RootLock&) = delete;

private:
    int _folder;
};

} // namespace phone
