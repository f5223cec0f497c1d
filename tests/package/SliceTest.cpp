#include "tests/package/ShippedPackage.h"

#include <gmock/gmock.h>

#include <map>
#include <regex>

using testing::Contains;
using testing::ElementsAre;
using testing::IsSubsetOf;

namespace package {

namespace {

using Names = std::set<std::string>;

class AnySlice : public ShippedPackage {
protected:
    /// The symbols bound at load or at first use, and whether the library still loads where they are missing.
    std::map<std::string, bool> imports(const std::string& path) {
        std::map<std::string, bool> found;
        for (const std::string& line : lines(output("llvm-objdump-19 --macho --bind --lazy-bind '" + path + "'"))) {
            std::smatch match;
            if (std::regex_search(line, match, std::regex("(?:^|\\s)__DATA .* (\\w+)( \\(weak_import\\))?$"))) {
                found[match.str(1)] = match[2].matched;
            }
        }
        return found;
    }
};

/// One slice, as an independent reader shows it.
class Slice : public AnySlice, public testing::WithParamInterface<const char*> {
protected:
    Slice() : path(slice(GetParam())), commands(output("llvm-otool-19 -l '" + path + "'")) {}

    /// The first group of every match in the load commands.
    Lines all(const std::string& pattern) const {
        Lines found;
        const std::regex expression(pattern);
        for (std::sregex_iterator match(commands.begin(), commands.end(), expression), end; match != end; ++match) {
            found.push_back(match->str(1));
        }
        return found;
    }
    Names kinds() const {
        const Lines found = all(" cmd (LC_\\w+)");
        return {found.begin(), found.end()};
    }

