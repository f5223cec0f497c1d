/// What can be done to the phone on the page.
#pragma once

#include "phone/server/PageDesk.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace phone {

/// The request is no such command, or one with the wrong things in it; the text is one line.
class PageRefusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whether the page has a command of this name.
bool isPageCommand(const std::string& name);

/// Does it and gives its answer. Throws PageRefusal, InputError, or ScreenError when the phone refuses.
nlohmann::json performPageCommand(PageDesk& desk, const std::string& name, const nlohmann::json& body);

} // namespace phone
