/// XPath over the elements of the screen.
#pragma once

#include "phone/elements/Element.h"

#include <string>
#include <vector>

namespace phone::webdriver {

/// What the expression finds, in the order of the document. From an element that is not the application, only the
/// element and what is inside it are there: `//` begins there, and nothing lies above. Throws Refusal (invalid
/// selector) with the place when it is no expression, does not give elements, or is too much work.
std::vector<Element> findByXPath(const Element& from, const std::string& expression);

} // namespace phone::webdriver
