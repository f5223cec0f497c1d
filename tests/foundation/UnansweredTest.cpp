#include "phone/device/Log.h"
#include "phone/foundation/Raise.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSNumber.h"
#include "tests/foundation/FoundationTest.h"

#include <cstdio>
#include <functional>

namespace phone {
namespace {

class UnansweredTest : public FoundationTest {
protected:
    static PlatformException raisedBy(const std::function<void()>& work) {
        try {
            work();
        } catch (...) {
            return caughtException().value_or(PlatformException{.name = "another kind", .reason = ""});
        }
        return {.name = "nothing", .reason = ""};
    }
    static std::string address(const objc::Object& object) {
        char digits[2 + 2 * sizeof(void*) + 1];
        std::snprintf(digits, sizeof digits, "%p", static_cast<void*>(object.raw()));
        return digits;
    }
};

struct Widget : objc::Defines<Widget, NSObject> {
    static constexpr auto objc_name = "Widget";
    static void define(objc::ClassTable<Widget>&) {}
};

/// Answers what it does not implement by forwarding it.
struct Forwarder : objc::Defines<Forwarder, NSObject> {
    static constexpr auto objc_name = "Forwarder";
    static void define(objc::ClassTable<Forwarder>& c) {
        c.overrides<"forwardingTargetForSelector:", &Forwarder::forwardingTarget>();
    }
    NSObject forwardingTarget(SEL) { return "target"_ns; }
};

TEST_F(UnansweredTest, AMessageThatNobodyAnswersRaises) {
    const auto widget = objc::Ref<Widget>::make();

    const auto raised = raisedBy([&] { widget.send<"frobnicate:">(objc::Int(1)); });

    EXPECT_EQ(raised.name, "NSInvalidArgumentException");
    EXPECT_EQ(raised.reason, "-[Widget frobnicate:]: unrecognized selector sent to instance " + address(widget));
}

TEST_F(UnansweredTest, AClassIsNamedAsOne) {
    const auto raised = raisedBy([] { objc::sendClass<Widget, "frobnicate">(); });

    EXPECT_TRUE(raised.reason.starts_with("+[Widget frobnicate]: unrecognized selector sent to class 0x"));
}

TEST_F(UnansweredTest, ItIsLogged) {
    const auto widget = objc::Ref<Widget>::make();
    raisedBy([&] { widget.send<"frobnicate">(); });

    const auto entries = Log::shared().entries();

    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].dump(), R"({"t":0.0,"what":"unanswered","class":"Widget","selector":"frobnicate"})");
}

TEST_F(UnansweredTest, ALargeResultDoesNotConfuseTheReceiver) {
    const auto widget = objc::Ref<Widget>::make();

    const auto raised = raisedBy([&] { widget.send<"frame", CGRect>(); });

    EXPECT_EQ(raised.reason, "-[Widget frame]: unrecognized selector sent to instance " + address(widget));
}

TEST_F(UnansweredTest, ItRaisesThroughPerformSelectorToo) {
    const auto widget = objc::Ref<Widget>::make();

    const auto raised = raisedBy([&] { widget.send<"performSelector:", void>(objc::selector<"frobnicate">()); });

    EXPECT_EQ(raised.name, "NSInvalidArgumentException");
    EXPECT_EQ(Log::shared().count("unanswered"), 1u);
}

TEST_F(UnansweredTest, AskingForAnImplementationRaisesNothing) {
    const auto widget = objc::Ref<Widget>::make();

    EXPECT_NE(class_getMethodImplementation(Widget::definedClass(), objc::selector<"frobnicate">()), nullptr);
    EXPECT_FALSE(objc::responds<"frobnicate">(widget));

    EXPECT_EQ(Log::shared().count("unanswered"), 0u);
}

TEST_F(UnansweredTest, AClassThatForwardsKeepsDoingSo) {
    const auto forwarder = objc::Ref<Forwarder>::make();

    EXPECT_EQ(text(forwarder.send<"uppercaseString", NSString>()), "TARGET");
    EXPECT_EQ(Log::shared().count("unanswered"), 0u);
}

TEST_F(UnansweredTest, MutableArraysRefuseNil) {
    const auto array = objc::make<NSMutableArray>();

    EXPECT_EQ(raisedBy([&] { array.add(nullptr); }).name, "NSInvalidArgumentException");
    EXPECT_EQ(array.count(), 0u);
}

TEST_F(UnansweredTest, APositionPastTheEndRaises) {
    EXPECT_EQ(raisedBy([] { NSArray::of("a"_ns).at(1); }).name, "NSRangeException");
}

TEST_F(UnansweredTest, RaiseCarriesNameAndReason) {
    const auto raised = raisedBy([] { raise("SomeException", "Grund „x“"); });

    EXPECT_EQ(raised.name, "SomeException");
    EXPECT_EQ(raised.reason, "Grund „x“");
}

TEST_F(UnansweredTest, ExceptionsOfAnotherKindAreNoPlatformExceptions) {
    EXPECT_EQ(raisedBy([] { throw 1; }).name, "another kind");
}

} // namespace
} // namespace phone
