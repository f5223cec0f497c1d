#include "phone/macho/Image.h"

#include "phone/macho/Format.h"
#include "phone/macho/LinkEdit.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>
#include <string>

namespace phone::macho {

namespace {

constexpr std::uint64_t pageBytes = 4096;
constexpr std::uint64_t mostBytes = 1ULL << 30;
constexpr std::uint64_t pointerBytes = 8;

template <std::size_t N>
std::string_view fixedText(const char* at) {
    return {at, strnlen(at, N)};
}

/// Reads the load commands one by one and keeps what the fixups need at the end.
class ImageReader {
public:
    ImageReader(const Bytes& slice, std::uint32_t processor) : _processor(processor) { _image.slice = slice; }

    Image read() {
        readHeader();
        std::uint64_t at = sizeof(Header);
        const Bytes commands = slice().part(0, sizeof(Header) + _header.commandBytes, "the load commands");
        for (std::uint32_t i = 0; i < _header.commandCount; ++i) {
            const auto command = commands.at<Command>(at, "a load command");
            if (command.size < sizeof(Command) || command.size % pointerBytes != 0) {
                throw Refusal("a load command of " + std::to_string(command.size) + " bytes");
            }
            readCommand(command, commands.part(at, command.size, "a load command"));
            at += command.size;
        }
        finish(at);
        return std::move(_image);
    }

private:
    const Bytes& slice() const { return _image.slice; }

    void readHeader() {
        _header = slice().at<Header>(0, "the header");
        if (_header.magic != wideMagic) {
            throw Refusal(_header.magic == narrowMagic ? "made for 32 bits" : "the header has an unknown magic");
        }
        if (_header.processor != _processor) {
            throw Refusal("made for another processor than " + nameOf(_processor));
        }
        if (_header.fileType != dynamicLibrary) {
            throw Refusal("file type " + std::to_string(_header.fileType) + " is no dynamic library");
        }
    }

    void readCommand(const Command& command, const Bytes& bytes) {
        switch (command.kind) {
        case WideSegment:
            return readSegment(bytes);
        case LibraryName:
            _image.name = libraryPath(bytes);
            ++_names;
            return;
        case LoadLibrary:
        case LazyLibrary:
        case ReexportedLibrary:
        case UpwardLibrary:
        case WeakLibrary:
            return readDependency(bytes);
        case FixupsOldForm:
        case Fixups:
            if (_fixups) {
                throw Refusal("fixups are given twice");
            }
            _fixups = bytes.at<FixupsCommand>(0, "the command of the fixups");
            return;
        case SymbolTable:
            return readSymbolTable(bytes.at<SymbolTableCommand>(0, "the command of the symbol table"));
        case IndirectSymbols:
            return _linkEdit.add(bytes.at<IndirectSymbolsCommand>(0, "the command of the indirect symbols"));
        case CodeSignature:
        case FunctionStarts:
        case DataInCode: {
            const auto data = bytes.at<LinkEditCommand>(0, "a load command");
            (void)slice().part(data.offset, data.size, "what a load command points to");
            return _linkEdit.add(data);
        }
        case WideEncryption:
            if (bytes.at<EncryptionCommand>(0, "the command of the encryption").system != 0) {
                throw Refusal("it is encrypted");
            }
            return;
        case WideRoutines:
            throw Refusal("an initialiser of the old form");
        case RunPath:
            return;
        default:
            if ((command.kind & required) != 0) {
                throw Refusal("load command " + std::to_string(command.kind & ~required) +
                              " is required and not known here");
            }
        }
    }

    static std::string_view libraryPath(const Bytes& bytes) {
        const auto name = bytes.at<LibraryCommand>(0, "the name of a library").name;
        if (name < sizeof(LibraryCommand)) {
            throw Refusal("the name of a library lies over its command");
        }
        return bytes.text(name, "the name of a library");
    }

    void readDependency(const Bytes& bytes) {
        const auto command = bytes.at<LibraryCommand>(0, "the name of a library");
        _image.dependencies.push_back(
            {libraryPath(bytes), {command.compatibleVersion}, command.command.kind == WeakLibrary});
    }

    void readSymbolTable(const SymbolTableCommand& table) {
        constexpr std::uint64_t symbolBytes = 16;
        (void)slice().part(table.symbols, table.symbolCount * symbolBytes, "the symbol table");
        (void)slice().part(table.texts, table.textBytes, "the symbols' texts");
        _linkEdit.add(table);
    }

