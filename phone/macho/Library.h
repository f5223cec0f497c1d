/// Loads a library of the device's object format into this process.
#pragma once

#include "phone/macho/Exports.h"
#include "phone/macho/Image.h"

namespace phone::macho {

/// A library in memory. As long as `keep` has not been called, it goes with this object.
class Library {
public:
    /// Maps the image and binds it against what there is. Throws a Refusal where something is missing.
    Library(const Image& image, const Exports& exports);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// Runs its initialisers; it stays for the life of the process then.
    void start();

private:
    char* at(std::uint64_t address) const { return _base + (address - _image.start()); }
    std::uint64_t slide() const { return reinterpret_cast<std::uint64_t>(_base) - _image.start(); }
    void copySegments() const;
    void rebase() const;
    void bind(const Exports& exports) const;
    void protect() const;
    void collectInitialisers();

    const Image& _image;
    char* _base = nullptr;
    std::vector<void (*)(int, const char* const*, const char* const*, const char* const*, const void*)> _initialisers;
    bool _stays = false;
};

/// Reads, maps, binds and starts the library in this file of the host. Throws a Refusal: then nothing of it has run.
void load(const std::string& path, const Exports& exports = Exports::ofThePhone());

} // namespace phone::macho
