#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSDictionary.h"
#include "tests/Raised.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

class Array : public FoundationTest {};

// Holds: collections-raise
TEST_F(Array, AnIndexPastTheEndRaises) {
    const auto array = NSArray::of("a"_ns, "b"_ns);
    const auto changing = objc::make<NSMutableArray>();

    EXPECT_EQ(raised([&] { array.at(2); }), "NSRangeException");
    EXPECT_EQ(raised([&] { array.at(static_cast<objc::UInt>(-1)); }), "NSRangeException");
    EXPECT_EQ(raised([&] { changing.at(0); }), "NSRangeException");
    EXPECT_EQ(raised([&] { changing.removeAt(0); }), "NSRangeException");
}

// Holds: collections-raise
TEST_F(Array, NilCannotBePutIntoACollection) {
    const auto array = objc::make<NSMutableArray>();
    const auto dictionary = objc::make<NSMutableDictionary>();

    EXPECT_EQ(raised([&] { array.add(nullptr); }), invalidArgument);
    EXPECT_EQ(raised([&] { dictionary.set(nullptr, "key"_ns); }), invalidArgument);
    EXPECT_EQ(raised([&] { dictionary.set("value"_ns, nullptr); }), invalidArgument);
    EXPECT_EQ(array.count(), 0u);
    EXPECT_EQ(dictionary.count(), 0u);
}

// Holds: collections-raise
TEST_F(Array, OfNilEverythingIsNought) {
    const NSArray nothing;

    EXPECT_EQ(nothing.count(), 0u);
    EXPECT_FALSE(nothing.at(3));
    EXPECT_FALSE(nothing.writeToFile("/Library/file.plist"_ns, true));
}

} // namespace
} // namespace phone
