// The executable's own definitions of the C library's functions that take paths. Everything in this
// process (Foundation, SQLite, the loaded libraries) comes through here, so that a device path leads into
// the root folder and any other path where it always led. Each passes on to the C library's definition.
//
// Programs and shared objects (`execve`, `dlopen`) are not among them: those are loaded by their host path.

#include "phone/device/RootFolder.h"
#include "phone/foundation/FileFaults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <unistd.h>
#include <utime.h>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

using phone::FileFaults;
using phone::RootFolder;

/// The C library's definition of a function defined in this file.
template <class Function>
Function next(Function, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// A path as the host knows it, for the length of one call. A null path stays null.
class OnHost {
public:
    explicit OnHost(const char* path) : _path(path) {
        if (path != nullptr && !RootFolder::path().empty() && RootFolder::isDevicePath(path)) {
            _mapped = RootFolder::hostPath(path);
            _path = _mapped.c_str();
        }
    }
    operator const char*() const { return _path; } // NOLINT: stands for the path
    bool isMapped() const { return !_mapped.empty(); }

private:
    const char* _path;
    std::string _mapped;
};

/// The device's name of a host path inside the root folder; any other path as it is.
std::string onDevice(const std::string& path) {
    const auto below = [&](const std::string& root) {
        return !root.empty() && path.starts_with(root) && RootFolder::isDevicePath(path.c_str() + root.size());
    };
    if (below(RootFolder::path())) {
        return path.substr(RootFolder::path().size());
    }
    // The root folder may itself have been given by way of a symbolic link.
    static const auto libc = next(static_cast<char* (*)(const char*, char*)>(&realpath), "realpath");
    char resolved[PATH_MAX];
    if (!RootFolder::path().empty() && libc(RootFolder::path().c_str(), resolved) != nullptr && below(resolved)) {
        return path.substr(std::strlen(resolved));
    }
    return path;
}

/// Goes on to the C library, unless the disk refuses.
template <class Call>
auto unlessRefused(int error, Call call) -> decltype(call()) {
    if (error == 0) {
        return call();
    }
    errno = error;
    if constexpr (std::is_pointer_v<decltype(call())>) {
        return nullptr;
    } else {
        return -1;
    }
}

/// As `open` has them, of `fopen`'s mode.
int flagsOf(const char* mode) {
    return mode[0] == 'r' && std::strchr(mode, '+') == nullptr ? O_RDONLY : O_RDWR | O_CREAT;
}

/// Opens by a stream, whose writing nobody sees: on a full disk it fails at once.
int streamFault(const char* path, const char* mode) {
    const int flags = flagsOf(mode);
    const int refused = FileFaults::opening(path, flags);
    return refused != 0 || flags == O_RDONLY ? refused : FileFaults::making(path);
}

bool takesMode(int flags) { return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE; }

mode_t modeIn(int flags, va_list arguments) { return takesMode(flags) ? va_arg(arguments, mode_t) : 0; }

/// Makes a temporary file by `make`, called with a template on the host; writes the letters that it chose
/// back into the caller's template.
template <class Make>
int makeTemporary(char* name, Make make) {
    std::string onHost = RootFolder::hostPath(name);
    const int file =
        unlessRefused(FileFaults::opening(onHost.c_str(), O_RDWR | O_CREAT), [&] { return make(onHost.data()); });
    const std::size_t length = std::strlen(name);
    std::memcpy(name, onHost.data() + onHost.size() - length, length);
    return file;
}

char* resolve(const char* path, char* into) {
    static const auto libc = next(static_cast<char* (*)(const char*, char*)>(&realpath), "realpath");
    const OnHost host(path);
    char resolved[PATH_MAX];
    if (libc(host, resolved) == nullptr) {
        return nullptr;
    }
    const std::string device = host.isMapped() ? onDevice(resolved) : std::string(resolved);
    return into == nullptr ? strdup(device.c_str()) : std::strcpy(into, device.c_str());
}

} // namespace

