#include "phone/macho/CompactUnwind.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace phone::macho {
namespace {

using Code = std::vector<std::uint8_t>;

TEST(CompactUnwind, SavedRegistersAreWhereThePrologueLeftThem) {
    // After the frame pointer were pushed: r15, r14, r13, r12, rbx.
    constexpr std::uint32_t encoding = 0x010558d1;

    const Code descriptions = frameDescriptions({{0x1000, 0x1234, encoding}}, 0x70000);

    const Code expected = {
        0x00, 0x10, 0x07, 0, 0,    0, 0,    0,          // begins at 0x71000,
        0x34, 0x02, 0,    0, 0,    0, 0,    0,          // 0x234 bytes long
        0x00,                                           // nothing more about it
        0x0c, 6,    16,                                 // the caller's stack pointer is rbp + 16,
        0x90, 1,                                        // below which are: the return address,
        0x86, 2,                                        // rbp,
        0x83, 7,    0x8c, 6, 0x8d, 5, 0x8e, 4, 0x8f, 3, // rbx, r12, r13, r14, r15
    };
    EXPECT_NE(std::search(descriptions.begin(), descriptions.end(), expected.begin(), expected.end()),
              descriptions.end());
}

TEST(CompactUnwind, DescriptionsEndWithAnEmptyOne) {
    const Code descriptions = frameDescriptions({}, 0);

    EXPECT_EQ(Code(descriptions.end() - 4, descriptions.end()), Code(4, 0));
}

} // namespace
} // namespace phone::macho
