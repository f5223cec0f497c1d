// The executable's own definitions of the C library's functions that take paths. Everything in this
// process (Foundation, SQLite, the loaded libraries) comes through here, so that a device path leads into
// the root folder and any other path where it always led. Each passes on to the C library's definition.
// Those that change what is there are in FileChanges.cpp.
//
// Programs and shared objects (`execve`, `dlopen`) are not among them: those are loaded by their host path.

#include "phone/foundation/FileCalls.h"
#include "phone/foundation/FileFaults.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

using phone::FileFaults;
using phone::next;
using phone::OnHost;
using phone::passOn;
using phone::passOnAt;
using phone::RootFolder;
using phone::unlessRefused;

namespace {

/// `realpath` as the host has it.
char* resolveOnHost(const char* path, char* into) {
    return next<"realpath">(static_cast<char* (*)(const char*, char*)>(&realpath))(path, into);
}

/// The device's name of a host path inside the root folder; any other path as it is.
std::string onDevice(const std::string& path) {
    const auto below = [&](const std::string& root) {
        return !root.empty() && path.starts_with(root) && RootFolder::isDevicePath(path.c_str() + root.size());
    };
    if (below(RootFolder::path())) {
        return path.substr(RootFolder::path().size());
    }
    // The root folder may itself have been given by way of a symbolic link.
    char resolved[PATH_MAX];
    if (!RootFolder::path().empty() && resolveOnHost(RootFolder::path().c_str(), resolved) != nullptr &&
        below(resolved)) {
        return path.substr(std::strlen(resolved));
    }
    return path;
}

/// As `open` has them, of `fopen`'s mode.
int flagsOf(const char* mode) {
    return mode[0] == 'r' && std::strchr(mode, '+') == nullptr ? O_RDONLY : O_RDWR | O_CREAT;
}

/// What the disk says to opening a path.
auto opening(int flags) {
    return [flags](const char* path) { return FileFaults::opening(path, flags); };
}

/// What it says to opening by a stream, whose writing nobody sees: on a full disk it fails at once.
auto streaming(const char* mode) {
    return [flags = flagsOf(mode)](const char* path) {
        const int refused = FileFaults::opening(path, flags);
        return refused != 0 || flags == O_RDONLY ? refused : FileFaults::making(path);
    };
}

bool takesMode(int flags) { return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE; }

mode_t modeIn(int flags, va_list arguments) { return takesMode(flags) ? va_arg(arguments, mode_t) : 0; }

/// Makes a temporary file by `make`, called with a template on the host; writes the letters that it chose
/// back into the caller's template.
template <class Make>
int makeTemporary(char* name, Make make) {
    std::string onHost = RootFolder::hostPath(name);
    const int file = unlessRefused(FileFaults::opening(onHost.c_str(), O_RDWR | O_CREAT), make, onHost.data());
    const std::size_t length = std::strlen(name);
    std::memcpy(name, onHost.data() + onHost.size() - length, length);
    return file;
}

char* resolve(const char* path, char* into) {
    const OnHost host(path);
    char resolved[PATH_MAX];
    if (resolveOnHost(host, resolved) == nullptr) {
        return nullptr;
    }
    const std::string device = host.isMapped() ? onDevice(resolved) : std::string(resolved);
    return into == nullptr ? strdup(device.c_str()) : std::strcpy(into, device.c_str());
}

} // namespace

extern "C" {

// Opening.

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return passOn<"open">(opening(flags), &open, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return passOn<"open64">(opening(flags), &open64, path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return passOnAt<"openat">(opening(flags), &openat, folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return passOnAt<"openat64">(opening(flags), &openat64, folder, path, flags, mode);
}

int creat(const char* path, mode_t mode) { return passOn<"creat">(opening(O_WRONLY | O_CREAT), &creat, path, mode); }

int creat64(const char* path, mode_t mode) {
    return passOn<"creat64">(opening(O_WRONLY | O_CREAT), &creat64, path, mode);
}

FILE* fopen(const char* path, const char* mode) { return passOn<"fopen">(streaming(mode), &fopen, path, mode); }

FILE* fopen64(const char* path, const char* mode) { return passOn<"fopen64">(streaming(mode), &fopen64, path, mode); }

FILE* freopen(const char* path, const char* mode, FILE* file) {
    return passOn<"freopen">(streaming(mode), &freopen, path, mode, file);
}

FILE* freopen64(const char* path, const char* mode, FILE* file) {
    return passOn<"freopen64">(streaming(mode), &freopen64, path, mode, file);
}

int mkstemp(char* name) { return makeTemporary(name, next<"mkstemp">(&mkstemp)); }

int mkstemp64(char* name) { return makeTemporary(name, next<"mkstemp64">(&mkstemp64)); }

int mkostemp(char* name, int flags) {
    return makeTemporary(name, [&](char* onHost) { return next<"mkostemp">(&mkostemp)(onHost, flags); });
}

// Asking.

int stat(const char* path, struct stat* status) noexcept { return next<"stat">(&stat)(OnHost(path), status); }

int lstat(const char* path, struct stat* status) noexcept { return next<"lstat">(&lstat)(OnHost(path), status); }

int stat64(const char* path, struct stat64* status) noexcept { return next<"stat64">(&stat64)(OnHost(path), status); }

int lstat64(const char* path, struct stat64* status) noexcept {
    return next<"lstat64">(&lstat64)(OnHost(path), status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    return next<"fstatat">(&fstatat)(folder, OnHost(path), status, flags);
}

int fstatat64(int folder, const char* path, struct stat64* status, int flags) noexcept {
    return next<"fstatat64">(&fstatat64)(folder, OnHost(path), status, flags);
}

int statvfs(const char* path, struct statvfs* status) noexcept {
    return next<"statvfs">(&statvfs)(OnHost(path), status);
}

int statvfs64(const char* path, struct statvfs64* status) noexcept {
    return next<"statvfs64">(&statvfs64)(OnHost(path), status);
}

int statfs(const char* path, struct statfs* status) noexcept { return next<"statfs">(&statfs)(OnHost(path), status); }

int statfs64(const char* path, struct statfs64* status) noexcept {
    return next<"statfs64">(&statfs64)(OnHost(path), status);
}

int access(const char* path, int mode) noexcept { return next<"access">(&access)(OnHost(path), mode); }

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    return next<"faccessat">(&faccessat)(folder, OnHost(path), mode, flags);
}

ssize_t readlink(const char* path, char* buffer, size_t size) noexcept {
    const OnHost host(path);
    if (!host.isMapped()) {
        return next<"readlink">(&readlink)(host, buffer, size);
    }
    char target[PATH_MAX];
    const ssize_t length = next<"readlink">(&readlink)(host, target, sizeof target);
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

DIR* opendir(const char* path) { return next<"opendir">(&opendir)(OnHost(path)); }

int scandir(const char* path, dirent*** list, int (*filter)(const dirent*),
            int (*compare)(const dirent**, const dirent**)) {
    return next<"scandir">(&scandir)(OnHost(path), list, filter, compare);
}

int chdir(const char* path) noexcept { return next<"chdir">(&chdir)(OnHost(path)); }

} // extern "C"
