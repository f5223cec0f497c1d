#include "phone/foundation/FileFaults.h"
#include "phone/foundation/PropertyList.h"
#include "tests/foundation/FoundationTest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace phone {
namespace {

constexpr const char* folder = "/Library/Quorvan";
constexpr const char* file = "/Library/Quorvan/file";
constexpr const char* elsewhere = "/var/mobile/file";

using Disk = FileFaults::Disk;

class FileFaultsTest : public FoundationTest {
protected:
    FileFaultsTest() {
        std::filesystem::create_directories(host(folder));
        put(file, "content");
        put(elsewhere, "content");
    }
};

TEST_F(FileFaultsTest, OnAFullDiskNothingGrows) {
    const FileFaults full(Disk::Full, folder);

    EXPECT_FALSE(writeFile(file, "longer content", true));
    EXPECT_EQ(readFile(file), "content");
    EXPECT_EQ(mkdir("/Library/Quorvan/new", 0755), -1);
    EXPECT_EQ(errno, ENOSPC);
}

TEST_F(FileFaultsTest, OnAFullDiskWhatIsThereCanBeOverwritten) {
    const FileFaults full(Disk::Full, folder);
    const int opened = open(file, O_RDWR);

    EXPECT_EQ(write(opened, "CON", 3), 3);
    EXPECT_EQ(pwrite(opened, "T", 1, 6), 1);
    EXPECT_EQ(pwrite(opened, "!", 1, 7), -1);
    EXPECT_EQ(errno, ENOSPC);
    close(opened);

    EXPECT_EQ(readFile(file), "CONtenT");
}

TEST_F(FileFaultsTest, AFullDiskTakesWhatSpaceItHasLeft) {
    const FileFaults full(Disk::Full, folder, 10);

    EXPECT_TRUE(writeFile("/Library/Quorvan/a", "12345678", false));
    EXPECT_FALSE(writeFile("/Library/Quorvan/b", "12345678", false));
}

TEST_F(FileFaultsTest, AReadOnlyDiskIsReadAndNeverChanged) {
    const FileFaults readOnly(Disk::ReadOnly, folder);

    EXPECT_EQ(readFile(file), "content");
    EXPECT_FALSE(writeFile(file, "new", true));
    EXPECT_FALSE(writeFile(file, "new", false));
    EXPECT_EQ(unlink(file), -1);
    EXPECT_EQ(errno, EROFS);
    EXPECT_EQ(rename(file, elsewhere), -1);
    EXPECT_EQ(rename(elsewhere, file), -1);
    EXPECT_EQ(mkdir("/Library/Quorvan/new", 0755), -1);
    EXPECT_EQ(fopen(file, "w"), nullptr);
    EXPECT_EQ(readFile(file), "content");
}

TEST_F(FileFaultsTest, AnUnreadableFileIsNotOpened) {
    const FileFaults unreadable(Disk::Unreadable, folder);

    EXPECT_EQ(readFile(file), std::nullopt);
    EXPECT_EQ(open(file, O_RDONLY), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(fopen(file, "r"), nullptr);
}

TEST_F(FileFaultsTest, OtherFoldersAreSound) {
    const FileFaults readOnly(Disk::ReadOnly, folder);

    EXPECT_TRUE(writeFile(elsewhere, "new content", true));
    EXPECT_EQ(readFile(elsewhere), "new content");
}

TEST_F(FileFaultsTest, EndWithTheirScope) {
    {
        const FileFaults full(Disk::Full, "/");
    }

    EXPECT_TRUE(writeFile(file, "longer content", true));
}

} // namespace
} // namespace phone
