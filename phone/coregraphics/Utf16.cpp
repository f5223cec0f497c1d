#include "phone/coregraphics/Utf16.h"

#include <algorithm>

namespace phone {

Utf16Index::Utf16Index(const std::string& utf8) {
    for (std::size_t byte = 0; byte < utf8.size(); ++byte) {
        const auto lead = static_cast<unsigned char>(utf8[byte]);
        const bool continues = (lead & 0xc0) == 0x80;
        if (continues) {
            continue;
        }
        _bytes.push_back(byte);
        if (lead >= 0xf0) { // beyond 16 bits: a pair of units
            _bytes.push_back(byte);
        }
    }
    _bytes.push_back(utf8.size());
}

std::size_t Utf16Index::byteOf(std::size_t unit) const { return _bytes[std::min(unit, length())]; }

std::size_t Utf16Index::unitOf(std::size_t byte) const {
    return static_cast<std::size_t>(std::lower_bound(_bytes.begin(), _bytes.end() - 1, byte) - _bytes.begin());
}

} // namespace phone