extern "C" {

// Opening.

int open(const char* path, int flags, ...) {
    static const auto libc = next(&open, "open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, flags), [&] { return libc(host, flags, mode); });
}

int open64(const char* path, int flags, ...) {
    static const auto libc = next(&open64, "open64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, flags), [&] { return libc(host, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
    static const auto libc = next(&openat, "openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, flags), [&] { return libc(folder, host, flags, mode); });
}

int openat64(int folder, const char* path, int flags, ...) {
    static const auto libc = next(&openat64, "openat64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, flags), [&] { return libc(folder, host, flags, mode); });
}

int creat(const char* path, mode_t mode) {
    static const auto libc = next(&creat, "creat");
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, O_WRONLY | O_CREAT), [&] { return libc(host, mode); });
}

int creat64(const char* path, mode_t mode) {
    static const auto libc = next(&creat64, "creat64");
    const OnHost host(path);
    return unlessRefused(FileFaults::opening(host, O_WRONLY | O_CREAT), [&] { return libc(host, mode); });
}

FILE* fopen(const char* path, const char* mode) {
    static const auto libc = next(&fopen, "fopen");
    const OnHost host(path);
    return unlessRefused(streamFault(host, mode), [&] { return libc(host, mode); });
}

FILE* fopen64(const char* path, const char* mode) {
    static const auto libc = next(&fopen64, "fopen64");
    const OnHost host(path);
    return unlessRefused(streamFault(host, mode), [&] { return libc(host, mode); });
}

FILE* freopen(const char* path, const char* mode, FILE* file) {
    static const auto libc = next(&freopen, "freopen");
    const OnHost host(path);
    return unlessRefused(streamFault(host, mode), [&] { return libc(host, mode, file); });
}

FILE* freopen64(const char* path, const char* mode, FILE* file) {
    static const auto libc = next(&freopen64, "freopen64");
    const OnHost host(path);
    return unlessRefused(streamFault(host, mode), [&] { return libc(host, mode, file); });
}

int mkstemp(char* name) {
    static const auto libc = next(&mkstemp, "mkstemp");
    return makeTemporary(name, libc);
}

int mkstemp64(char* name) {
    static const auto libc = next(&mkstemp64, "mkstemp64");
    return makeTemporary(name, libc);
}

int mkostemp(char* name, int flags) {
    static const auto libc = next(&mkostemp, "mkostemp");
    return makeTemporary(name, [&](char* onHost) { return libc(onHost, flags); });
}

// Asking.

int stat(const char* path, struct stat* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct stat*)>(&stat), "stat");
    return libc(OnHost(path), status);
}

int lstat(const char* path, struct stat* status) noexcept {
    static const auto libc = next(&lstat, "lstat");
    return libc(OnHost(path), status);
}

int stat64(const char* path, struct stat64* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct stat64*)>(&stat64), "stat64");
    return libc(OnHost(path), status);
}

int lstat64(const char* path, struct stat64* status) noexcept {
    static const auto libc = next(&lstat64, "lstat64");
    return libc(OnHost(path), status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    static const auto libc = next(&fstatat, "fstatat");
    return libc(folder, OnHost(path), status, flags);
}

int fstatat64(int folder, const char* path, struct stat64* status, int flags) noexcept {
    static const auto libc = next(&fstatat64, "fstatat64");
    return libc(folder, OnHost(path), status, flags);
}

int statvfs(const char* path, struct statvfs* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct statvfs*)>(&statvfs), "statvfs");
    return libc(OnHost(path), status);
}

int statvfs64(const char* path, struct statvfs64* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct statvfs64*)>(&statvfs64), "statvfs64");
    return libc(OnHost(path), status);
}

int statfs(const char* path, struct statfs* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct statfs*)>(&statfs), "statfs");
    return libc(OnHost(path), status);
}

int statfs64(const char* path, struct statfs64* status) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, struct statfs64*)>(&statfs64), "statfs64");
    return libc(OnHost(path), status);
}

int access(const char* path, int mode) noexcept {
    static const auto libc = next(&access, "access");
    return libc(OnHost(path), mode);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    static const auto libc = next(&faccessat, "faccessat");
    return libc(folder, OnHost(path), mode, flags);
}

ssize_t readlink(const char* path, char* buffer, size_t size) noexcept {
    static const auto libc = next(&readlink, "readlink");
    const OnHost host(path);
    if (!host.isMapped()) {
        return libc(host, buffer, size);
    }
    char target[PATH_MAX];
    const ssize_t length = libc(host, target, sizeof target);
    if (length < 0) {
        return length;
    }
    const std::string device = onDevice(std::string(target, static_cast<std::size_t>(length)));
    const std::size_t given = device.size() < size ? device.size() : size;
    std::memcpy(buffer, device.data(), given);
    return static_cast<ssize_t>(given);
}

char* realpath(const char* path, char* into) noexcept { return resolve(path, into); }

// What `realpath` becomes where the size of the caller's buffer is known.
char* __realpath_chk(const char* path, char* into, size_t) { return resolve(path, into); }

// Folders.

DIR* opendir(const char* path) {
    static const auto libc = next(&opendir, "opendir");
    return libc(OnHost(path));
}

