/// What a person perceives as one character, however many code points it is made of.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace phone {

/// Where characters begin and where the last one ends, in UTF-16 units, rising from 0 to the text's
/// length; {0} for a text without characters. Bytes that are not UTF-8 count as one unit each.
std::vector<std::size_t> graphemeBoundaries(const std::string& utf8);

/// The characters of a text, in order.
std::vector<std::string> graphemes(const std::string& utf8);

} // namespace phone
