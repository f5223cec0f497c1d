/// The elements of the screen as a text.
#pragma once

#include "phone/elements/Element.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace phone::webdriver {

/// XML with the element as its root; characters that XML does not have are left out.
std::string xmlSource(const Element& element, const std::vector<std::string>& excludedAttributes = {});

/// Nodes with `type` (without the prefix), `rawIdentifier`, `name`, `value`, `label`, `rect`, `frame`, `isEnabled`,
/// `isVisible`, … and, where there are any, `children`. What is missing is null; truths are "1" and "0".
nlohmann::ordered_json jsonSource(const Element& element);

/// One indented line an element, for people.
std::string descriptionSource(const Element& element);

} // namespace phone::webdriver
