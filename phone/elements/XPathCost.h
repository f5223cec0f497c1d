/// How much work an XPath expression may be.
#pragma once

#include <cstddef>
#include <string_view>

namespace phone::webdriver {

/// An upper estimate of the nodes that are looked at in a document of so many elements: a condition is tried on every
/// node that a path gives, and may look at the whole document each time.
double xpathCost(std::string_view expression, std::size_t elements);

} // namespace phone::webdriver
