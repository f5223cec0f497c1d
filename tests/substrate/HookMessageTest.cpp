#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSString.h"
#include "platform/substrate/Substrate.h"
#include "tests/foundation/FoundationTest.h"

#include <functional>

namespace phone {
namespace {

using objc::Float;
using objc::Int;

class Parent : public objc::Defines<Parent, NSObject> {
public:
    static constexpr auto objc_name = "HookedParent";
    static void define(objc::ClassTable<Parent>& c) {
        c.def<"number", &Parent::number>()
            .def<"frame", &Parent::frame>()
            .def<"raise", &Parent::raise>()
            .def<"a:b:c:d:e:f:x:y:z:", &Parent::many>()
            .classMethod<"kind", &Parent::kind>();
    }

private:
    Int number() { return 1; }
    CGRect frame() { return {{1, 2}, {3, 4}}; }
    void raise() { throw 7; }
    Float many(Int a, Int b, Int c, Int d, Int e, Int f, Float x, Float y, Float z) {
        return Float(a + 10 * b + 100 * c + 1000 * d + 10000 * e + 100000 * f) + x + 2 * y + 4 * z;
    }
    static Int kind() { return 1; }
};

class Child : public objc::Defines<Child, objc::Ref<Parent>> {
public:
    static constexpr auto objc_name = "HookedChild";
    static void define(objc::ClassTable<Child>&) {}
};

IMP previousNumber = nullptr;
IMP previousNumberOfSecond = nullptr;

Int callNumber(IMP implementation, id self, SEL selector) {
    return reinterpret_cast<Int (*)(id, SEL)>(implementation)(self, selector);
}
Int tenMore(id self, SEL selector) { return callNumber(previousNumber, self, selector) + 10; }
Int hundredMore(id self, SEL selector) { return callNumber(previousNumberOfSecond, self, selector) + 100; }
Int fifty(id, SEL) { return 50; }

template <class Function>
IMP imp(Function* function) {
    return reinterpret_cast<IMP>(function);
}

class HookMessageTest : public FoundationTest {
protected:
    HookMessageTest() { Child::definedClass(); }

    static Int number(const objc::Object& object) { return object.send<"number", Int>(); }
    static std::string warningOf(const std::function<void()>& work) {
        testing::internal::CaptureStderr();
        work();
        return testing::internal::GetCapturedStderr();
    }

