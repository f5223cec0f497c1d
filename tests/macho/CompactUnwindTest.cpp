#include "phone/macho/CompactUnwind.h"

#include "phone/macho/Image.h"
#include "tests/macho/GuestFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace phone::macho {
namespace {

using Code = std::vector<std::uint8_t>;

bool holds(const Code& descriptions, const Code& expected) {
    return std::search(descriptions.begin(), descriptions.end(), expected.begin(), expected.end()) !=
           descriptions.end();
}

bool isRefusedOnArm64(std::uint32_t encoding) {
    try {
        (void)frameDescriptions({{0x1000, 0x1234, encoding}}, 0, arm64Processor);
        return false;
    } catch (const Refusal&) {
        return true;
    }
}

TEST(CompactUnwind, SavedRegistersAreWhereThePrologueLeftThem) {
    // After the frame pointer were pushed: r15, r14, r13, r12, rbx.
    constexpr std::uint32_t encoding = 0x010558d1;

    const Code descriptions = frameDescriptions({{0x1000, 0x1234, encoding}}, 0x70000, x86_64Processor);

    const Code expected = {
        0x00, 0x10, 0x07, 0, 0,    0, 0,    0,          // begins at 0x71000,
        0x34, 0x02, 0,    0, 0,    0, 0,    0,          // 0x234 bytes long
        0x00,                                           // nothing more about it
        0x0c, 6,    16,                                 // the caller's stack pointer is rbp + 16,
        0x90, 1,                                        // below which are: the return address,
        0x86, 2,                                        // rbp,
        0x83, 7,    0x8c, 6, 0x8d, 5, 0x8e, 4, 0x8f, 3, // rbx, r12, r13, r14, r15
    };
    EXPECT_TRUE(holds(descriptions, expected));
}

TEST(CompactUnwind, PairsOnArm64LieBelowTheFrameInTheirOrder) {
    // x19 and x20, x23 and x24, d8 and d9.
    constexpr std::uint32_t encoding = 0x04000105;

    const Code descriptions = frameDescriptions({{0x1000, 0x1234, encoding}}, 0x70000, arm64Processor);

    const Code expected = {
        0x0c, 29, 16,                           // the caller's stack pointer is x29 + 16,
        0x9e, 1,  0x9d, 2,                      // below which are: x30, x29,
        0x93, 3,  0x94, 4,    0x97, 5, 0x98, 6, // x19, x20, x23, x24,
        0x05, 72, 7,    0x05, 73,   8,          // d8, d9
    };
    EXPECT_TRUE(holds(descriptions, expected));
}

TEST(CompactUnwind, OnArm64AFunctionThatCallsNothingHasItsWayBackInARegister) {
    // Ten times 16 bytes of variables.
    const Code descriptions = frameDescriptions({{0x1000, 0x1234, 0x0200a000}}, 0, arm64Processor);

    const Code expected = {0x0c, 31, 0xa0, 0x01, 0, 0, 0}; // the stack pointer and 160, nothing saved
    EXPECT_TRUE(holds(descriptions, expected));
}

TEST(CompactUnwind, UnknownFramesOnArm64AreRefused) {
    EXPECT_TRUE(isRefusedOnArm64(0x03000000)); // described elsewhere
    EXPECT_TRUE(isRefusedOnArm64(0x04000020)); // no such pair
    EXPECT_TRUE(isRefusedOnArm64(0x02001001)); // registers without a frame
    EXPECT_TRUE(isRefusedOnArm64(0x44000001)); // handlers of its own
    EXPECT_FALSE(isRefusedOnArm64(0x0400001f));
}

TEST(CompactUnwind, TheSliceForArm64IsReadToItsEnd) {
    const std::string bytes = readBytes(ARM64_SLICE);

    const Image image = Image::read(Bytes(bytes), arm64Processor);

    std::uint64_t described = 0;
    std::set<std::uint32_t> encodings;
    for (const UnwindEntry& entry : image.unwindEntries) {
        EXPECT_EQ(entry.start % 4, 0U);
        described += entry.end - entry.start;
        encodings.insert(entry.encoding);
    }
    EXPECT_GT(image.unwindEntries.size(), 100U);
    EXPECT_GT(described, image.segments.front().size / 2);
    EXPECT_TRUE(encodings.contains(0x04000003)); // x19 to x22, the commonest
    EXPECT_FALSE(frameDescriptions(image.unwindEntries, 0, arm64Processor).empty());
}

TEST(CompactUnwind, DescriptionsEndWithAnEmptyOne) {
    const Code descriptions = frameDescriptions({}, 0, x86_64Processor);

    EXPECT_EQ(Code(descriptions.end() - 4, descriptions.end()), Code(4, 0));
}

} // namespace
} // namespace phone::macho