    std::string path;
    std::string commands;
};

TEST_P(Slice, IsADynamicLibraryUnderItsPathOnTheDevice) {
    EXPECT_THAT(all("cmd LC_ID_DYLIB\n.*\n +name (\\S+)"),
                ElementsAre("/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib"));
    EXPECT_THAT(output("llvm-otool-19 -hv '" + path + "'"), testing::HasSubstr("DYLIB"));
}

TEST_P(Slice, HasLoadCommandsThatOldSystemsKnow) {
    EXPECT_THAT(kinds(),
                IsSubsetOf(Names{"LC_SEGMENT", "LC_SEGMENT_64", "LC_DYLD_INFO_ONLY", "LC_SYMTAB", "LC_DYSYMTAB",
                                 "LC_ID_DYLIB", "LC_UUID", "LC_VERSION_MIN_IPHONEOS", "LC_SOURCE_VERSION",
                                 "LC_LOAD_DYLIB", "LC_FUNCTION_STARTS", "LC_DATA_IN_CODE", "LC_CODE_SIGNATURE"}));
    EXPECT_THAT(kinds(), Contains("LC_DYLD_INFO_ONLY"));
    EXPECT_THAT(kinds(), Contains("LC_CODE_SIGNATURE"));
    EXPECT_THAT(all("segname (__\\w+)\n +vmaddr"), ElementsAre("__TEXT", "__DATA", "__LINKEDIT"));
}

// Later systems refuse a library whose segments overlap.
TEST_P(Slice, HasSegmentsThatLieOneBehindTheOther) {
    const auto numbers = [&](const std::string& name, int base) {
        std::vector<std::uint64_t> found;
        for (const std::string& number : all("segname __\\w+\n(?: .*\n){0,3}? +" + name + " (\\w+)")) {
            found.push_back(std::stoull(number, nullptr, base));
        }
        return found;
    };
    const auto address = numbers("vmaddr", 16);
    const auto length = numbers("vmsize", 16);
    const auto offset = numbers("fileoff", 10);
    const auto size = numbers("filesize", 10);

    ASSERT_EQ(address.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_LE(size.at(i), length.at(i));
        if (i > 0) {
            EXPECT_LE(address[i - 1] + length[i - 1], address[i]);
            EXPECT_LE(offset[i - 1] + size[i - 1], offset[i]);
        }
    }
}

TEST_P(Slice, LoadsOnTheOldestSystemOfItsProcessor) {
    const std::string oldest = GetParam() == std::string("armv7") ? "6.0" : "7.0";
    EXPECT_THAT(all("cmd LC_VERSION_MIN_IPHONEOS\n.*\n +version (\\S+)"), ElementsAre(oldest));
}

TEST_P(Slice, TakesTheseSymbolsFromThePlatform) {
    Names found;
    for (const auto& [name, isWeak] : imports(path)) {
        found.insert(name);
    }
    Names expected = {"_CGContextAddLineToPoint",
                      "_CGContextMoveToPoint",
                      "_CGContextSetLineWidth",
                      "_CGContextSetStrokeColorWithColor",
                      "_CGContextStrokePath",
                      "_MSHookMessageEx",
                      "_NSGregorianCalendar",
                      "_UIActivityTypeAddToReadingList",
                      "_UIActivityTypeAirDrop",
                      "_UIActivityTypeAssignToContact",
                      "_UIActivityTypeCopyToPasteboard",
                      "_UIActivityTypePostToFacebook",
                      "_UIActivityTypePostToTwitter",
                      "_UIActivityTypePostToWeibo",
                      "_UIActivityTypePrint",
                      "_UIActivityTypeSaveToCameraRoll",
                      "_UIGraphicsGetCurrentContext",
                      "_UIKeyboardDidShowNotification",
                      "_UIKeyboardFrameBeginUserInfoKey",
                      "__NSConcreteStackBlock",
                      "___stack_chk_fail",
                      "___stack_chk_guard",
                      "_class_addIvar",
                      "_class_addMethod",
                      "_class_addProtocol",
                      "_class_getInstanceMethod",
                      "_class_getInstanceVariable",
                      "_class_getSuperclass",
                      "_ivar_getOffset",
                      "_objc_allocateClassPair",
                      "_objc_getClass",
                      "_objc_getProtocol",
                      "_objc_lookUpClass",
                      "_objc_msgSend",
                      "_objc_msgSendSuper",
                      "_objc_registerClassPair",
                      "_object_getClass",
                      "_sel_registerName",
                      "dyld_stub_binder"};
    if (GetParam() != std::string("arm64")) {
        expected.insert("_objc_msgSend_stret"); // structures come back through memory
    }
    EXPECT_EQ(found, expected);
}

TEST_P(Slice, OffersNothingByName) {
    EXPECT_EQ(output("llvm-nm-19 --defined-only --extern-only '" + path + "'"), "");
    EXPECT_EQ(output("llvm-objdump-19 --macho --exports-trie '" + path + "' | grep -c 0x || true"), "0\n");
}

TEST_P(Slice, RunsOneInitialiserAtLoad) {
    const std::string pointer = GetParam() == std::string("armv7") ? "0x0*4" : "0x0*8";
    const Lines sizes = all("sectname __mod_init_func\n.*\n.*\n +size (\\S+)");
    ASSERT_EQ(sizes.size(), 1U);
    EXPECT_TRUE(std::regex_match(sizes[0], std::regex(pointer))) << sizes[0];
    EXPECT_THAT(all("sectname (__mod_term_func|__init_offsets)"), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Every, Slice, testing::Values("arm64", "armv7", "x86_64"),
                         [](const auto& info) { return std::string(info.param); });

/// What is the oldest processor's alone; most of it its linker is known to get wrong.
class Armv7 : public AnySlice {
protected:
    const std::string linked = BUILD_DIRECTORY "/package/armv7/Quorvan.dylib.linked";
};

TEST_F(Armv7, LoadsOnSystemsThatLackAConstant) {
    const auto found = imports(slice("armv7"));
    for (const char* name : {"_UIActivityTypeAirDrop", "_UIActivityTypeAddToReadingList"}) { // since 7.0
        EXPECT_TRUE(found.at(name)) << name;
    }
    for (const char* name : {"_MSHookMessageEx", "_objc_msgSend", "_UIGraphicsGetCurrentContext"}) {
        EXPECT_FALSE(found.at(name)) << name;
    }
}

TEST_F(Armv7, HasNoPointersThatTheLinkerLeavesAtZero) {
    EXPECT_EQ(status("llvm-otool-19 -l '" + slice("armv7") + "' | grep __nl_symbol_ptr"), 1);
}

TEST_F(Armv7, HasNoJumpsFromThumbToAnotherLibrary) { EXPECT_EQ(status("llvm-nm-19 '" + linked + "' | grep shim"), 1); }

} // namespace

} // namespace package
