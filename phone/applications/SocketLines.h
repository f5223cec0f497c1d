/// Lines over a connected socket.
#pragma once

#include <optional>
#include <string>

namespace phone {

/// The descriptor stays the caller's and is not closed.
class SocketLines {
public:
    explicit SocketLines(int descriptor) : _descriptor(descriptor) {}

    /// The next line without its end; nullopt when the other side has closed.
    std::optional<std::string> read();
    /// Adds the line's end. What nobody reads any more is dropped.
    void write(const std::string& line);

private:
    int _descriptor;
    std::string _pending; // read, but not asked for yet
};

} // namespace phone
