/// Which command a request asks for.
#pragma once

#include "phone/webdriver/Commands.h"

#include <string>
#include <vector>

namespace phone::webdriver {

/// A path's parts, without empty ones.
std::vector<std::string> pathParts(const std::string& path);

struct Route {
    const char* method;
    const char* path; // after `/session/ID`; parts in braces are parameters
    json (*command)(Session&, const Call&);
    bool needsNoSession = false; // whether it is answered without one, too
    std::vector<std::string> parts = pathParts(path);
};

/// All but the session's beginning and end and the status.
const std::vector<Route>& routes();

/// Whether the parts are the route's; puts its parameters into the call then.
bool matches(const Route& route, const std::vector<std::string>& parts, Call& call);

} // namespace phone::webdriver
