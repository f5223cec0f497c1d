/// What a library needs of others.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace phone::macho {

/// A number of three parts, as load commands carry it.
struct Version {
    std::uint32_t packed = 0;

    static constexpr Version of(std::uint32_t first) { return {first << 16}; }
    std::string text() const {
        return std::to_string(packed >> 16) + "." + std::to_string(packed >> 8 & 0xff) + "." +
               std::to_string(packed & 0xff);
    }
    friend auto operator<=>(const Version&, const Version&) = default;
};

/// A library that this one needs; binds name it by its position.
struct Dependency {
    std::string_view path;
    Version needed;      // the lowest compatibility version that will do
    bool isWeak = false; // may be missing
};

} // namespace phone::macho
