#include "phone/macho/LinkEdit.h"

#include "phone/macho/Refusal.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace phone::macho {

void LinkEdit::add(const FixupsCommand& fixups) {
    add({{"the rebases", fixups.rebaseOffset, fixups.rebaseSize},
         {"the binds", fixups.bindOffset, fixups.bindSize},
         {"the weak binds", fixups.weakBindOffset, fixups.weakBindSize},
         {"the lazy binds", fixups.lazyBindOffset, fixups.lazyBindSize},
         {"the exports", fixups.exportOffset, fixups.exportSize}});
}

void LinkEdit::add(const SymbolTableCommand& symbols) {
    constexpr std::uint64_t symbolBytes = 16;
    _texts = symbols.texts;
    add({{"the symbols", symbols.symbols, symbols.symbolCount * symbolBytes},
         {"the symbols' texts", symbols.texts, symbols.textBytes}});
}

void LinkEdit::add(const IndirectSymbolsCommand& symbols) {
    if (symbols.ownRelocationCount != 0 || symbols.relocationCount != 0) {
        throw Refusal("relocations of the old form beside fixups");
    }
    _hasIndirectSymbols = true;
    add({{"the indirect symbols", symbols.indirect, symbols.indirectCount * sizeof(std::uint32_t)}});
}

void LinkEdit::add(const LinkEditCommand& table) {
    if (table.command.kind == CodeSignature && std::exchange(_hasSignature, true)) {
        throw Refusal("it is signed twice");
    }
    add({{table.command.kind == CodeSignature ? "the signature" : "the tables of the code", table.offset, table.size}});
}

void LinkEdit::add(std::initializer_list<Table> inOrder) {
    std::uint64_t least = 0;
    for (const Table& table : inOrder) {
        if (table.size == 0) {
            continue;
        }
        if (table.offset < least) {
            throw Refusal(std::string(table.what) + " lie before what they have to follow");
        }
        least = table.offset;
        _tables.push_back(table);
    }
}

void LinkEdit::check(const std::vector<Segment>& segments) const {
    const Segment& last = segments.back();
    if (last.name != "__LINKEDIT" || last.protection != Read ||
        std::count_if(segments.begin(), segments.end(), [&](const Segment& s) { return s.name == last.name; }) > 1) {
        throw Refusal("the last segment is not the one of the tables, to be read alone");
    }
    if (!_hasIndirectSymbols) {
        throw Refusal("no load command of the indirect symbols");
    }
    std::vector<Table> tables = _tables;
    std::sort(tables.begin(), tables.end(), [](const Table& a, const Table& b) { return a.offset < b.offset; });
    std::uint64_t free = last.fileOffset;
    for (const Table& table : tables) {
        if (table.offset < free || table.end() > last.fileOffset + last.fileSize) {
            throw Refusal(std::string(table.what) + " lie over others or outside the last segment");
        }
        free = table.end();
        if (table.what == std::string_view("the indirect symbols") && table.offset > _texts) {
            throw Refusal("the indirect symbols lie behind the symbols' texts");
        }
    }
}

} // namespace phone::macho
