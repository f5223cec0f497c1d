#include "phone/macho/Fixups.h"

#include "phone/macho/Format.h"

#include <utility>

namespace phone::macho {

namespace {

constexpr std::uint64_t pointerBytes = 8;

/// Where the next fixup goes, and how many there have been.
class Cursor {
public:
    Cursor(const char* what, const std::vector<Segment>& segments) : _what(what), _segments(&segments) {
        for (const Segment& segment : segments) {
            _left += segment.protection & Write ? segment.size / pointerBytes : 0;
        }
    }

    void moveTo(std::uint8_t segment, std::uint64_t offset) {
        if (segment >= _segments->size()) {
            throw Refusal(std::string(_what) + " name segment " + std::to_string(segment) + ", which there is not");
        }
        _segment = &(*_segments)[segment];
        _address = _segment->address + offset;
    }
    void leave() { _segment = nullptr; }
    void advance(std::uint64_t bytes) { _address += bytes; } // may go back, by wrapping around

    /// The address for one fixup; then goes on behind it.
    std::uint64_t take() {
        if (_segment == nullptr) {
            throw Refusal(std::string(_what) + " name no segment");
        }
        if ((_segment->protection & Write) == 0 || !_segment->holds(_address, pointerBytes)) {
            throw Refusal(std::string(_what) + " lie outside what may be written");
        }
        // Else a few bytes could ask for work without end.
        if (_left-- == 0) {
            throw Refusal(std::string(_what) + " are more than there are places");
        }
        const std::uint64_t taken = _address;
        _address += pointerBytes;
        return taken;
    }

private:
    const char* _what;
    const std::vector<Segment>* _segments;
    const Segment* _segment = nullptr;
    std::uint64_t _address = 0;
    std::uint64_t _left = 0;
};

void checkType(const char* what, std::uint8_t type) {
    if (type != pointerType) {
        throw Refusal(std::string(what) + " are of type " + std::to_string(type) + ", which is no pointer");
    }
}

[[noreturn]] void refuseInstruction(const char* what, std::uint8_t instruction) {
    throw Refusal(std::string(what) + " hold the unknown instruction " + std::to_string(instruction));
}

constexpr std::uint8_t upper(std::uint8_t byte) { return byte & 0xf0; }
constexpr std::uint8_t lower(std::uint8_t byte) { return byte & 0x0f; }

const char* name(BindKind kind) {
    return kind == BindKind::Regular ? "the binds" : kind == BindKind::Weak ? "the weak binds" : "the lazy binds";
}

/// Lazy binds stand each for itself, and weak ones for every library: later loaders refuse what older ones only read.
bool isFor(BindKind kind, std::uint8_t instruction) {
    switch (instruction) {
    case BindType:
    case BindAdvance:
    case BindAndAdvance:
    case BindAndAdvancePointers:
    case BindTimesSkipping:
        return kind != BindKind::Lazy;
    case BindLibrarySmall:
    case BindLibrary:
    case BindLibrarySpecial:
        return kind != BindKind::Weak;
    default:
        return true;
    }
}

/// Collects the binds while the instructions set what they have in common.
class Binds {
public:
    Binds(BindKind kind, const std::vector<Segment>& segments, std::size_t dependencies)
        : _kind(kind), _dependencies(dependencies), _cursor(name(kind), segments) {}

    std::vector<Bind> read(const Bytes& instructions) {
        ByteReader reader(instructions, name(_kind));
        while (!reader.atEnd() && step(reader)) {
        }
        return std::move(_read);
    }

private:
    /// False after the last one.
    bool step(ByteReader& reader) {
        const std::uint8_t byte = reader.byte();
        if (!isFor(_kind, upper(byte))) {
            refuseInstruction(name(_kind), byte);
        }
        switch (upper(byte)) {
        case BindDone:
            if (_kind != BindKind::Lazy) {
                return false;
            }
            reset(); // each lazy bind stands for itself
            return true;
        case BindLibrarySmall:
            useLibrary(lower(byte));
            return true;
        case BindLibrary:
            useLibrary(reader.unsignedNumber());
            return true;
        case BindLibrarySpecial:
            useSpecialLibrary(lower(byte));
            return true;
        case BindSymbol:
            _next.symbol = reader.text();
            _next.isWeakImport = (lower(byte) & weakImport) != 0;
            return true;
        case BindType:
            checkType(name(_kind), lower(byte));
            return true;
        case BindAddend:
            _next.addend = reader.signedNumber();
            return true;
        case BindPlace:
            _cursor.moveTo(lower(byte), reader.unsignedNumber());
            return true;
        case BindAdvance:
            _cursor.advance(reader.unsignedNumber());
            return true;
        case BindNow:
            bind();
            return true;
        case BindAndAdvance:
            bind();
            _cursor.advance(reader.unsignedNumber());
            return true;
        case BindAndAdvancePointers:
            bind();
            _cursor.advance(lower(byte) * pointerBytes);
            return true;
        case BindTimesSkipping: {
            const std::uint64_t times = reader.unsignedNumber();
            const std::uint64_t skipped = reader.unsignedNumber();
            for (std::uint64_t i = 0; i < times; ++i) {
                bind();
                _cursor.advance(skipped);
            }
            return true;
        }
        default:
            refuseInstruction(name(_kind), byte);
        }
    }