    void readSegment(const Bytes& bytes) {
        const auto command = bytes.at<SegmentCommand>(0, "the command of a segment");
        Segment segment;
        segment.name = fixedText<sizeof(command.name)>(bytes.data() + offsetof(SegmentCommand, name));
        segment.address = command.address;
        segment.size = command.size;
        segment.fileOffset = command.fileOffset;
        segment.fileSize = command.fileSize;
        segment.protection = command.protection;
        segment.isReadOnlyAfterFixups = (command.flags & readOnlyAfterFixups) != 0;
        checkSegment(segment, command.greatestProtection);
        segment.size = (segment.size + pageBytes - 1) / pageBytes * pageBytes; // the last one may end on no page
        if (bytes.size() != sizeof(SegmentCommand) + command.sectionCount * std::uint64_t{sizeof(SectionEntry)}) {
            throw Refusal("segment " + shown(segment.name) + " has sections of another number than it says");
        }
        _image.segments.push_back(segment);
        for (std::uint32_t i = 0; i < command.sectionCount; ++i) {
            const auto at = sizeof(SegmentCommand) + i * sizeof(SectionEntry);
            readSection(segment, bytes.at<SectionEntry>(at, "a section"));
        }
    }

    void checkSegment(const Segment& segment, std::uint32_t greatestProtection) const {
        const std::string name = "segment " + shown(segment.name);
        if (segment.address % pageBytes != 0 || segment.fileOffset % pageBytes != 0) {
            throw Refusal(name + " does not lie on pages");
        }
        if (segment.size > mostBytes || segment.address > ~std::uint64_t{0} - 2 * mostBytes) {
            throw Refusal(name + " is too large");
        }
        if (segment.fileSize > segment.size) {
            throw Refusal(name + " is larger in the file than in memory");
        }
        (void)slice().part(segment.fileOffset, segment.fileSize, name.c_str());
        if ((segment.protection & ~(Read | Write | Execute)) != 0 || (segment.protection & ~greatestProtection) != 0 ||
            (segment.protection & (Write | Execute)) == (Write | Execute)) {
            throw Refusal(name + " has a protection that no segment has");
        }
        if ((segment.protection & Execute) != 0 && segment.size != segment.fileSize) {
            throw Refusal(name + " is run and not all in the file");
        }
        // The file keeps the order of the addresses, so that one look back finds every overlap.
        if (!_image.segments.empty()) {
            const Segment& before = _image.segments.back();
            if (segment.address < before.end() || segment.fileOffset < before.fileOffset + before.fileSize) {
                throw Refusal(name + " overlaps another");
            }
        }
    }

    void readSection(const Segment& segment, const SectionEntry& section) {
        const std::string_view name = fixedText<sizeof(section.name)>(section.name);
        const std::uint32_t kind = section.flags & 0xff;
        const bool isInFile = kind != ZeroFill && kind != LargeZeroFill && kind != ThreadZeroFill;
        if (!segment.holds(section.address, section.size)) {
            throw Refusal("section " + shown(name) + " lies outside its segment");
        }
        const std::uint64_t inSegment = section.address - segment.address;
        if (isInFile && section.size > 0 &&
            (inSegment + section.size > segment.fileSize || section.offset != segment.fileOffset + inSegment)) {
            throw Refusal("section " + shown(name) + " lies elsewhere in the file than in memory");
        }
        if (kind >= FirstOfThread && kind <= LastOfThread) {
            throw Refusal("variables of a thread, which older systems do not know");
        }
        if (kind == InitialiserOffsets) {
            throw Refusal("initialisers by offset, which older systems do not know");
        }
        // Classes are made by the runtime's functions; the loader would have to hand these to the runtime.
        if (name.starts_with("__objc_") && name != "__objc_imageinfo") {
            throw Refusal("section " + shown(name) + " holds data of the compiler's for the runtime");
        }
        if (kind == Initialisers) {
            readInitialisers(section);
        } else if (name == "__unwind_info") {
            _unwindInfo = slice().part(section.offset, section.size, "the unwind tables");
            _textAddress = _image.start();
        }
    }

    void readInitialisers(const SectionEntry& section) {
        if (section.address % pointerBytes != 0 || section.size % pointerBytes != 0) {
            throw Refusal("the initialisers are no row of addresses");
        }
        for (std::uint64_t at = 0; at < section.size; at += pointerBytes) {
            _image.initialisers.push_back(section.address + at);
        }
    }

