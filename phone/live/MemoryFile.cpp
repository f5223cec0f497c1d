#include "phone/live/MemoryFile.h"

#include <cerrno>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace phone {

namespace {

void check(bool holds, const char* what) {
    if (!holds) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

} // namespace

MemoryFile::MemoryFile(std::size_t size) : _descriptor(memfd_create("phone", MFD_CLOEXEC)) {
    check(_descriptor >= 0, "no file in memory");
    if (ftruncate(_descriptor, static_cast<off_t>(size)) != 0) {
        const int error = errno;
        close(_descriptor);
        errno = error;
        check(false, "no memory for a file");
    }
}

MemoryFile::~MemoryFile() { close(_descriptor); }

std::string MemoryFile::path() const {
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(_descriptor);
}

std::string MemoryFile::contents() const {
    std::string all(static_cast<std::size_t>(lseek(_descriptor, 0, SEEK_END)), '\0');
    std::size_t read = 0;
    while (read < all.size()) {
        const ssize_t count = pread(_descriptor, all.data() + read, all.size() - read, static_cast<off_t>(read));
        if (count <= 0) {
            break;
        }
        read += static_cast<std::size_t>(count);
    }
    all.resize(read);
    return all;
}

} // namespace phone
