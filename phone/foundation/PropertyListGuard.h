/// What stands between a broken file and Foundation's parser of property lists.
#pragma once

#include <cstddef>
#include <string>

namespace phone {

/// How deep arrays and dictionaries may lie in each other. Foundation reads and releases them by recursion, so
/// that some ten thousand of them would end the process; no file of the device has more than a few.
inline constexpr int deepestPropertyList = 512;
/// Into how many objects a binary property list may unfold. Foundation makes an object anew wherever it is
/// referred to, so that a small file could hold more of them than there is memory.
inline constexpr std::size_t mostPropertyListObjects = 100'000;

/// Whether Foundation's parser can be let at these bytes: they do not reach beyond the limits above, and in a
/// binary property list every object lies inside the file. Says nothing about whether it can make sense of them.
bool isSafeToParse(const std::string& bytes);

} // namespace phone
