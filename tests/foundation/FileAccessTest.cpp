#include "platform/foundation/NSArray.h"
#include "tests/foundation/FoundationTest.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>

namespace phone {
namespace {

using FileAccessTest = FoundationTest;

struct NSFileManager : NSObject {
    static constexpr auto objc_name = "NSFileManager";
    using NSObject::NSObject;
    static NSFileManager shared() { return objc::sendClass<NSFileManager, "defaultManager", NSFileManager>(); }
    bool exists(const std::string& path) const { return send<"fileExistsAtPath:", bool>(string(path)); }
    NSArray contents(const std::string& path) const {
        return send<"contentsOfDirectoryAtPath:error:", NSArray>(string(path), static_cast<void*>(nullptr));
    }
};

std::set<std::string> imports(const std::string& library) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(("nm -D --undefined-only " + library).c_str(), "r"),
                                                     &pclose);
    std::string all;
    char chunk[4096];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, pipe.get())) {
        all.append(chunk, count);
    }
    std::set<std::string> names;
    std::istringstream lines(all);
    for (std::string kind, name; lines >> kind >> name;) {
        names.insert(name.substr(0, name.find('@')));
    }
    return names;
}

std::string fileOf(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fname : "";
}

TEST_F(FileAccessTest, EveryPathThatFoundationAndSqliteOpenPassesHere) {
    // The C library's functions that take the path of a file; programs and shared objects are none.
    const std::set<std::string> takePaths = {
        "access",         "chdir",      "chmod",      "chown",      "creat",     "creat64",
        "faccessat",      "fchmodat",   "fopen",      "fopen64",    "freopen",   "freopen64",
        "fstatat",        "fstatat64",  "lchown",     "link",       "lstat",     "lstat64",
        "mkdir",          "mkdirat",    "mkostemp",   "mkstemp",    "mkstemp64", "open",
        "open64",         "openat",     "openat64",   "opendir",    "readlink",  "realpath",
        "__realpath_chk", "remove",     "rename",     "renameat",   "rmdir",     "scandir",
        "stat",           "stat64",     "statfs",     "statfs64",   "statvfs",   "statvfs64",
        "symlink",        "truncate",   "truncate64", "unlink",     "unlinkat",  "utime",
        "utimensat",      "utimes",     "glob",       "ftw",        "nftw",      "mkdtemp",
        "mkfifo",         "mknod",      "chroot",     "mount",      "renameat2", "statx",
        "__xstat",        "__lxstat",   "__open_2",   "__open64_2", "eaccess",   "euidaccess",
        "linkat",         "symlinkat",  "readlinkat", "mktemp",     "tempnam",   "scandir64",
        "lutimes",        "futimesat",  "fchownat",   "acct",       "setxattr",  "getxattr",
        "listxattr",      "removexattr"};
    const std::string self = fileOf(dlsym(RTLD_DEFAULT, "open"));
    int checked = 0;

    for (const char* symbol : {"NSHomeDirectory", "sqlite3_open"}) {
        const std::string library = fileOf(dlsym(RTLD_DEFAULT, symbol));
        if (library.empty()) {
            continue; // SQLite is not part of this test's program
        }
        for (const std::string& name : imports(library)) {
            if (takePaths.contains(name)) {
                ++checked;
                EXPECT_EQ(fileOf(dlsym(RTLD_DEFAULT, name.c_str())), self) << name;
            }
        }
    }

    EXPECT_GT(checked, 15);
    EXPECT_EQ(std::filesystem::canonical(self), std::filesystem::canonical("/proc/self/exe"));
}

TEST_F(FileAccessTest, ADevicePathLeadsIntoTheRootFolder) {
    put("/Library/Quorvan/a.txt", "text");

    const int file = open("/Library/Quorvan/a.txt", O_RDONLY);
    char bytes[8] = {};
    EXPECT_EQ(read(file, bytes, sizeof bytes), 4);
    close(file);

    struct stat status{};
    EXPECT_EQ(stat("/Library/Quorvan/a.txt", &status), 0);
    EXPECT_EQ(status.st_size, 4);
    EXPECT_EQ(access("/Library/Quorvan/missing", F_OK), -1);
}

TEST_F(FileAccessTest, OtherPathsStayWhereTheyAre) {
    EXPECT_EQ(access("/proc/self/exe", F_OK), 0);
    EXPECT_EQ(access("/Librarything", F_OK), -1);
    EXPECT_EQ(open("/Libraries-of-nobody/x", O_WRONLY | O_CREAT, 0600), -1);
}

TEST_F(FileAccessTest, FilesAreMadeMovedAndRemovedThere) {
    std::filesystem::create_directories(host("/Library"));

    ASSERT_EQ(mkdir("/Library/New", 0755), 0);
    std::FILE* file = std::fopen("/Library/New/one", "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_EQ(std::rename("/Library/New/one", "/Library/New/two"), 0);

    EXPECT_TRUE(std::filesystem::exists(host("/Library/New/two")));
    EXPECT_EQ(unlink("/Library/New/two"), 0);
    EXPECT_EQ(rmdir("/Library/New"), 0);
    EXPECT_FALSE(std::filesystem::exists(host("/Library/New")));
}

TEST_F(FileAccessTest, ATemporaryFileTellsItsDevicePath) {
    char name[] = "/var/mobile/tmp/file-XXXXXX";

    const int file = mkstemp(name);

    ASSERT_GE(file, 0);
    close(file);
    EXPECT_TRUE(std::string(name).starts_with("/var/mobile/tmp/file-"));
    EXPECT_NE(std::string(name), "/var/mobile/tmp/file-XXXXXX");
    EXPECT_TRUE(std::filesystem::exists(host(name)));
}

TEST_F(FileAccessTest, LinksAndRealPathsAreTheDevices) {
    put("/Library/Quorvan/a.txt", "text");
    ASSERT_EQ(symlink("/Library/Quorvan/a.txt", "/Library/link"), 0);

    char target[PATH_MAX] = {};
    EXPECT_EQ(readlink("/Library/link", target, sizeof target), 22);
    EXPECT_STREQ(target, "/Library/Quorvan/a.txt");
    char resolved[PATH_MAX] = {};
    EXPECT_NE(realpath("/Library/link", resolved), nullptr);
    EXPECT_STREQ(resolved, "/Library/Quorvan/a.txt");
    EXPECT_EQ(access("/Library/link", R_OK), 0);
}

TEST_F(FileAccessTest, FoundationSeesTheRootFolder) {
    put("/Library/Quorvan/a.txt", "text");

    EXPECT_TRUE(NSFileManager::shared().exists("/Library/Quorvan/a.txt"));
    EXPECT_FALSE(NSFileManager::shared().exists("/Library/Quorvan/b.txt"));
    EXPECT_EQ(NSFileManager::shared().contents("/Library/Quorvan").count(), 1u);
}

} // namespace
} // namespace phone