    const SEL numberSelector = objc::selector<"number">();
};

// Holds: hook-own-method
TEST_F(HookMessageTest, AMethodOfTheClassIsSwapped) {
    MSHookMessageEx(Parent::definedClass(), numberSelector, imp(&tenMore), &previousNumber);

    EXPECT_EQ(number(objc::Ref<Parent>::make()), 11);
    EXPECT_EQ(number(objc::Ref<Child>::make()), 11);
}

TEST_F(HookMessageTest, ASubclassInUseSeesItsParentsMethodSwapped) {
    const auto child = objc::Ref<Child>::make();
    EXPECT_EQ(number(child), 1);

    MSHookMessageEx(Parent::definedClass(), numberSelector, imp(&fifty), nullptr);

    EXPECT_EQ(number(child), 50);
}

// Holds: hook-chains
TEST_F(HookMessageTest, HookingTwiceChainsAndTheLastRunsFirst) {
    MSHookMessageEx(Parent::definedClass(), numberSelector, imp(&tenMore), &previousNumber);
    MSHookMessageEx(Parent::definedClass(), numberSelector, imp(&hundredMore), &previousNumberOfSecond);

    EXPECT_EQ(number(objc::Ref<Parent>::make()), 111);
    EXPECT_EQ(previousNumberOfSecond, imp(&tenMore));
}

// Holds: hook-inherited-method
TEST_F(HookMessageTest, AnInheritedMethodIsAddedAndTheParentStaysAsItIs) {
    MSHookMessageEx(Child::definedClass(), numberSelector, imp(&tenMore), &previousNumber);

    EXPECT_EQ(number(objc::Ref<Child>::make()), 11);
    EXPECT_EQ(number(objc::Ref<Parent>::make()), 1);
}

// Holds: hook-inherited-method
TEST_F(HookMessageTest, AnAddedMethodHasTheParentsEncoding) {
    MSHookMessageEx(Child::definedClass(), numberSelector, imp(&tenMore), &previousNumber);

    Method added = class_getInstanceMethod(Child::definedClass(), numberSelector);
    Method inherited = class_getInstanceMethod(Parent::definedClass(), numberSelector);
    EXPECT_NE(added, inherited);
    EXPECT_STREQ(method_getTypeEncoding(added), method_getTypeEncoding(inherited));
}

// Holds: hook-inherited-method
TEST_F(HookMessageTest, ALaterHookOnTheParentIsSeen) {
    MSHookMessageEx(Child::definedClass(), numberSelector, imp(&tenMore), &previousNumber);
    MSHookMessageEx(Parent::definedClass(), numberSelector, imp(&fifty), nullptr);

    EXPECT_EQ(number(objc::Ref<Child>::make()), 60);
}

TEST_F(HookMessageTest, WhatIsInheritedKeepsALargeResult) {
    IMP previous = nullptr;
    MSHookMessageEx(Child::definedClass(), objc::selector<"frame">(), imp(&fifty), &previous);
    const auto child = objc::Ref<Child>::make();

    const auto frame = reinterpret_cast<CGRect (*)(id, SEL)>(previous)(child.raw(), objc::selector<"frame">());

    EXPECT_EQ(frame, (CGRect{{1, 2}, {3, 4}}));
}

TEST_F(HookMessageTest, WhatIsInheritedKeepsEveryArgument) {
    constexpr objc::FixedString name = "a:b:c:d:e:f:x:y:z:";
    IMP previous = nullptr;
    MSHookMessageEx(Child::definedClass(), objc::selector<name>(), imp(&fifty), &previous);
    const auto child = objc::Ref<Child>::make();

    using Many = Float (*)(id, SEL, Int, Int, Int, Int, Int, Int, Float, Float, Float);
    const Float result =
        reinterpret_cast<Many>(previous)(child.raw(), objc::selector<name>(), 1, 2, 3, 4, 5, 6, 0.5, 0.25, 0.125);

    EXPECT_EQ(result, 654321 + 0.5 + 0.5 + 0.5);
}

TEST_F(HookMessageTest, AnExceptionPassesThroughWhatIsInherited) {
    IMP previous = nullptr;
    MSHookMessageEx(Child::definedClass(), objc::selector<"raise">(), imp(&fifty), &previous);
    const auto child = objc::Ref<Child>::make();

    EXPECT_THROW(reinterpret_cast<void (*)(id, SEL)>(previous)(child.raw(), objc::selector<"raise">()), int);
}

// Holds: hook-chains
TEST_F(HookMessageTest, AClassMethodIsHookedOnTheMetaclass) {
    Class metaclass = object_getClass(reinterpret_cast<id>(Parent::definedClass()));

    MSHookMessageEx(metaclass, objc::selector<"kind">(), imp(&fifty), nullptr);

    EXPECT_EQ((objc::sendClass<Parent, "kind", Int>()), 50);
}

TEST_F(HookMessageTest, AMethodOfFoundationCanBeHooked) {
    MSHookMessageEx(objc::classOf<NSString>(), objc::selector<"pathExtension">(),
                    imp(+[](id self, SEL) { return self; }), nullptr);

    EXPECT_EQ(text("a.b"_ns.send<"pathExtension", NSString>()), "a.b");
}

// Holds: hook-chains
TEST_F(HookMessageTest, WithoutAPlaceForThePreviousItStillHooks) {
    MSHookMessageEx(Child::definedClass(), numberSelector, imp(&fifty), nullptr);

    EXPECT_EQ(number(objc::Ref<Child>::make()), 50);
}

// Trap: what-is-missing-is-nil
// Holds: hook-of-nothing
TEST_F(HookMessageTest, WhatCannotBeHookedIsAWarningAndLeavesTheResultAlone) {
    const IMP marker = imp(&hundredMore);
    IMP previous = marker;

    EXPECT_NE(warningOf([&] { MSHookMessageEx(nullptr, numberSelector, imp(&fifty), &previous); }), "");
    EXPECT_NE(warningOf([&] { MSHookMessageEx(Parent::definedClass(), nullptr, imp(&fifty), &previous); }), "");
    EXPECT_NE(warningOf([&] { MSHookMessageEx(Parent::definedClass(), numberSelector, nullptr, &previous); }), "");
    EXPECT_NE(warningOf([&] {
                  MSHookMessageEx(Parent::definedClass(), objc::selector<"nobodyAnswers">(), imp(&fifty), &previous);
              }),
              "");

    EXPECT_EQ(previous, marker);
    EXPECT_EQ(number(objc::Ref<Parent>::make()), 1);
}

TEST_F(HookMessageTest, TheProjectionsHookIsSilentAboutWhatDoesNotExist) {
    substrate::Previous<Int()> previous;

    const std::string warning = warningOf([&] {
        substrate::hook<Int>(nullptr, numberSelector, &fifty, previous);
        substrate::hook<Int>(Parent::definedClass(), objc::selector<"nobodyAnswers">(), &fifty, previous);
    });

    EXPECT_EQ(warning, "");
}

} // namespace
} // namespace phone
