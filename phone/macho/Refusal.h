/// Why a library is not loaded.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace phone::macho {

/// Carries one line, made for a person.
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A name out of a file that may be broken, fit to stand in that line.
inline std::string shown(std::string_view name) {
    std::string text;
    for (const char c : name.substr(0, 100)) {
        text += c >= ' ' && c <= '~' ? c : '?';
    }
    return text;
}

} // namespace phone::macho
