#include "phone/macho/Library.h"
#include "phone/macho/Slice.h"
#include "tests/macho/GuestFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace phone::macho {
namespace {

using Change = std::function<void(std::string&)>;

struct Broken {
    const char* name;
    Change change;
    const char* expected; // how the refusal begins

    friend std::ostream& operator<<(std::ostream& out, const Broken& broken) { return out << broken.name; }
};

void write(std::string& bytes, std::uint32_t offset, const std::vector<int>& instructions) {
    for (std::size_t i = 0; i < instructions.size(); ++i) {
        bytes[offset + i] = static_cast<char>(instructions[i]);
    }
}
/// Where the binds stand there is more room.
Change rebases(const std::vector<int>& instructions) {
    return [=](std::string& b) {
        fixups(b).rebaseOffset = fixups(b).bindOffset;
        fixups(b).rebaseSize = static_cast<std::uint32_t>(instructions.size());
        write(b, fixups(b).rebaseOffset, instructions);
    };
}
Change binds(const std::vector<int>& instructions) {
    return [=](std::string& b) { write(b, fixups(b).bindOffset, instructions); };
}
/// Turns the first command of a kind that nothing needs into another.
Change command(std::uint32_t kind) {
    return [=](std::string& b) { in<Command>(b, commandAt(b, 0x1b)).kind = kind; };
}

class BrokenImage : public testing::TestWithParam<Broken> {};

TEST_P(BrokenImage, IsRefusedInOneClearLine) {
    std::string bytes = guest();
    GetParam().change(bytes);

    const std::string line = refusal(bytes);

    EXPECT_TRUE(line.starts_with(GetParam().expected)) << line;
    EXPECT_EQ(line.find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Header, BrokenImage,
    testing::Values(
        Broken{"Magic", [](auto& b) { header(b).magic = 0xfeedfa11; }, "the header has an unknown magic"},
        Broken{"Narrow", [](auto& b) { header(b).magic = narrowMagic; }, "made for 32 bits"},
        Broken{"Processor", [](auto& b) { header(b).processor = 7; }, "made for another processor"},
        Broken{"FileType", [](auto& b) { header(b).fileType = 1; }, "file type 1 is no dynamic library"},
        Broken{"CommandBytes", [](auto& b) { header(b).commandBytes = 0xfffffff0; },
               "the file ends before the load commands"},
        Broken{"CommandCount", [](auto& b) { ++header(b).commandCount; }, "the file ends before a load command"},
        Broken{"NoCommands", [](auto& b) { header(b).commandCount = 0; }, "it is named 0 times"},
        Broken{"EmptyCommand", [](auto& b) { in<Command>(b, sizeof(Header)).size = 0; }, "a load command of 0 bytes"},
        Broken{"OddCommand", [](auto& b) { in<Command>(b, sizeof(Header)).size += 3; }, "a load command of "},
        Broken{"LongCommand", [](auto& b) { in<Command>(b, sizeof(Header)).size = 0x7ffffff8; },
               "the file ends before a load command"},
        Broken{"ShortCommand", [](auto& b) { in<Command>(b, commandAt(b, LoadLibrary)).size = 8; },
               "the file ends before the name of a library"},
        Broken{"RequiredCommand", command(0x34 | required), "load command 52 is required and not known here"},
        Broken{"SecondName", [](auto& b) { in<Command>(b, commandAt(b, LoadLibrary)).kind = LibraryName; },
               "it is named 2 times"},
        Broken{"OldInitialiser", command(WideRoutines), "an initialiser of the old form"},
        Broken{"LibraryNameOutside", [](auto& b) { in<LibraryCommand>(b, commandAt(b, LoadLibrary)).name = 0xffff; },
               "a text without an end: the name of a library"},
        Broken{"SymbolTable",
               [](auto& b) { in<SymbolTableCommand>(b, commandAt(b, SymbolTable)).symbols = 0xffffff00; },
               "the file ends before the symbol table"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Segments, BrokenImage,
    testing::Values(
        Broken{"PastTheFile", [](auto& b) { segment(b, LinkEdit).fileOffset += 0x100000; },
               "the file ends before segment __LINKEDIT"},
        Broken{"Wrapping", [](auto& b) { segment(b, Data).fileOffset = ~std::uint64_t{0xfff}; },
               "the file ends before segment __DATA"},
        Broken{"AddressWraps", [](auto& b) { segment(b, LinkEdit).address = ~std::uint64_t{0xfff}; },
               "segment __LINKEDIT is too large"},
        Broken{"TooLarge", [](auto& b) { segment(b, Data).size = ~std::uint64_t{0}; }, "segment __DATA is too large"},
        Broken{"FarApart", [](auto& b) { segment(b, LinkEdit).address = 1ULL << 40; },
               "the segments lie too far apart"},
        Broken{"OffThePage", [](auto& b) { segment(b, Data).address += 8; }, "segment __DATA does not lie on pages"},
        Broken{"LargerInFile", [](auto& b) { segment(b, Data).size = segment(b, Data).fileSize - 1; },
               "segment __DATA is larger in the file than in memory"},
        Broken{"Overlapping", [](auto& b) { segment(b, Data).address = segment(b, Text).address; },
               "segment __DATA overlaps another"},
        Broken{"OverlappingInFile", [](auto& b) { segment(b, LinkEdit).fileOffset = 0; },
               "segment __LINKEDIT overlaps another"},
        Broken{"WrittenAndRun", [](auto& b) { segment(b, Data).protection = segment(b, Data).greatestProtection = 7; },
               "segment __DATA has a protection"},
        Broken{"HeaderThatIsNotRun", [](auto& b) { segment(b, Text).protection = Read; },
               "the first segment does not hold the header, to be read and run"},
        Broken{"RunOutsideTheFile", [](auto& b) { segment(b, Text).fileSize -= 0x1000; },
               "segment __TEXT is run and not all in the file"},
        Broken{"BeyondGreatest", [](auto& b) { segment(b, Text).protection = Read | Write; }, "segment __TEXT has a"},
        Broken{"SectionCount", [](auto& b) { segment(b, Data).sectionCount = 0x10000000; }, "segment __DATA has sec"},
        Broken{"UnclearName",
               [](auto& b) {
                   std::memcpy(segment(b, Data).name, "A\nB", 4);
                   segment(b, Data).address += 8;
               },
               "segment A?B does not"},
        Broken{"SectionOutside", [](auto& b) { section(b, "__data").address += 0x100000; },
               "section __data lies outside its segment"},
        Broken{"SectionWraps", [](auto& b) { section(b, "__data").size = ~std::uint64_t{0}; },
               "section __data lies outside its segment"},
        Broken{"SectionElsewhere", [](auto& b) { section(b, "__data").offset += 8; }, "section __data lies elsewhere"},
        Broken{"OddInitialisers", [](auto& b) { section(b, "__mod_init_func").size -= 1; },
               "the initialisers are no row of addresses"},
        Broken{"ThreadVariables", [](auto& b) { section(b, "__data").flags = FirstOfThread; }, "variables of a thread"},
        Broken{"InitialiserOffsets", [](auto& b) { section(b, "__data").flags = InitialiserOffsets; },
               "initialisers by offset"},
        Broken{"ClassesOfTheCompiler", [](auto& b) { std::memcpy(section(b, "__data").name, "__objc_classlist", 16); },
               "section __objc_classlist holds data of the compiler's"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    LastSegment, BrokenImage,
    testing::Values(
        Broken{
            "Writable",
            [](auto& b) { segment(b, LinkEdit).protection = segment(b, LinkEdit).greatestProtection = Read | Write; },
            "the last segment is not the one of the tables, to be read alone"},
        Broken{"OfAnotherName", [](auto& b) { segment(b, LinkEdit).name[2] = 'X'; }, "the last segment is not the one"},
        Broken{"WithASecondOne", [](auto& b) { std::memcpy(segment(b, Data).name, "__LINKEDIT", 11); },
               "the last segment is not the one"},
        Broken{"WithoutIndirectSymbols", [](auto& b) { in<Command>(b, commandAt(b, IndirectSymbols)).kind = 0x1b; },
               "no load command of the indirect symbols"},
        Broken{"WithOldRelocations", [](auto& b) { indirectSymbols(b).relocationCount = 1; },
               "relocations of the old form beside fixups"},
        Broken{"WithOldRelocationsOfItsOwn", [](auto& b) { indirectSymbols(b).ownRelocationCount = 1; },
               "relocations of the old form beside fixups"},
        Broken{"SignedTwice",
               [](auto& b) {
                   in<Command>(b, commandAt(b, FunctionStarts)).kind = CodeSignature;
                   in<Command>(b, commandAt(b, DataInCode)).kind = CodeSignature;
               },
               "it is signed twice"},
        Broken{"TextsBeforeTheirSymbols", [](auto& b) { symbols(b).texts = symbols(b).symbols - 1; },
               "the symbols' texts lie before what they have to follow"},
        Broken{"TablesOverEachOther", [](auto& b) { functionStarts(b).offset = fixups(b).bindOffset + 1; },
               "the tables of the code lie over others or outside the last segment"},
        Broken{"TableOutside", [](auto& b) { functionStarts(b).offset = 0; },
               "the tables of the code lie over others or outside the last segment"},
        Broken{"IndirectSymbolsBehindTheTexts",
               [](auto& b) {
                   symbols(b).textBytes = 4;
                   indirectSymbols(b).indirect = symbols(b).texts + 4;
                   indirectSymbols(b).indirectCount = 1;
               },
               "the indirect symbols lie behind the symbols' texts"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Fixups, BrokenImage,
    testing::Values(
        Broken{"RebasesOutside", [](auto& b) { fixups(b).rebaseOffset = 0xfffffff0; }, "the file ends before the rebases"},
        Broken{"BindsOutside", [](auto& b) { fixups(b).bindSize = 0xfffffff0; }, "the file ends before the binds"},
        Broken{"ExportsOutside", [](auto& b) { fixups(b).exportSize = 0xfffffff0; }, "the file ends before the exports"},
        Broken{"UnknownRebase", rebases({0x11, 0xf0}), "the rebases hold the unknown instruction 240"},
        Broken{"RebaseType", rebases({0x12}), "the rebases are of type 2"},
        Broken{"RebaseSegment", rebases({0x11, 0x29, 0x00, 0x51}), "the rebases name segment 9"},
        Broken{"RebaseNowhere", rebases({0x11, 0x51}), "the rebases name no segment"},
        Broken{"RebaseOfCode", rebases({0x11, 0x20, 0x00, 0x51}), "the rebases lie outside what may be written"},
        Broken{"RebasePastTheEnd", rebases({0x11, 0x21, 0xff, 0xff, 0x7f, 0x51}), "the rebases lie outside"},
        Broken{"RebaseBeforeTheStart",
               rebases({0x11, 0x21, 0x00, 0x30, 0xf8, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01, 0x51}),
               "the rebases lie outside"},
        Broken{"RebasesThatOverlap",
               [](auto& b) {
                   rebases({0x11, 0x21, 0x00, 0x51, 0x21, 0x04, 0x51})(b);
                   fixups(b).bindSize = 0;
               },
               "the rebases overlap"},
        Broken{"BoundInitialiser",
               [](auto& b) {
                   const auto offset = section(b, "__mod_init_func").address - segment(b, Data).address;
                   write(b, fixups(b).bindOffset,
                         {0x11, 0x40, 'a', 0x00, 0x51, 0x71, static_cast<int>(0x80 | (offset & 0x7f)),
                          static_cast<int>(0x80 | (offset >> 7 & 0x7f)), static_cast<int>(offset >> 14), 0x90, 0x00});
               },
               "an initialiser is no code of its own"},
        Broken{"EndlessRebases",
               rebases({0x11, 0x21, 0x00, 0x80, 0xff, 0xff, 0xff, 0xff, 0x7f, 0xf8, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff,
                        0xff, 0xff, 0x01}),
               "the rebases are more than there are places"},
        Broken{"LongNumber", rebases({0x11, 0x21, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80}),
               "a number that is too long: the rebases"},
        Broken{"UnknownBind", binds({0xd0}), "the binds hold the unknown instruction 208"},
        Broken{"BindType", binds({0x53}), "the binds are of type 3"},
        Broken{"BindLibrary", binds({0x1f}), "the binds name library 15 of "},
        Broken{"BindSpecialLibrary", binds({0x38}), "the binds name the unknown library -8"},
        Broken{"BindSegment", binds({0x79, 0x00}), "the binds name segment 9"},
        Broken{"BindNameless", binds({0x11, 0x51, 0x71, 0x00, 0x90}), "the binds name no symbol"},
        Broken{"BindToItself", binds({0x10, 0x40, 'a', 0x00, 0x51, 0x71, 0x00, 0x90}), "the symbol a is missing"},
        Broken{"BindToTheExecutable", binds({0x3f, 0x40, 'a', 0x00, 0x51, 0x71, 0x00, 0x90}),
               "the symbol a is missing"},
        Broken{"BindNowhere", binds({0x11, 0x40, 'a', 0x00, 0x51, 0x90}), "the binds name no segment"},
        Broken{"BindOfCode", binds({0x11, 0x40, 'a', 0x00, 0x51, 0x70, 0x00, 0x90}), "the binds lie outside"},
        Broken{"EndlessBinds", binds({0x11, 0x40, 'a',  0x00, 0x71, 0x00, 0xc0, 0xff, 0xff, 0xff, 0xff,
                                      0x7f, 0xf8, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01}),
               "the binds are more than there are places"},
        Broken{"RebasesAfterTheLast", rebases({0x11, 0x21, 0x00, 0x51, 0x00, 0, 0, 0, 0, 0, 0, 0, 0, 0x51}),
               "the rebases go on after their end"},
        Broken{"LazyBindType", [](auto& b) { write(b, fixups(b).lazyBindOffset, {0x51}); },
               "the lazy binds hold the unknown instruction 81"},
        Broken{"LazyBindsInARow", [](auto& b) { write(b, fixups(b).lazyBindOffset, {0xb1}); },
               "the lazy binds hold the unknown instruction 177"},
        Broken{"WeakBindOfALibrary", [](auto& b) { write(b, fixups(b).weakBindOffset, {0x11}); },
               "the weak binds hold the unknown instruction 17"},
        Broken{"EndlessSymbol",
               [](auto& b) {
                   write(b, fixups(b).bindOffset, {0x40, 'a', 'b', 'c'});
                   fixups(b).bindSize = 4;
               },
               "a text without an end: the binds"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Unwinding, BrokenImage,
    testing::Values(
        Broken{"Version", [](auto& b) { ++in<UnwindHeader>(b, section(b, "__unwind_info").offset).version; },
               "the unwind tables are of version 2"},
        Broken{"Index",
               [](auto& b) { in<UnwindHeader>(b, section(b, "__unwind_info").offset).indexCount = 0xffffffff; },
               "the file ends before the unwind tables"},
        Broken{"Encoding",
               [](auto& b) {
                   const auto offset = section(b, "__unwind_info").offset;
                   in<std::uint32_t>(b, offset + in<UnwindHeader>(b, offset).commonEncodings) = 0x03000000;
               },
               "the unwind tables describe a frame that is not known here"},
        Broken{"Functions",
               [](auto& b) {
                   const auto offset = section(b, "__unwind_info").offset;
                   in<UnwindIndexEntry>(b, offset + in<UnwindHeader>(b, offset).index).function = 0xfffff000;
               },
               "the unwind tables"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(BrokenFile, TruncatedAtAnyLengthIsRefused) {
    const std::string whole = guest();
    ASSERT_EQ(refusal(whole), "");

    for (std::size_t length = 0; length < whole.size(); ++length) {
        // A copy of exactly this size, so that the sanitizer sees any reading past its end.
        const std::unique_ptr<char[]> copy(new char[length]);
        std::memcpy(copy.get(), whole.data(), length);
        EXPECT_THROW((void)Image::read(findSlice(Bytes({copy.get(), length}))), Refusal) << length;
    }
}

TEST(BrokenFile, TheLibraryTruncatedAnywhereIsRefused) {
    const std::string whole = readBytes(SLICE);
    ASSERT_EQ(refusal(whole), "");

    for (std::size_t length = 0; length < whole.size(); length += 7) {
        EXPECT_THROW((void)Image::read(Bytes(std::string_view(whole).substr(0, length))), Refusal) << length;
    }
}

/// Reads variants of a file, a few bytes of which are others; of those that are not refused, maps and binds some.
class Variants {
public:
    Variants(std::string bytes, const Exports& exports, unsigned seed)
        : _bytes(std::move(bytes)), _exports(exports), _random(seed) {}

    void play(int count) {
        const std::string whole = _bytes;
        for (int i = 0; i < count; ++i) {
            for (auto changes = 1 + _random() % 4; changes > 0; --changes) {
                change();
            }
            attempt();
            for (const std::size_t at : _changed) {
                _bytes[at] = whole[at];
            }
            _changed.clear();
        }
    }
    int refused() const { return _refused; }
    int mapped() const { return _mapped; }

private:
    /// Mostly where the file speaks of itself: at its beginning and at its end.
    void change() {
        static constexpr std::array<unsigned char, 8> edges = {0, 1, 0x7f, 0x80, 0xff, 0xfe, 0x40, 0x10};
        const std::size_t commands = sizeof(Header) + header(_bytes).commandBytes % _bytes.size();
        const std::size_t tail = segment(_original, LinkEdit).fileSize;
        const auto where = _random() % 8;
        const std::size_t at = where < 4   ? _random() % std::min(commands, _bytes.size())
                               : where < 7 ? _bytes.size() - 1 - _random() % tail
                                           : _random() % _bytes.size();
        const auto kind = _random() % 3;
        const auto before = static_cast<unsigned char>(_bytes[at]);
        _bytes[at] = static_cast<char>(kind == 0   ? edges[_random() % edges.size()]
                                       : kind == 1 ? before ^ (1U << (_random() % 8))
                                                   : _random() % 256);
        _changed.push_back(at);
    }

    void attempt() {
        try {
            const Image image = Image::read(findSlice(Bytes(_bytes)));
            if (++_read % 16 == 0) {
                const Library library(image, _exports);
                (void)frameDescriptions(image.unwindEntries, 0);
                ++_mapped;
            }
        } catch (const Refusal&) {
            ++_refused;
        }
    }

    std::string _bytes;
    std::string _original = _bytes;
    const Exports& _exports;
    std::mt19937 _random;
    std::vector<std::size_t> _changed;
    int _refused = 0;
    int _read = 0;
    int _mapped = 0;
};

/// Each seed is a quarter of the variants: a hundred thousand of the small library.
class BrokenVariants : public testing::TestWithParam<unsigned> {};

TEST_P(BrokenVariants, AreRefusedOrMapped) {
    Exports exports = Exports::ofThePhone();
    static int anything = 0;
    exports.add({"/usr/lib/libHost.dylib", Version::of(1)},
                {{"_hostNumbers", &anything}, {"_hostRecord", &anything}, {"_hostTake", &anything}});
    Variants variants(guest(), exports, GetParam());

    variants.play(25000);

    EXPECT_GT(variants.refused(), 2500);
    EXPECT_GT(variants.mapped(), 250);
}

TEST_P(BrokenVariants, OfTheLibraryAreRefusedOrMapped) {
    Variants variants(readBytes(SLICE), Exports::ofThePhone(), GetParam());

    variants.play(1000);

    EXPECT_GT(variants.refused(), 100);
    EXPECT_GT(variants.mapped(), 10);
}

INSTANTIATE_TEST_SUITE_P(Seeds, BrokenVariants, testing::Range(1U, 5U), testing::PrintToStringParamName());

} // namespace
} // namespace phone::macho
