#include "tests/macho/GuestFile.h"
#include "tests/packages/InstallTest.h"

#include <elf.h>

using namespace phone;
using namespace phone::macho;
using testing::HasSubstr;

namespace {

constexpr const char* path = "/Library/MobileSubstrate/DynamicLibraries/T.dylib";

class RefusedLibraryTest : public InstallTest {
protected:
    static DebBuilder packageOf(const std::string& library, const std::string& devicePath = path) {
        DebBuilder package;
        package.files = {debFolder("./Library"),
                         debFolder("./Library/MobileSubstrate"),
                         debFolder("./Library/MobileSubstrate/DynamicLibraries"),
                         {"." + devicePath, library}};
        return package;
    }
    void expectNotLoaded(const std::string& library, const std::string& why) {
        expectRefused(packageOf(library), std::string(path) + " is a library that the phone does not load: " + why);
    }
    void expectForeign(const std::string& library) {
        expectRefused(packageOf(library), std::string(path) + " is no library for this machine; install the package " +
                                              "whose name ends in _" + nameOf(thisProcessor) + ".deb");
    }
    static std::string sharedObject() { return readBytes(std::string(STAGE_DIRECTORY) + quorvan); }

    static constexpr const char* quorvan = "/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib";
};

} // namespace

TEST_F(RefusedLibraryTest, AWholeOneIsInstalled) {
    for (const std::string& library : {guest(), fat(thisProcessor, guest()), sharedObject()}) {
        EXPECT_EQ(install(packageOf(library)), 0) << errors;
        EXPECT_EQ(file(path), library);
    }
}

TEST_F(RefusedLibraryTest, OfOtherProcessorsOnlyNamesThem) {
    const std::string end = " and none for " + nameOf(thisProcessor) +
                            ", which the phone here runs on; install the package whose name ends in _" +
                            nameOf(thisProcessor) + ".deb";
    expectRefused(packageOf(fat(i386Processor, guest())), std::string(path) + " holds a slice for armv7, i386" + end);
    expectRefused(packageOf(fat(99, guest())), std::string(path) + " holds a slice for armv7, processor 99" + end);
    std::string thin = guest();
    header(thin).processor = armv7Processor;
    expectRefused(packageOf(thin), std::string(path) + " holds a slice for armv7" + end);
}

TEST_F(RefusedLibraryTest, TruncatedInsideItsSlice) {
    const std::string whole = guest();
    expectNotLoaded(fat(thisProcessor, whole.substr(0, whole.size() - 1)), "the file ends before segment __LINKEDIT");
    expectNotLoaded(fat(thisProcessor, whole.substr(0, 5000)), "the file ends before segment __");
    expectNotLoaded(fat(thisProcessor, whole.substr(0, 40)), "the file ends before the load commands");
    expectNotLoaded(fat(thisProcessor, ""), "the file ends before the header");
    expectNotLoaded(whole.substr(0, whole.size() - 1), "the file ends before segment __LINKEDIT");
    expectNotLoaded(whole.substr(0, 4), "the file ends before the header");
}

TEST_F(RefusedLibraryTest, WithAnOffsetThatLeadsOut) {
    std::string outside = fat(thisProcessor, guest());
    outside.pop_back();
    expectNotLoaded(outside, "the file ends before the end of its slice");
    std::string bytes = guest();
    segment(bytes, LinkEdit).fileOffset += 0x100000;
    expectNotLoaded(bytes, "the file ends before segment __LINKEDIT");
    bytes = guest();
    fixups(bytes).bindOffset = 0xfffffff0;
    expectNotLoaded(fat(thisProcessor, bytes), "the file ends before the binds");
}

TEST_F(RefusedLibraryTest, WithPointersThatLeadElsewhere) {
    std::string bytes = guest();
    in<std::uint64_t>(bytes, section(bytes, "__mod_init_func").offset) = 1ULL << 40;
    expectNotLoaded(bytes, "a pointer into itself points elsewhere");
}

TEST_F(RefusedLibraryTest, ThatAsksForALaterVersionThanDevicesHave) {
    const std::string needed = "/usr/lib/libSystem.B.dylib";
    std::string bytes = guest();
    dependency(bytes, needed).compatibleVersion = 0x0001'0000;
    EXPECT_EQ(install(packageOf(bytes)), 0) << errors;

    for (const std::uint32_t kind : {LoadLibrary, ReexportedLibrary, UpwardLibrary}) {
        dependency(bytes, needed).command.kind = kind;
        dependency(bytes, needed).compatibleVersion = 0x0001'0001;
        expectNotLoaded(bytes, "Library not loaded: /usr/lib/libSystem.B.dylib; Reason: Incompatible library version: "
                               "libGuest.dylib requires version 1.0.1 or later, but libSystem.B.dylib provides "
                               "version 1.0.0");
    }
    dependency(bytes, needed).command.kind = WeakLibrary; // to the loader it is missing
    EXPECT_EQ(install(packageOf(bytes)), 0) << errors;
}

TEST_F(RefusedLibraryTest, WhatIsNone) {
    expectForeign("text");
    expectForeign("");
    expectForeign(std::string("\xca\xfe\xba\xbe\0\0\0\0", 8)); // of no slices
    expectNotLoaded(fat(thisProcessor, std::string(5000, 'x')), "the header has an unknown magic");
}

TEST_F(RefusedLibraryTest, ASharedObjectThatIsForeignOrCutOff) {
    std::string foreign = sharedObject();
    in<Elf64_Ehdr>(foreign, 0).e_machine = EM_ARM;
    expectForeign(foreign);
    foreign = sharedObject();
    in<Elf64_Ehdr>(foreign, 0).e_type = ET_REL;
    expectForeign(foreign);
    expectNotLoaded(sharedObject().substr(0, 30), "the file ends before the header");
    expectNotLoaded(sharedObject().substr(0, 80), "the file ends before its segments");
    expectNotLoaded(sharedObject().substr(0, 5000), "the file ends before the end of a segment");
}

TEST_F(RefusedLibraryTest, AFileThatTheLoaderDoesNotTouchMayBeAnything) {
    EXPECT_EQ(install(packageOf("text", "/Library/MobileSubstrate/DynamicLibraries/T.plist")), 0) << errors;
    EXPECT_EQ(install(packageOf("text", "/Library/MobileSubstrate/T.dylib")), 0) << errors;
}
