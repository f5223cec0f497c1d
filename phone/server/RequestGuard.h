/// Who may talk to the server: programs of this machine, and the server's own page.
#pragma once

#include <optional>
#include <string>

namespace phone {

/// What a request says about where it goes and where it comes from; empty where it says nothing.
struct RequestOrigin {
    std::string host;   // the Host header
    std::string origin; // the Origin header
    std::string site;   // the Sec-Fetch-Site header
};

/// Why a request is refused; nullopt when it may pass. A foreign Host is how a page of elsewhere reaches this machine
/// under a name of its own; a foreign Origin is a page of elsewhere that does not hide.
std::optional<std::string> whyRefused(const RequestOrigin& request, int port);

} // namespace phone
