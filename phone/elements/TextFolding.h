/// Comparing texts as people do who care neither for capitals nor for accents.
#pragma once

#include <string>
#include <string_view>

namespace phone::webdriver {

struct Folding {
    bool letterCase = false; // [c]
    bool accents = false;    // [d]
};

/// Its characters; a byte that is no UTF-8 counts as one.
std::u32string characters(std::string_view utf8);
std::string utf8(std::u32string_view characters);
/// How many characters stand before this byte.
std::size_t characterAt(std::string_view utf8, std::size_t byte);

/// The text without the differences that are not to count.
std::u32string folded(std::string_view utf8, Folding folding);

/// Whether the whole text is as the pattern says: `*` any characters, `?` one, a backslash before one that stands for
/// itself.
bool isLike(std::u32string_view text, std::u32string_view pattern);

} // namespace phone::webdriver
