#include "phone/foundation/FileFaults.h"

#include "phone/device/RootFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <string_view>

namespace phone {

namespace {

bool liesIn(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace

constinit std::atomic<FileFaults*> FileFaults::current = nullptr;

FileFaults::FileFaults(Disk disk, const std::string& folder, std::int64_t spaceLeft)
    : _disk(disk), _folder(folder == "/" ? RootFolder::path() : RootFolder::hostPath(folder)), _spaceLeft(spaceLeft) {
    current = this;
}

FileFaults::~FileFaults() { current = nullptr; }

FileFaults* FileFaults::of(const char* path) {
    FileFaults* faults = current;
    return faults != nullptr && path != nullptr && liesIn(path, faults->_folder) ? faults : nullptr;
}

FileFaults* FileFaults::of(int file) {
    if (current == nullptr) {
        return nullptr;
    }
    char link[32];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    char path[PATH_MAX];
    // Asked of the kernel itself: `readlink` would answer the device's path.
    const long length = syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    if (length < 0) {
        return nullptr;
    }
    path[length] = 0;
    return of(path);
}

int FileFaults::opening(const char* path, int flags) {
    const FileFaults* faults = of(path);
    if (faults == nullptr) {
        return 0;
    }
    const bool changes = (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
    switch (faults->_disk) {
    case Disk::Full:
        return 0; // a file without content needs no space
    case Disk::ReadOnly:
        return changes ? EROFS : 0;
    case Disk::Unreadable:
        return EACCES;
    }
    return 0;
}

int FileFaults::making(const char* path) {
    const FileFaults* faults = of(path);
    return faults != nullptr && faults->_disk == Disk::Full && faults->_spaceLeft <= 0 ? ENOSPC : changing(path);
}

int FileFaults::changing(const char* path) {
    const FileFaults* faults = of(path);
    return faults != nullptr && faults->_disk == Disk::ReadOnly ? EROFS : 0;
}

int FileFaults::growing(int file, std::int64_t size) {
    FileFaults* faults = of(file);
    struct stat status{};
    if (faults == nullptr || faults->_disk != Disk::Full || fstat(file, &status) != 0 || size <= status.st_size) {
        return 0;
    }
    const std::int64_t wanted = size - status.st_size;
    if (faults->_spaceLeft < wanted) {
        return ENOSPC;
    }
    faults->_spaceLeft -= wanted;
    return 0;
}

int FileFaults::writing(int file, std::int64_t count) {
    FileFaults* faults = of(file);
    if (faults == nullptr) {
        return 0;
    }
    struct stat status{};
    const bool appends = (fcntl(file, F_GETFL) & O_APPEND) != 0;
    const std::int64_t at = appends && fstat(file, &status) == 0 ? status.st_size : lseek(file, 0, SEEK_CUR);
    return growing(file, at + count);
}

} // namespace phone
