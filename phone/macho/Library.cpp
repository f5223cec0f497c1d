#include "phone/macho/Library.h"

#include "phone/foundation/PropertyList.h"
#include "phone/macho/Format.h"
#include "phone/macho/Slice.h"

#include <sys/mman.h>

#include <list>

extern "C" {
/// The unwinder's: frame descriptions of code that no object of this machine's format holds.
void __register_frame(void* descriptions);
/// The leak detector's, where it runs.
[[gnu::weak]] void __lsan_register_root_region(const void* begin, std::size_t size);
}

namespace phone::macho {

namespace {

int hostProtection(const Segment& segment) {
    const bool writes = (segment.protection & Write) != 0 && !segment.isReadOnlyAfterFixups;
    return ((segment.protection & Read) != 0 ? PROT_READ : 0) | (writes ? PROT_WRITE : 0) |
           ((segment.protection & Execute) != 0 ? PROT_EXEC : 0);
}

/// Whether there is a library for the dependency; throws a Refusal where there must be one and is not.
bool isThere(const Dependency& dependency, const Image& image, const Exports& exports) {
    const auto provided = exports.version(dependency.path);
    if (!provided && !dependency.isWeak) {
        throw Refusal("it needs " + shown(dependency.path) + ", which there is not");
    }
    return provided && serves(*provided, dependency, image.name);
}

/// The address for a bind that finds a definition; nullptr otherwise.
const void* definition(const Bind& bind, const Image& image, const Exports& exports) {
    if (bind.library > 0) {
        const Dependency& dependency = image.dependencies[static_cast<std::size_t>(bind.library - 1)];
        return isThere(dependency, image, exports) ? exports.find(dependency.path, bind.symbol) : nullptr;
    }
    // What the executable offers is none of the libraries'; what this one offers, nothing here asks it for.
    return bind.library == AnyLibrary || bind.library == WeakLookup ? exports.findAnywhere(bind.symbol) : nullptr;
}

} // namespace

Library::Library(const Image& image, const Exports& exports) : _image(image) {
    for (const Dependency& dependency : image.dependencies) {
        (void)isThere(dependency, image, exports);
    }
    void* reserved = mmap(nullptr, image.end() - image.start(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (reserved == MAP_FAILED) {
        throw Refusal("no memory for its segments");
    }
    _base = static_cast<char*>(reserved);
    try {
        copySegments();
        rebase();
        bind(exports);
        collectInitialisers();
        protect();
    } catch (...) {
        munmap(_base, image.end() - image.start());
        throw;
    }
}

Library::~Library() {
    if (!_stays) {
        munmap(_base, _image.end() - _image.start());
    }
}

void Library::copySegments() const {
    for (const Segment& segment : _image.segments) {
        if (segment.size == 0) {
            continue;
        }
        if (mprotect(at(segment.address), segment.size, PROT_READ | PROT_WRITE) != 0) {
            throw Refusal("no memory for its segments");
        }
        std::memcpy(at(segment.address), _image.slice.data() + segment.fileOffset, segment.fileSize);
    }
}

void Library::rebase() const {
    for (const std::uint64_t place : _image.rebases) {
        std::uint64_t pointer = 0;
        std::memcpy(&pointer, at(place), sizeof(pointer));
        pointer += slide();
        std::memcpy(at(place), &pointer, sizeof(pointer));
    }
}

void Library::bind(const Exports& exports) const {
    for (const Bind& bind : _image.binds) {
        const void* found = definition(bind, _image, exports);
        if (found == nullptr && bind.hasOwnDefinition) {
            continue; // a rebase has put it there
        }
        if (found == nullptr && !bind.isWeakImport) {
            throw Refusal("the symbol " + shown(bind.symbol) + " is missing");
        }
        const std::uint64_t pointer =
            found == nullptr ? 0 : reinterpret_cast<std::uint64_t>(found) + static_cast<std::uint64_t>(bind.addend);
        std::memcpy(at(bind.address), &pointer, sizeof(pointer));
    }
}

void Library::collectInitialisers() {
    for (const std::uint64_t place : _image.initialisers) {
        std::uint64_t function = 0;
        std::memcpy(&function, at(place), sizeof(function));
        _initialisers.push_back(reinterpret_cast<decltype(_initialisers)::value_type>(function));
    }
}

void Library::protect() const {
    for (const Segment& segment : _image.segments) {
        if (segment.size > 0) {
            mprotect(at(segment.address), segment.size, hostProtection(segment));
        }
    }
}

void Library::start() {
    _stays = true;
    if (!_image.unwindEntries.empty()) {
        // The unwinder reads them when an exception comes, even at the very end of the process.
        static auto& kept = *new std::list<std::vector<std::uint8_t>>;
        kept.push_back(frameDescriptions(_image.unwindEntries, slide()));
        __register_frame(kept.back().data());
    }
    for (const Segment& segment : _image.segments) {
        if ((segment.protection & Write) != 0 && &__lsan_register_root_region != nullptr) {
            __lsan_register_root_region(at(segment.address), segment.size);
        }
    }
    static const char* const none[] = {nullptr};
    for (const auto initialiser : _initialisers) {
        initialiser(0, none, none, none, nullptr);
    }
}

void load(const std::string& path, const Exports& exports) {
    const auto file = readFile(path);
    if (!file) {
        throw Refusal("it cannot be read");
    }
    const Image image = Image::read(findSlice(Bytes(*file)));
    Library(image, exports).start();
}

} // namespace phone::macho
