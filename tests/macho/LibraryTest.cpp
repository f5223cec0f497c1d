#include "phone/macho/Library.h"
#include "phone/macho/Slice.h"
#include "tests/flow/TemporaryFolder.h"
#include "tests/macho/GuestFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <vector>

namespace {

std::vector<std::string> recorded;
std::map<std::string, const void*> taken;
int numbers[3] = {1, 2, 3};
int present = 5;
int sharedByAnother = 9;

void record(const char* what) { recorded.emplace_back(what); }
void take(const char* name, const void* address) { taken[name] = address; }

} // namespace

namespace phone::macho {
namespace {

constexpr InstalledLibrary host = {"/usr/lib/libHost.dylib", Version::of(1)};

template <class Function>
const void* code(Function* function) {
    return reinterpret_cast<const void*>(function);
}

class LibraryTest : public testing::Test {
protected:
    LibraryTest() {
        recorded.clear();
        taken.clear();
        exports.add(host, {{"_hostNumbers", &numbers}, {"_hostRecord", code(&record)}, {"_hostTake", code(&take)}});
    }

    void loadGuest() const { load(GUEST, exports); }
    /// The small library, asking for a later version of the other one than there is, in a load command of this kind.
    static std::string askingForMore(std::uint32_t kind) {
        std::string bytes = guest();
        dependency(bytes, host.path).command.kind = kind;
        dependency(bytes, host.path).compatibleVersion = 0x0001'0203;
        return bytes;
    }
    std::string refusalOf(const std::string& bytes) const {
        try {
            load(folder.write("Guest.dylib", bytes), exports);
            return "";
        } catch (const Refusal& refused) {
            return refused.what();
        }
    }
    /// How the page of an address may be used, as the system says: "rw-".
    static std::string protection(const void* address) {
        std::ifstream maps("/proc/self/maps");
        for (std::string line; std::getline(maps, line);) {
            std::istringstream fields(line);
            std::uintptr_t begin = 0;
            std::uintptr_t end = 0;
            char dash = 0;
            std::string rights;
            fields >> std::hex >> begin >> dash >> end >> rights;
            const auto at = reinterpret_cast<std::uintptr_t>(address);
            if (begin <= at && at < end) {
                return rights.substr(0, 3);
            }
        }
        return "";
    }

