/// Finding elements by the strategies of the protocol.
#pragma once

#include "phone/elements/Element.h"

#include <string>
#include <vector>

namespace phone::webdriver {

/// All that match inside `from`, in the order of the document; the application itself counts when it is searched.
/// Throws Refusal: invalid argument for a strategy that there is not, invalid selector for a value that cannot be read.
///
/// `accessibility id`, `id`, `name`: the name. `class name`: the type. `xpath`. `predicate string` and `class chain`,
/// also with `-ios ` before them. `link text`, `partial link text`: `attribute=value`, or a name. `css selector`: what
/// testers' programs for the web send for a name or a class.
std::vector<Element> find(const Element& from, const std::string& strategy, const std::string& value);

} // namespace phone::webdriver
