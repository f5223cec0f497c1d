/// What a library's last segment holds: the tables of whoever links, loads and checks it.
#pragma once

#include "phone/macho/Format.h"
#include "phone/macho/Segment.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace phone::macho {

/// Collects what the load commands say of these tables. Throws a Refusal for what the strictest of the device's loaders
/// refuses: later ones want order where earlier ones only read.
class LinkEdit {
public:
    void add(const FixupsCommand& fixups);
    void add(const SymbolTableCommand& symbols);
    void add(const IndirectSymbolsCommand& symbols);
    /// One table, of the kind that the command says.
    void add(const LinkEditCommand& table);

    /// When all are collected: whether they lie in the last of the segments, none of them over another.
    void check(const std::vector<Segment>& segments) const;

private:
    struct Table {
        const char* what;
        std::uint64_t offset, size;

        std::uint64_t end() const { return offset + size; }
    };
    void add(std::initializer_list<Table> inOrder);

    std::vector<Table> _tables;
    std::uint64_t _texts = ~std::uint64_t{0};
    bool _hasIndirectSymbols = false;
    bool _hasSignature = false;
};

} // namespace phone::macho
