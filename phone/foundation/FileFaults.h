/// A disk that fails: for tests of what the phone does then.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace phone {

/// For as long as it lives, files of the device fail as on such a disk, whoever in this process asks: Foundation,
/// SQLite, a library, the test itself. One at a time.
class FileFaults {
public:
    enum class Disk {
        Full,       // nothing grows; what is there can be read, overwritten, removed and renamed (ENOSPC)
        ReadOnly,   // nothing is changed, made or removed (EROFS)
        Unreadable, // no file is opened (EACCES)
    };

    /// `folder` is a device path, of which everything below it fails; "/" for the whole device. `spaceLeft` is how
    /// many bytes files can still grow by on a full disk, all together.
    FileFaults(Disk disk, const std::string& folder, std::int64_t spaceLeft = 0);
    ~FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;

    // What the C library's functions ask before they go on. Each answers the error number, 0 for none; paths are
    // the host's.
    static int opening(const char* path, int flags);
    static int making(const char* path);
    static int changing(const char* path);
    /// The file will reach at least to this size.
    static int growing(int file, std::int64_t size);
    /// Bytes will be written at the file's own position.
    static int writing(int file, std::int64_t count);

private:
    /// The faults that the path is subject to; nullptr for none.
    static FileFaults* of(const char* path);
    static FileFaults* of(int file);

    static std::atomic<FileFaults*> current;

    Disk _disk;
    std::string _folder; // on the host
    std::atomic<std::int64_t> _spaceLeft;
};

} // namespace phone
