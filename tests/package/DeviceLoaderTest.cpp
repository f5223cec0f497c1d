// What the loaders of devices ask of a library before they map it, each rule as its strictest version has it.

#include "tests/package/LoadCommands.h"

#include <gmock/gmock.h>

#include <regex>

using testing::AnyOf;
using testing::Each;
using testing::UnorderedElementsAreArray;

namespace package {

namespace {

/// What the installed libraries state on every system that has them.
const std::map<std::string, std::string> compatibilityOnDevices = {
    {"/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate", "0.0.0"},
    {"/System/Library/Frameworks/CoreGraphics.framework/CoreGraphics", "64.0.0"},
    {"/System/Library/Frameworks/EventKit.framework/EventKit", "1.0.0"},
    {"/System/Library/Frameworks/Foundation.framework/Foundation", "300.0.0"},
    {"/System/Library/Frameworks/UIKit.framework/UIKit", "1.0.0"},
    {"/usr/lib/libSystem.B.dylib", "1.0.0"},
    {"/usr/lib/libobjc.A.dylib", "1.0.0"}};

struct Table {
    std::string name;
    std::uint64_t offset, size, alignment;
};

class DeviceLoader : public ReadSlice, public testing::WithParamInterface<const char*> {
protected:
    DeviceLoader() : ReadSlice(GetParam()) {}

