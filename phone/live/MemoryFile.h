/// A file that lies in memory alone.
#pragma once

#include <cstddef>
#include <string>

namespace phone {

/// Gone with this object and with every mapping of it. Throws std::system_error when there is no memory.
class MemoryFile {
public:
    explicit MemoryFile(std::size_t size = 0);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int descriptor() const { return _descriptor; }
    /// By which another process of the same user opens it.
    std::string path() const;
    /// All that was written.
    std::string contents() const;

private:
    int _descriptor = -1;
};

} // namespace phone
