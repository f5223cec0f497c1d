#include "phone/server/RequestGuard.h"

#include <algorithm>
#include <array>

namespace phone {

namespace {

constexpr std::array<const char*, 2> names = {"127.0.0.1", "localhost"};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

/// A name of this machine with the server's port. Port 80 need not be named.
bool isHere(const std::string& host, int port) {
    const std::string given = lowered(host);
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return given == name + ":" + std::to_string(port) || (port == 80 && given == name);
    });
}

} // namespace

std::optional<std::string> whyRefused(const RequestOrigin& request, int port) {
    const std::string address = "http://127.0.0.1:" + std::to_string(port);
    if (!isHere(request.host, port)) {
        return "this server answers at " + address + " alone, not at \"" + request.host + "\"";
    }
    constexpr std::string_view scheme = "http://";
    const bool isForeign = !request.origin.empty() &&
                           !(request.origin.starts_with(scheme) && isHere(request.origin.substr(scheme.size()), port));
    const bool isElsewhere = request.site == "cross-site" || request.site == "same-site";
    if (isForeign || isElsewhere) {
        return "pages of other servers may not use this one";
    }
    return std::nullopt;
}

} // namespace phone