    void finish(std::uint64_t commandsEnd) {
        if (_names != 1) {
            throw Refusal("it is named " + std::to_string(_names) + " times");
        }
        if (_image.segments.empty()) {
            throw Refusal("no segments");
        }
        const Segment& first = _image.segments.front();
        if (first.fileOffset != 0 || first.fileSize < commandsEnd || first.protection != (Read | Execute)) {
            throw Refusal("the first segment does not hold the header, to be read and run");
        }
        if (_image.end() - _image.start() > mostBytes) {
            throw Refusal("the segments lie too far apart");
        }
        if (_fixups) {
            readFixups(*_fixups);
        }
        checkPointers();
        _linkEdit.check(_image.segments);
        if (_unwindInfo.size() > 0) {
            _image.unwindEntries = readCompactUnwind(_unwindInfo, _textAddress, _processor);
            for (const UnwindEntry& entry : _image.unwindEntries) {
                if (!_image.isCode(entry.start) || !_image.isCode(entry.end - 1)) {
                    throw Refusal("the unwind tables speak of what is no code");
                }
            }
        }
    }

    void readFixups(const FixupsCommand& fixups) {
        _image.rebases =
            readRebases(slice().part(fixups.rebaseOffset, fixups.rebaseSize, "the rebases"), _image.segments);
        const auto binds = [&](std::uint32_t offset, std::uint32_t size, BindKind kind, const char* what) {
            const auto read =
                readBinds(slice().part(offset, size, what), kind, _image.segments, _image.dependencies.size());
            _image.binds.insert(_image.binds.end(), read.begin(), read.end());
        };
        binds(fixups.bindOffset, fixups.bindSize, BindKind::Regular, "the binds");
        binds(fixups.weakBindOffset, fixups.weakBindSize, BindKind::Weak, "the weak binds");
        binds(fixups.lazyBindOffset, fixups.lazyBindSize, BindKind::Lazy, "the lazy binds");
        (void)slice().part(fixups.exportOffset, fixups.exportSize, "the exports");
        _linkEdit.add(fixups);
    }

    /// What the library's pointers into itself lead to.
    void checkPointers() const {
        std::vector<std::uint64_t> places = _image.rebases;
        std::sort(places.begin(), places.end());
        const auto overlap = [](std::uint64_t before, std::uint64_t after) { return after - before < pointerBytes; };
        if (std::adjacent_find(places.begin(), places.end(), overlap) != places.end()) {
            throw Refusal("the rebases overlap");
        }
        for (const std::uint64_t place : places) {
            const std::uint64_t pointer = pointerAt(place);
            if (pointer < _image.start() || pointer > _image.end()) {
                throw Refusal("a pointer into itself points elsewhere");
            }
        }
        std::vector<std::uint64_t> initialisers = _image.initialisers;
        std::sort(initialisers.begin(), initialisers.end());
        const auto isOfAnInitialiser = [&](const Bind& bind) {
            const auto next = std::upper_bound(initialisers.begin(), initialisers.end(), bind.address);
            return (next != initialisers.end() && overlap(bind.address, *next)) ||
                   (next != initialisers.begin() && overlap(*std::prev(next), bind.address));
        };
        const bool areItsOwn = std::all_of(initialisers.begin(), initialisers.end(), [&](std::uint64_t place) {
            return std::binary_search(places.begin(), places.end(), place) && _image.isCode(pointerAt(place));
        });
        if (!areItsOwn || std::any_of(_image.binds.begin(), _image.binds.end(), isOfAnInitialiser)) {
            throw Refusal("an initialiser is no code of its own");
        }
    }

    /// As the file has it; what lies behind a segment's part of the file is zero.
    std::uint64_t pointerAt(std::uint64_t address) const {
        std::uint64_t pointer = 0;
        for (const Segment& segment : _image.segments) {
            const std::uint64_t at = address - segment.address;
            if (segment.holds(address, pointerBytes) && at < segment.fileSize) {
                std::memcpy(&pointer, slice().data() + segment.fileOffset + at,
                            std::min(pointerBytes, segment.fileSize - at));
            }
        }
        return pointer;
    }

    std::uint32_t _processor;
    Image _image;
    Header _header{};
    int _names = 0;
    LinkEdit _linkEdit;
    std::optional<FixupsCommand> _fixups;
    Bytes _unwindInfo;
    std::uint64_t _textAddress = 0;
};

} // namespace

Image Image::read(const Bytes& slice, std::uint32_t processor) { return ImageReader(slice, processor).read(); }

bool Image::isCode(std::uint64_t address) const {
    return std::any_of(segments.begin(), segments.end(), [&](const Segment& segment) {
        return (segment.protection & Execute) != 0 && segment.holds(address, 1);
    });
}

} // namespace phone::macho
