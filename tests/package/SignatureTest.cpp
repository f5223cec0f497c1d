#include "tests/package/ShippedPackage.h"

#include <gmock/gmock.h>
#include <nettle/sha1.h>
#include <nettle/sha2.h>

#include <algorithm>
#include <cstdint>
#include <map>

namespace package {

namespace {

using Bytes = std::string;

std::uint32_t big(const Bytes& bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
    }
    return value;
}

std::uint32_t little(const Bytes& bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
    }
    return value;
}

Bytes hash(int type, const Bytes& data) {
    const auto* start = reinterpret_cast<const std::uint8_t*>(data.data());
    std::uint8_t digest[SHA256_DIGEST_SIZE];
    if (type == 1) {
        sha1_ctx context;
        sha1_init(&context);
        sha1_update(&context, data.size(), start);
        sha1_digest(&context, SHA1_DIGEST_SIZE, digest);
        return {reinterpret_cast<char*>(digest), SHA1_DIGEST_SIZE};
    }
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, data.size(), start);
    sha256_digest(&context, SHA256_DIGEST_SIZE, digest);
    return {reinterpret_cast<char*>(digest), SHA256_DIGEST_SIZE};
}

/// The signature of a slice as it ships; where it lies comes from a reader that is not ours.
class Signature : public ShippedPackage, public testing::WithParamInterface<const char*> {
protected:
    Signature() {
        const std::string path = slice(GetParam());
        const Lines place = lines(
            output("llvm-otool-19 -l '" + path + "' | awk '/LC_CODE_SIGNATURE/ { n = 1 } n && /data/ { print $2 }'"));
        library = folder.read(std::string(GetParam()) + "/Quorvan.dylib");
        offset = std::stoul(place.at(0));
        blob = library.substr(offset, std::stoul(place.at(1)));
        for (std::uint32_t i = 0; i < big(blob, 8); ++i) {
            const std::uint32_t start = big(blob, 16 + 8 * i);
            slots[big(blob, 12 + 8 * i)] = blob.substr(start, big(blob, start + 4));
        }
    }
    void expectPagesToMatch(const Bytes& directory, int type, std::size_t hashSize) {
        ASSERT_EQ(big(directory, 0), 0xfade0c02U);
        EXPECT_EQ(big(directory, 8), 0x20400U);
        EXPECT_EQ(big(directory, 12), 0U) << "flags";
        EXPECT_EQ(directory.at(36), static_cast<char>(hashSize));
        EXPECT_EQ(directory.at(37), type);
        EXPECT_EQ(directory.at(39), 12) << "pages of 4096 bytes";
        EXPECT_STREQ(directory.c_str() + big(directory, 20), "Quorvan.dylib");
        EXPECT_EQ(big(directory, 32), offset) << "everything before the signature is signed";

        const std::uint32_t hashes = big(directory, 16);
        EXPECT_EQ(big(directory, 24), 2U);
        EXPECT_EQ(directory.substr(hashes - hashSize, hashSize), Bytes(hashSize, '\0')) << "no bundle's description";
        EXPECT_EQ(directory.substr(hashes - 2 * hashSize, hashSize), hash(type, slots.at(2))) << "requirements";
        const std::uint32_t pages = big(directory, 28);
        ASSERT_EQ(pages, (offset + 4095) / 4096);
        for (std::uint32_t page = 0; page < pages; ++page) {
            const Bytes code = library.substr(page * 4096, std::min<std::size_t>(4096, offset - page * 4096));
            EXPECT_EQ(directory.substr(hashes + page * hashSize, hashSize), hash(type, code)) << "page " << page;
        }
        EXPECT_EQ(hashes + pages * hashSize, directory.size());
    }

    Bytes library;
    Bytes blob;
    std::size_t offset = 0;
    std::map<std::uint32_t, Bytes> slots;
};

TEST_P(Signature, HasADirectoryForOldSystemsRequirementsAndADirectoryForNewOnes) {
    EXPECT_EQ(big(blob, 0), 0xfade0cc0U);
    EXPECT_EQ(big(blob, 4), blob.size());
    ASSERT_EQ(slots.size(), 3U);
    EXPECT_TRUE(slots.contains(0));
    EXPECT_TRUE(slots.contains(0x1000));
    EXPECT_EQ(slots.at(2), Bytes("\xfa\xde\x0c\x01\0\0\0\x0c\0\0\0\0", 12));
}

TEST_P(Signature, MatchesEveryPageInBothDirectories) {
    expectPagesToMatch(slots.at(0), 1, SHA1_DIGEST_SIZE);
    expectPagesToMatch(slots.at(0x1000), 2, SHA256_DIGEST_SIZE);
}

TEST_P(Signature, SaysWhereTheCodeLies) {
    const std::size_t text = GetParam() == std::string("armv7") ? 28 : 32; // the first segment, behind the header
    ASSERT_EQ(library.substr(text + 8, 6), "__TEXT");
    for (const std::uint32_t slot : {0U, 0x1000U}) {
        EXPECT_EQ(big(slots.at(slot), 64 + 4), 0U);
        EXPECT_EQ(big(slots.at(slot), 72 + 4), little(library, text + (text == 28 ? 36 : 48)));
        EXPECT_EQ(big(slots.at(slot), 80 + 4), 0U) << "a library is no program";
    }
}

