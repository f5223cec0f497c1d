/// `${NAME}` in a flow's texts.
#pragma once

#include "phone/flow/InputError.h"

#include <map>
#include <string>

namespace phone {

using Environment = std::map<std::string, std::string>;

/// Whether `${name}` can be written: a letter or an underscore, then these and digits.
bool isVariableName(const std::string& name);

/// Puts the values in place of `${NAME}`; `\${` stands for `${` itself. A name that is not in the
/// environment, and anything between the braces that is no name, is an InputError.
std::string substituted(const std::string& text, const Environment& environment, const Place& place);

} // namespace phone