    void useLibrary(std::uint64_t ordinal) {
        if (ordinal > _dependencies) {
            throw Refusal(std::string(name(_kind)) + " name library " + std::to_string(ordinal) + " of " +
                          std::to_string(_dependencies));
        }
        _next.library = static_cast<int>(ordinal);
    }

    /// The numbers below zero, of which only four bits stand in the file.
    void useSpecialLibrary(std::uint8_t bits) {
        const int ordinal = bits == 0 ? 0 : static_cast<int>(bits) - 16;
        if (ordinal < WeakLookup) {
            throw Refusal(std::string(name(_kind)) + " name the unknown library " + std::to_string(ordinal));
        }
        _next.library = ordinal;
    }

    void bind() {
        if (_next.symbol.empty()) {
            throw Refusal(std::string(name(_kind)) + " name no symbol");
        }
        // What this library and the executable have, nothing here offers by name.
        const bool isOffered = _kind == BindKind::Weak || (_next.library != Itself && _next.library != Executable);
        if (!isOffered && !_next.isWeakImport) {
            throw Refusal("the symbol " + shown(_next.symbol) + " is missing");
        }
        _next.address = _cursor.take();
        _read.push_back(_next);
    }

    void reset() {
        _next = first();
        _cursor.leave();
    }

    Bind first() const {
        Bind bind;
        bind.library = _kind == BindKind::Weak ? WeakLookup : Itself;
        bind.hasOwnDefinition = _kind == BindKind::Weak;
        return bind;
    }

    BindKind _kind;
    std::size_t _dependencies;
    Cursor _cursor;
    Bind _next = first();
    std::vector<Bind> _read;
};

} // namespace

std::vector<std::uint64_t> readRebases(const Bytes& instructions, const std::vector<Segment>& segments) {
    constexpr const char* what = "the rebases";
    std::vector<std::uint64_t> rebases;
    Cursor cursor(what, segments);
    ByteReader reader(instructions, what);
    const auto rebase = [&](std::uint64_t times, std::uint64_t skipped) {
        for (std::uint64_t i = 0; i < times; ++i) {
            rebases.push_back(cursor.take());
            cursor.advance(skipped);
        }
    };
    while (!reader.atEnd()) {
        const std::uint8_t byte = reader.byte();
        switch (upper(byte)) {
        case RebaseDone:
            if (reader.left() > pointerBytes) { // so much is padding
                throw Refusal(std::string(what) + " go on after their end");
            }
            return rebases;
        case RebaseType:
            checkType(what, lower(byte));
            break;
        case RebasePlace:
            cursor.moveTo(lower(byte), reader.unsignedNumber());
            break;
        case RebaseAdvance:
            cursor.advance(reader.unsignedNumber());
            break;
        case RebaseAdvancePointers:
            cursor.advance(lower(byte) * pointerBytes);
            break;
        case RebaseTimesSmall:
            rebase(lower(byte), 0);
            break;
        case RebaseTimes:
            rebase(reader.unsignedNumber(), 0);
            break;
        case RebaseAndAdvance:
            rebase(1, reader.unsignedNumber());
            break;
        case RebaseTimesSkipping: {
            const std::uint64_t times = reader.unsignedNumber();
            rebase(times, reader.unsignedNumber());
            break;
        }
        default:
            refuseInstruction(what, byte);
        }
    }
    return rebases;
}

std::vector<Bind> readBinds(const Bytes& instructions, BindKind kind, const std::vector<Segment>& segments,
                            std::size_t dependencies) {
    return Binds(kind, segments, dependencies).read(instructions);
}

} // namespace phone::macho
