/// The places in a library that hold addresses, and what belongs there.
#pragma once

#include "phone/macho/Bytes.h"
#include "phone/macho/Segment.h"

#include <string_view>
#include <vector>

namespace phone::macho {

/// Which library a symbol is looked up in, where it is not the position of a dependency (the first is 1).
enum Ordinal : int { Itself = 0, Executable = -1, AnyLibrary = -2, WeakLookup = -3 };

struct Bind {
    std::uint64_t address = 0;
    std::string_view symbol;
    int library = Itself;
    std::int64_t addend = 0;
    bool isWeakImport = false; // null where the symbol is missing
    /// The library has a definition of its own, which gives way to that of another.
    bool hasOwnDefinition = false;
};

enum class BindKind { Regular, Weak, Lazy };

/// The addresses of the pointers into the library itself. `segments` are in the order of the file.
std::vector<std::uint64_t> readRebases(const Bytes& instructions, const std::vector<Segment>& segments);

/// The pointers to symbols; of `dependencies` libraries.
std::vector<Bind> readBinds(const Bytes& instructions, BindKind kind, const std::vector<Segment>& segments,
                            std::size_t dependencies);

} // namespace phone::macho
