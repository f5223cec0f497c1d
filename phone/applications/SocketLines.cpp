#include "phone/applications/SocketLines.h"

#include <cerrno>
#include <sys/socket.h>

namespace phone {

std::optional<std::string> SocketLines::read() {
    std::size_t searched = 0;
    for (;;) {
        const std::size_t end = _pending.find('\n', searched);
        if (end != std::string::npos) {
            std::string line = _pending.substr(0, end);
            _pending.erase(0, end + 1);
            return line;
        }
        searched = _pending.size();
        char chunk[4096];
        const ssize_t count = recv(_descriptor, chunk, sizeof chunk, 0);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return std::nullopt;
        }
        _pending.append(chunk, static_cast<std::size_t>(count));
    }
}

void SocketLines::write(const std::string& line) {
    const std::string whole = line + '\n';
    std::size_t sent = 0;
    while (sent < whole.size()) {
        const ssize_t count = send(_descriptor, whole.data() + sent, whole.size() - sent, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return;
        }
        sent += static_cast<std::size_t>(count);
    }
}

} // namespace phone