    /// What lies in the last segment, in the order that the oldest strict loader wants.
    std::vector<Table> tables() const {
        std::vector<Table> found;
        const auto add = [&](const std::string& kind, const std::string& name, const std::string& offset,
                             const std::string& size, std::uint64_t entry, std::uint64_t alignment) {
            const LoadCommand command = one(kind);
            if (command.number(size) > 0) {
                found.push_back({name, command.number(offset), command.number(size) * entry, alignment});
            }
        };
        for (const std::string name : {"rebase", "bind", "weak_bind", "lazy_bind", "export"}) {
            add("LC_DYLD_INFO_ONLY", name, name + "_off", name + "_size", 1, pointerSize());
        }
        add("LC_FUNCTION_STARTS", "function starts", "dataoff", "datasize", 1, pointerSize());
        add("LC_DATA_IN_CODE", "data in code", "dataoff", "datasize", 1, pointerSize());
        add("LC_SYMTAB", "symbols", "symoff", "nsyms", isWide() ? 16 : 12, pointerSize());
        add("LC_DYSYMTAB", "indirect symbols", "indirectsymoff", "nindirectsyms", 4, 4);
        add("LC_SYMTAB", "names", "stroff", "strsize", 1, 1);
        add("LC_CODE_SIGNATURE", "signature", "dataoff", "datasize", 1, 16);
        return found;
    }
};

// A loader takes no library that asks for more of another than that one states.
TEST_P(DeviceLoader, FindsEveryLibraryInTheVersionThatIsAskedFor) {
    std::map<std::string, std::string> asked;
    for (const LoadCommand& command : all("LC_LOAD_DYLIB")) {
        asked[command.text("name")] = command.text("compatibility version");
    }

    EXPECT_EQ(asked, compatibilityOnDevices);
    EXPECT_EQ(all("LC_LOAD_DYLIB").size(), asked.size()) << "none is asked for twice";
}

TEST_P(DeviceLoader, FindsThemAsAReaderOfAnotherKindDoes) {
    const std::string script = "import sys\n"
                               "from macholib.MachO import MachO\n"
                               "from macholib.mach_o import dylib_command\n"
                               "for header in MachO(sys.argv[1]).headers:\n"
                               "    for load, command, data in header.commands:\n"
                               "        if isinstance(command, dylib_command):\n"
                               "            print(load.get_cmd_name(), command.compatibility_version,\n"
                               "                  data.rstrip(b\"\\0\").decode())\n";
    Lines expected = {"LC_ID_DYLIB 0.0.0 /Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib"};
    for (const auto& [name, version] : compatibilityOnDevices) {
        expected.push_back("LC_LOAD_DYLIB " + version + " " + name);
    }

    EXPECT_THAT(lines(output("/usr/bin/python3 '" + folder.write("versions.py", script) + "' '" + path + "'")),
                UnorderedElementsAreArray(expected));
}

TEST_P(DeviceLoader, FindsOneOfEachCommandAndAllInTheFirstPage) {
    std::map<std::string, int> count;
    std::uint64_t size = isWide() ? 32 : 28;
    for (const LoadCommand& command : commands) {
        ++count[command.kind];
        size += command.number("cmdsize");
        EXPECT_EQ(command.number("cmdsize") % pointerSize(), 0U) << command.kind;
    }
    for (const auto& [kind, number] : count) {
        EXPECT_TRUE(number == 1 || kind.starts_with("LC_SEGMENT") || kind == "LC_LOAD_DYLIB") << number << " " << kind;
    }
    EXPECT_EQ(count["LC_DYSYMTAB"], 1) << "asked for, whether it is needed or not";
    EXPECT_LE(size, 4096U);
}

TEST_P(DeviceLoader, MapsWholePagesOfTheFileWithTheRightsThatItExpects) {
    const std::uint64_t page = processor == "arm64" ? 0x4000 : 0x1000;
    const auto found = segments();
    ASSERT_EQ(found.size(), 3U);
    for (const LoadCommand& segment : found) {
        EXPECT_EQ(segment.number("vmaddr") % page, 0U) << segment.text("segname");
        EXPECT_EQ(segment.number("fileoff") % page, 0U) << segment.text("segname");
        EXPECT_EQ(segment.number("vmsize") % page, 0U) << segment.text("segname");
        EXPECT_EQ(segment.number("initprot"), segment.number("maxprot"));
    }
    EXPECT_EQ(found[0].text("segname"), "__TEXT");
    EXPECT_EQ(found[0].number("fileoff"), 0U);
    EXPECT_EQ(found[0].number("initprot"), 5U) << "read, run";
    EXPECT_EQ(found[0].number("vmsize"), found[0].number("filesize")) << "all of what is run is in the file";
    EXPECT_EQ(found[1].number("initprot"), 3U) << "read, write";
    EXPECT_EQ(found[2].text("segname"), "__LINKEDIT");
    EXPECT_EQ(found[2].number("initprot"), 1U) << "read";
}

TEST_P(DeviceLoader, FindsTheLastSegmentsTablesInOrderAndNoneOverAnother) {
    const LoadCommand last = segments().back();
    std::uint64_t end = last.number("fileoff");
    for (const Table& table : tables()) {
        EXPECT_GE(table.offset, end) << table.name;
        EXPECT_EQ(table.offset % table.alignment, 0U) << table.name;
        end = table.offset + table.size;
    }
    EXPECT_EQ(end, last.number("fileoff") + last.number("filesize")) << "the signature, which is last, covers the rest";
}

TEST_P(DeviceLoader, CountsEachSymbolOnceAndNoOldRelocations) {
    const LoadCommand count = one("LC_DYSYMTAB");
    EXPECT_EQ(count.number("ilocalsym"), 0U);
    EXPECT_EQ(count.number("iextdefsym"), count.number("nlocalsym"));
    EXPECT_EQ(count.number("iundefsym"), count.number("iextdefsym") + count.number("nextdefsym"));
    EXPECT_EQ(one("LC_SYMTAB").number("nsyms"), count.number("iundefsym") + count.number("nundefsym"));
    EXPECT_EQ(count.number("nextrel") + count.number("nlocrel"), 0U);
}

TEST_P(DeviceLoader, FixesUpPointersInDataAndNothingElse) {
    const std::string shown = output("llvm-objdump-19 --macho --rebase --bind --weak-bind --lazy-bind '" + path + "'");
    int fixups = 0;
    for (const std::string& line : lines(shown)) {
        if (line.starts_with("__")) {
            ++fixups;
            EXPECT_TRUE(line.starts_with("__DATA ")) << line;
            EXPECT_TRUE(std::regex_search(line, std::regex(" pointer\\b")) ||
                        shown.find(line) > shown.find("Lazy bind table")) // whose type goes without saying
                << line;
        }
    }
    EXPECT_GT(fixups, 50);
}

// The file's bytes are mapped over such a section where the segment holds it.
TEST_P(DeviceLoader, MapsZeroesWhereDataIsToBeZero) {
    const LoadCommand data = segments()[1];
    int zeroed = 0;
    for (const Fields& section : data.sections) {
        if ((section.number("flags") & 0xff) == 1) {
            const std::uint64_t begin = section.number("addr") - data.number("vmaddr");
            ASSERT_LE(begin + section.number("size"), data.number("filesize"));
            const std::string mapped = bytes.substr(data.number("fileoff") + begin, section.number("size"));
            EXPECT_EQ(mapped, std::string(mapped.size(), '\0')) << section.text("sectname");
            ++zeroed;
        }
    }
    EXPECT_GT(zeroed, 0);
}

// A system that binds at the first call asks the way there what is to be bound: a place among the instructions.
TEST_P(DeviceLoader, BindsAtItsFirstCallTheImportThatIsCalled) {
    const std::uint64_t instructions = one("LC_DYLD_INFO_ONLY").number("lazy_bind_off");
    const std::uint64_t place = processor == "x86_64" ? 1 : 8; // of the number, in the way there
    const std::string shown = output("llvm-objdump-19 --macho --lazy-bind '" + path + "'");
    const std::regex entry("__DATA +__la_symbol_ptr +(0x\\S+) .*?(\\w+)( \\(weak_import\\))?\n");
    std::set<std::uint64_t> ways;
    for (std::sregex_iterator match(shown.begin(), shown.end(), entry), end; match != end; ++match) {
        const std::uint64_t pointed = std::stoull(match->str(1), nullptr, 16);
        const std::uint64_t way = pointer(pointed);
        ways.insert(way);
        std::size_t at = instructions + word(way + place);
        ASSERT_EQ(bytes.at(at) & 0xff, 0x71) << "a place in the second segment";
        std::uint64_t inSegment = 0;
        for (int shift = 0; shift == 0 || (bytes.at(at) & 0x80) != 0; shift += 7) {
            inSegment |= static_cast<std::uint64_t>(bytes.at(++at) & 0x7f) << shift;
        }
        EXPECT_EQ(segments()[1].number("vmaddr") + inSegment, pointed) << match->str(2);
        ++at;
        EXPECT_EQ(bytes.at(at) & 0xf0, 0x10) << "a library";
        ++at;
        EXPECT_EQ(bytes.at(at) & 0xf0, 0x40) << "a name";
        const std::string name(&bytes.at(at + 1));
        EXPECT_EQ(name, match->str(2));
        EXPECT_EQ(bytes.substr(at + 1 + name.size() + 1, 2), std::string("\x90\0", 2)) << "now, and that is all";
    }
    EXPECT_EQ(ways.size(), section("__DATA", "__la_symbol_ptr").number("size") / pointerSize());
}

INSTANTIATE_TEST_SUITE_P(Every, DeviceLoader, testing::Values("arm64", "armv7", "x86_64"),
                         [](const auto& info) { return std::string(info.param); });

class FatLibrary : public ShippedPackage {};

TEST_F(FatLibrary, HoldsItsSlicesOneBehindTheOtherOnPagesOfEveryDevice) {
    slice("arm64");
    const std::string shown = output(
        "llvm-otool-19 -f '" + folder.path("root-arm64/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib") + "'");
    const auto numbers = [&](const std::string& name) {
        std::vector<std::uint64_t> found;
        const std::regex line("\n +" + name + " (\\d+)");
        for (std::sregex_iterator match(shown.begin(), shown.end(), line), end; match != end; ++match) {
            found.push_back(std::stoull(match->str(1)));
        }
        return found;
    };
    const auto offsets = numbers("offset");
    const auto sizes = numbers("size");

    ASSERT_EQ(offsets.size(), 2U) << shown;
    EXPECT_EQ(numbers("cputype"), (std::vector<std::uint64_t>{12, 16777228})) << "armv7, arm64";
    for (const std::uint64_t offset : offsets) {
        EXPECT_EQ(offset % 0x4000, 0U);
    }
    EXPECT_GE(offsets[1], offsets[0] + sizes[0]);
}

} // namespace

} // namespace package