    Exports exports = Exports::ofThePhone();
    TemporaryFolder folder;
};

TEST_F(LibraryTest, InitialisersRunOnceAndInOrder) {
    loadGuest();

    EXPECT_EQ(recorded, (std::vector<std::string>{"first", "second", "last"}));
}

TEST_F(LibraryTest, PointersIntoItselfAreMovedWithIt) {
    loadGuest();

    EXPECT_STREQ(static_cast<const char*>(taken.at("word")), "beta");
}

TEST_F(LibraryTest, PointersToOthersCountFromTheSymbol) {
    loadGuest();

    EXPECT_EQ(taken.at("third"), &numbers[2]);
}

TEST_F(LibraryTest, WhatIsNotInTheFileIsZero) {
    loadGuest();

    const auto* zeroes = static_cast<const int*>(taken.at("zeroes"));
    EXPECT_EQ(std::count(zeroes, zeroes + 2000, 0), 2000);
}

TEST_F(LibraryTest, AWeakImportThatIsMissingIsNull) {
    loadGuest();

    EXPECT_EQ(taken.at("mayLack"), nullptr);
    EXPECT_EQ(taken.at("mayLackToo"), nullptr);
}

TEST_F(LibraryTest, AWeakImportThatIsThereIsBound) {
    exports.add(host, {{"_hostMayLack", &present}});

    loadGuest();

    EXPECT_EQ(taken.at("mayLack"), &present);
}

TEST_F(LibraryTest, ASharedDefinitionIsItsOwnWhereNobodyElseHasOne) {
    loadGuest();

    EXPECT_EQ(*static_cast<const int*>(taken.at("shared")), 7);
}

TEST_F(LibraryTest, ASharedDefinitionGivesWayToAnothers) {
    exports.add(host, {{"__ZN6Shared6numberE", &sharedByAnother}});

    loadGuest();

    EXPECT_EQ(taken.at("shared"), &sharedByAnother);
}

TEST_F(LibraryTest, SegmentsAreProtectedAsTheySay) {
    loadGuest();

    EXPECT_EQ(protection(taken.at("callDeep")), "r-x");
    EXPECT_EQ(protection(taken.at("zeroes")), "rw-");
}

TEST_F(LibraryTest, AnExceptionPassesThroughItsFrames) {
    loadGuest();
    const auto callDeep = reinterpret_cast<long (*)(long (*)(long), int)>(const_cast<void*>(taken.at("callDeep")));
    EXPECT_EQ(callDeep([](long number) { return number; }, 4), 3 * 1 + 7 * 2 + 12 + 5 + 4);

    long caught = 0;
    for (long kept = 1; kept <= 3; ++kept) {
        try {
            callDeep([](long number) -> long { throw number; }, 4);
        } catch (long number) {
            caught += number * kept;
        }
    }

    EXPECT_EQ(caught, 3 * (1 + 2 + 3));
}

TEST_F(LibraryTest, AMissingSymbolIsNamedAndNothingRuns) {
    exports = Exports::ofThePhone();
    exports.add(host, {{"_hostRecord", code(&record)}, {"_hostTake", code(&take)}});

    EXPECT_EQ(refusalOf(guest()), "the symbol _hostNumbers is missing");
    EXPECT_TRUE(recorded.empty());
}

TEST_F(LibraryTest, ASymbolOfAnotherLibraryIsMissing) {
    exports = Exports::ofThePhone();
    exports.add(host, {{"_hostRecord", code(&record)}, {"_hostTake", code(&take)}});
    exports.add({"/usr/lib/libOther.dylib", Version::of(1)}, {{"_hostNumbers", &numbers}});

    EXPECT_EQ(refusalOf(guest()), "the symbol _hostNumbers is missing");
}

TEST_F(LibraryTest, AMissingLibraryIsNamed) {
    exports = Exports::ofThePhone();

    EXPECT_EQ(refusalOf(guest()), "it needs /usr/lib/libHost.dylib, which there is not");
}

// Holds: load-versions
TEST_F(LibraryTest, AnOlderLibraryThanItNeedsIsNamedInTheWordsOfTheDevicesLoader) {
    for (const std::uint32_t kind : {LoadLibrary, ReexportedLibrary, UpwardLibrary}) {
        EXPECT_EQ(refusalOf(askingForMore(kind)),
                  "Library not loaded: /usr/lib/libHost.dylib; Reason: Incompatible library version: "
                  "libGuest.dylib requires version 1.2.3 or later, but libHost.dylib provides version 1.0.0");
    }
    EXPECT_TRUE(recorded.empty());
}

TEST_F(LibraryTest, ALaterLibraryThanItNeedsWillDo) {
    exports.add({host.path, {0x0001'0203}}, {});

    EXPECT_EQ(refusalOf(askingForMore(LoadLibrary)), "");

    EXPECT_EQ(recorded.size(), 3U);
}

// Holds: load-versions
TEST_F(LibraryTest, AnOlderLibraryThatMayBeMissingIsMissing) {
    EXPECT_EQ(refusalOf(askingForMore(WeakLibrary)), "the symbol _hostNumbers is missing");
}

TEST_F(LibraryTest, APointerIntoItselfThatLeadsOutIsRefused) {
    std::string bytes = guest();
    in<std::uint64_t>(bytes, section(bytes, "__mod_init_func").offset) = 1ULL << 40;

    EXPECT_EQ(refusalOf(bytes), "a pointer into itself points elsewhere");
}

TEST_F(LibraryTest, AnInitialiserThatIsNoCodeIsRefused) {
    std::string bytes = guest();
    in<std::uint64_t>(bytes, section(bytes, "__mod_init_func").offset) = segment(bytes, Data).address;

    EXPECT_EQ(refusalOf(bytes), "an initialiser is no code of its own");
    EXPECT_TRUE(recorded.empty());
}

TEST_F(LibraryTest, TheSliceForThisMachineIsTakenOutOfAFatFile) {
    EXPECT_EQ(refusalOf(fat(thisProcessor, guest())), "");

    EXPECT_EQ(recorded.size(), 3U);
}

TEST_F(LibraryTest, AFatFileWithoutASliceForThisMachineIsRefused) {
    EXPECT_EQ(refusalOf(fat(7, guest())), "no slice for " + nameOf(thisProcessor));
}

TEST_F(LibraryTest, AFatFileThatEndsTooEarlyIsRefused) {
    const std::string whole = fat(thisProcessor, guest());

    EXPECT_EQ(refusalOf(whole.substr(0, 6)), "the file ends before the fat header");
    EXPECT_EQ(refusalOf(whole.substr(0, 20)), "the file ends before the fat header");
    EXPECT_EQ(refusalOf(whole.substr(0, whole.size() - 1)), "the file ends before the end of its slice");
}

TEST_F(LibraryTest, AFatFileOfTooManySlicesIsRefused) {
    std::string bytes = fat(thisProcessor, guest());
    in<FatHeader>(bytes, 0).count = 0xffffffff;

    EXPECT_EQ(refusalOf(bytes), "the fat header counts 4294967295 slices");
}

} // namespace
} // namespace phone::macho