TEST_P(Signature, EndsTheFileInsideTheLastSegment) {
    EXPECT_EQ(offset % 16, 0U);
    EXPECT_EQ(offset + blob.size(), library.size());
    const Lines last =
        lines(output("llvm-otool-19 -l '" + folder.path(std::string(GetParam()) + "/Quorvan.dylib") +
                     "' | awk '/segname __LINKEDIT/ { n = 1 } n && /fileoff|filesize|vmsize/ { print $2 }'"
                     " | head -3"));
    ASSERT_EQ(last.size(), 3U);
    const std::size_t memory = std::stoul(last[0], nullptr, 16);
    const std::size_t start = std::stoul(last[1]);
    const std::size_t size = std::stoul(last[2]);
    EXPECT_EQ(start + size, library.size());
    EXPECT_GE(memory, size);
}

INSTANTIATE_TEST_SUITE_P(Every, Signature, testing::Values("arm64", "armv7", "x86_64"),
                         [](const auto& info) { return std::string(info.param); });

class SignDylib : public ShippedPackage {
protected:
    /// What the tool complains of; expects it to refuse the file and to write nothing.
    std::string refusal(const std::string& file) {
        EXPECT_EQ(status("'" SIGN_DYLIB "' '" + file + "' '" + folder.path("signed.dylib") + "'"), 1);
        EXPECT_FALSE(std::filesystem::exists(folder.path("signed.dylib")));
        const Lines complaint = lines(folder.read("errors"));
        EXPECT_EQ(complaint.size(), 1U);
        return complaint.empty() ? "" : complaint[0];
    }
    std::string unsignedSlice(const std::string& arch) {
        std::ifstream in(BUILD_DIRECTORY "/package/" + arch + "/Quorvan.dylib.unsigned", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::string file(const std::string& content) { return folder.write("given.dylib", content); }
};

TEST_F(SignDylib, RefusesWhatIsNoMachO) {
    EXPECT_EQ(refusal(file("#!/bin/sh\necho this is a text of more than thirty-two bytes\n")),
              "sign-dylib: " + folder.path("given.dylib") + ": not a Mach-O file of one processor");
    EXPECT_THAT(refusal(file("")), testing::HasSubstr("not a Mach-O file"));
    EXPECT_THAT(refusal(file(Bytes("\xca\xfe\xba\xbe", 4) + Bytes(100, '\0'))),
                testing::HasSubstr("not a Mach-O file"));
}

TEST_F(SignDylib, RefusesAnObjectThatIsNoLibrary) {
    Bytes program = unsignedSlice("arm64");
    program[12] = 2;
    EXPECT_THAT(refusal(file(program)), testing::HasSubstr("not a dynamic library"));
}

TEST_F(SignDylib, RefusesALibraryThatIsSignedAlready) {
    EXPECT_THAT(refusal(slice("arm64")), testing::HasSubstr("signed already"));
    EXPECT_THAT(refusal(slice("armv7")), testing::HasSubstr("signed already"));
}

TEST_F(SignDylib, RefusesALibraryWithoutRoomForALoadCommand) {
    Bytes full = unsignedSlice("arm64");
    // One command of unknown meaning that fills the gap before the code.
    const std::uint32_t code = 32 + 72 + 48; // the first section's place in the file
    const std::size_t end = 32 + little(full, 20);
    const std::uint32_t gap = little(full, code) - static_cast<std::uint32_t>(end);
    const auto set = [&](std::size_t place, std::uint32_t value) {
        for (int i = 0; i < 4; ++i) {
            full[place + i] = static_cast<char>(value >> 8 * i);
        }
    };
    set(end, 0x7fffffff);
    set(end + 4, gap - 8);
    set(16, little(full, 16) + 1);
    set(20, little(full, 20) + gap - 8);
    EXPECT_THAT(refusal(file(full)), testing::HasSubstr("no room for a load command"));
}

TEST_F(SignDylib, RefusesATruncatedLibrary) {
    const Bytes whole = unsignedSlice("arm64");
    for (const std::size_t size :
         {std::size_t{31}, std::size_t{40}, std::size_t{600}, whole.size() / 2, whole.size() - 1}) {
        SCOPED_TRACE(size);
        EXPECT_NE(refusal(file(whole.substr(0, size))), "");
    }
}

TEST_F(SignDylib, RefusesAFileThatCannotBeRead) {
    EXPECT_THAT(refusal(folder.path("missing")), testing::HasSubstr("cannot be read"));
    EXPECT_THAT(refusal(folder.path()), testing::HasSubstr("cannot be read"));
}

TEST_F(SignDylib, ReadsAndWritesWithinBoundsWhateverTheLoadCommandsSay) {
    for (const char* arch : {"arm64", "armv7"}) {
        const Bytes whole = unsignedSlice(arch);
        for (std::size_t place = 0; place < 400; place += 4) {
            Bytes broken = whole;
            broken.replace(place, 4, "\xff\xff\xff\xff");
            const int result = status("'" SIGN_DYLIB "' '" + file(broken) + "' '" + folder.path("signed.dylib") + "'");
            const Lines complaint = lines(folder.read("errors"));
            EXPECT_EQ(complaint.size(), static_cast<std::size_t>(result)) << arch << " at " << place;
            EXPECT_TRUE(complaint.empty() || complaint[0].starts_with("sign-dylib: ")) << complaint[0];
        }
    }
}

} // namespace

} // namespace package
