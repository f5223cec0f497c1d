#include "phone/packages/RootLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace phone {

RootLock::RootLock(const std::filesystem::path& root)
    : _folder(::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    int status = _folder;
    while (status >= 0 && (status = flock(_folder, LOCK_EX)) != 0 && errno == EINTR) {
        status = 0;
    }
    if (status < 0) {
        const std::error_code why(errno, std::generic_category());
        if (_folder >= 0) {
            ::close(_folder);
        }
        throw std::filesystem::filesystem_error("cannot be locked", root, why);
    }
}

RootLock::~RootLock() { ::close(_folder); }

} // namespace phone
