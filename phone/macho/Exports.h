/// What the libraries of the device offer to others, by library and name.
#pragma once

#include "phone/macho/Installed.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace phone::macho {

class Exports {
public:
    using Symbols = std::unordered_map<std::string_view, const void*>;

    /// What there is on this phone: its runtime and the functions and constants of its frameworks.
    static const Exports& ofThePhone();

    /// One library more; names as the object format has them, with their leading underscore,
    /// kept by reference.
    void add(const InstalledLibrary& library, const Symbols& symbols);

    /// The compatibility version that the library states; nothing where there is no such library.
    std::optional<Version> version(std::string_view library) const;
    /// The address; nullptr where the library does not have the name.
    const void* find(std::string_view library, std::string_view name) const;
    /// The same in whichever library.
    const void* findAnywhere(std::string_view name) const;

private:
    struct Offer {
        Version version;
        Symbols symbols;
    };
    std::map<std::string, Offer, std::less<>> _libraries;
};

} // namespace phone::macho
