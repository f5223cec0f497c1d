#include "tests/objc/LibraryFrames.h"
#include "tests/objc/Shapes.h"

#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

namespace {

/// Calls the library's frame from a method, so that the exception also passes a trampoline.
class Caller : public objc::Defines<Caller, NSObject> {
public:
    static constexpr auto objc_name = "TestCaller";
    static void define(objc::ClassTable<Caller>& c) { c.def<"read:", &Caller::read>(); }

private:
    NSObject read(const NSArray& array) { return readPastTheEnd(array); }
};

TEST(Exceptions, APlatformExceptionPassesThroughLibraryFrames) {
    objc::Pool pool;
    const auto array = NSArray::of("only"_ns);
    bool caught = false;

    try {
        (void)readPastTheEnd(array);
    } catch (...) {
        caught = true;
    }

    EXPECT_TRUE(caught);
    EXPECT_EQ(array.count(), 1U);
}

TEST(Exceptions, APlatformExceptionPassesThroughTrampolines) {
    objc::Pool pool;
    const auto caller = objc::Ref<Caller>::make();
    bool caught = false;

    try {
        caller.send<"read:">(NSArray::of("only"_ns));
    } catch (...) {
        caught = true;
    }

    EXPECT_TRUE(caught);
}

} // namespace
