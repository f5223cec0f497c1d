// The pointers of the slice for armv7 into its own code: all of it is Thumb, and a pointer to Thumb code is odd.

#include "tests/package/LoadCommands.h"

#include <regex>

namespace package {

namespace {

class Armv7Pointers : public ReadSlice {
protected:
    Armv7Pointers() : ReadSlice("armv7") {
        for (const std::string& line :
             lines(output("llvm-objdump-19 --macho --function-starts=addrs '" + path + "'"))) {
            if (std::regex_match(line, std::regex("[0-9a-f]{8}"))) {
                starts.insert(std::stoull(line, nullptr, 16));
            }
        }
        // The names are gone from what ships.
        const std::string linked = BUILD_DIRECTORY "/package/armv7/Quorvan.dylib.linked";
        for (const std::string& line : lines(output("llvm-nm-19 '" + linked + "'"))) {
            std::istringstream words(line);
            std::string address, kind, name;
            if (words >> address >> kind >> name && address.size() == 8) {
                named.emplace(name, std::stoull(address, nullptr, 16));
            }
        }
    }

    /// The pointers into itself, by where they stand.
    std::map<std::uint64_t, std::uint32_t> pointers() {
        std::map<std::uint64_t, std::uint32_t> found;
        const std::regex entry("__DATA +\\S+ +(0x\\S+) +pointer");
        for (const std::string& line : lines(output("llvm-objdump-19 --macho --rebase '" + path + "'"))) {
            std::smatch match;
            if (std::regex_search(line, match, entry)) {
                const std::uint64_t place = std::stoull(match.str(1), nullptr, 16);
                found[place] = word(place);
            }
        }
        return found;
    }
    static bool lies(std::uint64_t address, const Fields& section) {
        return address >= section.number("addr") && address - section.number("addr") < section.number("size");
    }
    /// The addresses of all symbols whose names begin so.
    std::set<std::uint64_t> addresses(const std::string& beginning) const {
        std::set<std::uint64_t> found;
        for (const auto& [name, address] : named) {
            if (name.starts_with(beginning)) {
                found.insert(address);
            }
        }
        return found;
    }

    std::set<std::uint64_t> starts; // of functions; odd, as they are called
    std::multimap<std::string, std::uint64_t> named;
};

TEST_F(Armv7Pointers, LeadToTheStartsOfThumbFunctions) {
    const Fields code = section("__TEXT", "__text");
    ASSERT_GT(starts.size(), 500U);
    for (const std::uint64_t start : starts) {
        ASSERT_EQ(start % 2, 1U);
    }

    int intoCode = 0;
    for (const auto& [place, pointer] : pointers()) {
        if (lies(pointer, code)) {
            ++intoCode;
            EXPECT_TRUE(starts.contains(pointer)) << std::hex << pointer << " at " << place;
        }
    }
    EXPECT_GT(intoCode, 10);
}

// The way to an import that is not bound yet is the linker's own, and no Thumb code.
TEST_F(Armv7Pointers, ThatAreNotBoundYetLeadToTheWayToTheImport) {
    const Fields imports = section("__DATA", "__la_symbol_ptr");
    const Fields ways = section("__TEXT", "__stub_helper");
    for (const auto& [place, pointer] : pointers()) {
        EXPECT_EQ(lies(pointer, ways), lies(place, imports)) << std::hex << place;
        EXPECT_TRUE(!lies(pointer, ways) || pointer % 4 == 0) << std::hex << pointer << " at " << place;
    }
}

TEST_F(Armv7Pointers, OfABlocksDescriptionLeadToWhatCopiesAndDestroysItsCaptures) {
    const Fields code = section("__TEXT", "__text");
    const auto copying = addresses("___copy_helper_block_");
    const auto destroying = addresses("___destroy_helper_block_");
    std::set<std::uint64_t> copied;
    std::set<std::uint64_t> destroyed;

    for (const std::uint64_t description : addresses("___block_descriptor_")) {
        const std::uint32_t copy = word(description + 8);
        const std::uint32_t destroy = word(description + 12);
        ASSERT_EQ(lies(copy, code), lies(destroy, code)) << "or neither, where nothing captured wants it";
        if (lies(copy, code)) {
            EXPECT_TRUE(copy % 2 == 1 && copying.contains(copy - 1)) << std::hex << copy;
            EXPECT_TRUE(destroy % 2 == 1 && destroying.contains(destroy - 1)) << std::hex << destroy;
            copied.insert(copy - 1);
            destroyed.insert(destroy - 1);
        }
    }
    EXPECT_FALSE(copying.empty());
    EXPECT_EQ(copied, copying) << "each is used";
    EXPECT_EQ(destroyed, destroying);
}

} // namespace

} // namespace package
