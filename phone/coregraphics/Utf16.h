/// Between the platform's text positions (UTF-16 units) and positions in UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace phone {

/// The positions of one text, which is valid UTF-8.
class Utf16Index {
public:
    explicit Utf16Index(const std::string& utf8);

    /// In units.
    std::size_t length() const { return _bytes.size() - 1; }
    /// The byte at which the unit's character begins; the text's end for a larger position.
    std::size_t byteOf(std::size_t unit) const;
    /// The first unit of the character at the byte.
    std::size_t unitOf(std::size_t byte) const;

private:
    std::vector<std::size_t> _bytes; // of each unit, and of the text's end
};

} // namespace phone
