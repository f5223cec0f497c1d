#include "phone/eventkit/DurableFile.h"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace phone {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const char* what, const fs::path& file) {
    throw fs::filesystem_error(what, file, std::error_code(errno, std::generic_category()));
}

bool writeAll(int file, const std::string& content) {
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t written = ::write(file, content.data() + done, content.size() - done);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        done += written < 0 ? 0 : static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace

void replaceFile(const fs::path& file, const std::string& content) {
    // Hidden, and of no known kind: other programs pass over what a crash leaves behind.
    std::string beside = (file.parent_path() / ("." + file.filename().string() + ".XXXXXX")).string();
    const int made = mkstemp(beside.data());
    if (made < 0) {
        fail("cannot be written", file);
    }
    constexpr mode_t readable = 0644;
    const bool isWritten = writeAll(made, content) && fchmod(made, readable) == 0 && fsync(made) == 0;
    const int why = errno;
    const bool isClosed = ::close(made) == 0;
    if (!isWritten || !isClosed || ::rename(beside.c_str(), file.c_str()) != 0) {
        const int reason = isWritten ? errno : why;
        ::unlink(beside.c_str());
        errno = reason;
        fail("cannot be written", file);
    }
    if (const int folder = ::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); folder >= 0) {
        fsync(folder); // the new name itself
        ::close(folder);
    }
}

std::optional<std::string> contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

FileLock::FileLock(const fs::path& file) : _file(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
    if (_file < 0) {
        fail("cannot be opened", file);
    }
    while (flock(_file, LOCK_EX) != 0 && errno == EINTR) {
    }
}

FileLock::~FileLock() { ::close(_file); }

} // namespace phone
