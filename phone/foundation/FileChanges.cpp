// The executable's own definitions of the C library's functions that change files and folders: the other half
// of FileAccess.cpp. Each passes on to the C library's definition, unless the disk refuses.

#include "phone/foundation/FileCalls.h"
#include "phone/foundation/FileFaults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>
#include <utime.h>

#include <cstdint>
#include <cstdio>

using phone::FileFaults;
using phone::next;
using phone::OnHost;
using phone::passOn;
using phone::passOnAt;
using phone::unlessRefused;

namespace {

int changing(const char* source, const char* target) {
    const int refused = FileFaults::changing(source);
    return refused != 0 ? refused : FileFaults::changing(target);
}

} // namespace

extern "C" {

// Folders.

int mkdir(const char* path, mode_t mode) noexcept { return passOn<"mkdir">(&FileFaults::making, &mkdir, path, mode); }

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    return passOnAt<"mkdirat">(&FileFaults::making, &mkdirat, folder, path, mode);
}

int rmdir(const char* path) noexcept { return passOn<"rmdir">(&FileFaults::changing, &rmdir, path); }

// Moving, removing, changing.

int rename(const char* from, const char* to) noexcept {
    const OnHost source(from);
    const OnHost target(to);
    return unlessRefused(changing(source, target), next<"rename">(&rename), source, target);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    const OnHost source(from);
    const OnHost target(to);
    return unlessRefused(changing(source, target), next<"renameat">(&renameat), fromFolder, source, toFolder, target);
}

int unlink(const char* path) noexcept { return passOn<"unlink">(&FileFaults::changing, &unlink, path); }

int unlinkat(int folder, const char* path, int flags) noexcept {
    return passOnAt<"unlinkat">(&FileFaults::changing, &unlinkat, folder, path, flags);
}

int remove(const char* path) noexcept { return passOn<"remove">(&FileFaults::changing, &remove, path); }

int link(const char* from, const char* to) noexcept {
    const OnHost source(from);
    const OnHost target(to);
    return unlessRefused(FileFaults::making(target), next<"link">(&link), source, target);
}

// The target is mapped too: the host follows the link without asking here.
int symlink(const char* target, const char* path) noexcept {
    const OnHost host(path);
    return unlessRefused(FileFaults::making(host), next<"symlink">(&symlink), OnHost(target), host);
}

int chmod(const char* path, mode_t mode) noexcept { return next<"chmod">(&chmod)(OnHost(path), mode); }

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
    return next<"fchmodat">(&fchmodat)(folder, OnHost(path), mode, flags);
}

int chown(const char* path, uid_t owner, gid_t group) noexcept {
    return next<"chown">(&chown)(OnHost(path), owner, group);
}

int lchown(const char* path, uid_t owner, gid_t group) noexcept {
    return next<"lchown">(&lchown)(OnHost(path), owner, group);
}

int truncate(const char* path, off_t length) noexcept {
    return passOn<"truncate">(&FileFaults::changing, &truncate, path, length);
}

int truncate64(const char* path, off64_t length) noexcept {
    return passOn<"truncate64">(&FileFaults::changing, &truncate64, path, length);
}

int utime(const char* path, const utimbuf* times) noexcept { return next<"utime">(&utime)(OnHost(path), times); }

int utimes(const char* path, const timeval times[2]) noexcept { return next<"utimes">(&utimes)(OnHost(path), times); }

int utimensat(int folder, const char* path, const timespec times[2], int flags) noexcept {
    return next<"utimensat">(&utimensat)(folder, OnHost(path), times, flags);
}

// Writing. Only a full disk has a say.

ssize_t write(int file, const void* bytes, size_t count) {
    return unlessRefused(FileFaults::writing(file, static_cast<std::int64_t>(count)), next<"write">(&write), file,
                         bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    return unlessRefused(FileFaults::growing(file, at + static_cast<std::int64_t>(count)), next<"pwrite">(&pwrite),
                         file, bytes, count, at);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    return unlessRefused(FileFaults::growing(file, at + static_cast<std::int64_t>(count)), next<"pwrite64">(&pwrite64),
                         file, bytes, count, at);
}

} // extern "C"