int scandir(const char* path, dirent*** list, int (*filter)(const dirent*),
            int (*compare)(const dirent**, const dirent**)) {
    static const auto libc = next(&scandir, "scandir");
    return libc(OnHost(path), list, filter, compare);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static const auto libc = next(&mkdir, "mkdir");
    const OnHost host(path);
    return unlessRefused(FileFaults::making(host), [&] { return libc(host, mode); });
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    static const auto libc = next(&mkdirat, "mkdirat");
    const OnHost host(path);
    return unlessRefused(FileFaults::making(host), [&] { return libc(folder, host, mode); });
}

int rmdir(const char* path) noexcept {
    static const auto libc = next(&rmdir, "rmdir");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(host); });
}

int chdir(const char* path) noexcept {
    static const auto libc = next(&chdir, "chdir");
    return libc(OnHost(path));
}

// Changing.

int rename(const char* from, const char* to) noexcept {
    static const auto libc = next(&rename, "rename");
    const OnHost source(from);
    const OnHost target(to);
    const int refused = FileFaults::changing(source);
    return unlessRefused(refused != 0 ? refused : FileFaults::changing(target), [&] { return libc(source, target); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    static const auto libc = next(&renameat, "renameat");
    const OnHost source(from);
    const OnHost target(to);
    const int refused = FileFaults::changing(source);
    return unlessRefused(refused != 0 ? refused : FileFaults::changing(target),
                         [&] { return libc(fromFolder, source, toFolder, target); });
}

int unlink(const char* path) noexcept {
    static const auto libc = next(&unlink, "unlink");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(host); });
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    static const auto libc = next(&unlinkat, "unlinkat");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(folder, host, flags); });
}

int remove(const char* path) noexcept {
    static const auto libc = next(&remove, "remove");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(host); });
}

int link(const char* from, const char* to) noexcept {
    static const auto libc = next(&link, "link");
    const OnHost source(from);
    const OnHost target(to);
    return unlessRefused(FileFaults::making(target), [&] { return libc(source, target); });
}

// The target is mapped too: the host follows the link without asking here.
int symlink(const char* target, const char* path) noexcept {
    static const auto libc = next(&symlink, "symlink");
    const OnHost host(path);
    return unlessRefused(FileFaults::making(host), [&] { return libc(OnHost(target), host); });
}

int chmod(const char* path, mode_t mode) noexcept {
    static const auto libc = next(&chmod, "chmod");
    return libc(OnHost(path), mode);
}

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
    static const auto libc = next(&fchmodat, "fchmodat");
    return libc(folder, OnHost(path), mode, flags);
}

int chown(const char* path, uid_t owner, gid_t group) noexcept {
    static const auto libc = next(&chown, "chown");
    return libc(OnHost(path), owner, group);
}

int lchown(const char* path, uid_t owner, gid_t group) noexcept {
    static const auto libc = next(&lchown, "lchown");
    return libc(OnHost(path), owner, group);
}

int truncate(const char* path, off_t length) noexcept {
    static const auto libc = next(&truncate, "truncate");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(host, length); });
}

int truncate64(const char* path, off64_t length) noexcept {
    static const auto libc = next(&truncate64, "truncate64");
    const OnHost host(path);
    return unlessRefused(FileFaults::changing(host), [&] { return libc(host, length); });
}

int utime(const char* path, const utimbuf* times) noexcept {
    static const auto libc = next(static_cast<int (*)(const char*, const utimbuf*)>(&utime), "utime");
    return libc(OnHost(path), times);
}

int utimes(const char* path, const timeval times[2]) noexcept {
    static const auto libc = next(&utimes, "utimes");
    return libc(OnHost(path), times);
}

int utimensat(int folder, const char* path, const timespec times[2], int flags) noexcept {
    static const auto libc = next(&utimensat, "utimensat");
    return libc(folder, OnHost(path), times, flags);
}

// Writing. Only a full disk has a say.

ssize_t write(int file, const void* bytes, size_t count) {
    static const auto libc = next(&write, "write");
    return unlessRefused(FileFaults::writing(file, static_cast<std::int64_t>(count)),
                         [&] { return libc(file, bytes, count); });
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    static const auto libc = next(&pwrite, "pwrite");
    return unlessRefused(FileFaults::growing(file, at + static_cast<std::int64_t>(count)),
                         [&] { return libc(file, bytes, count, at); });
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    static const auto libc = next(&pwrite64, "pwrite64");
    return unlessRefused(FileFaults::growing(file, at + static_cast<std::int64_t>(count)),
                         [&] { return libc(file, bytes, count, at); });
}

} // extern "C"
