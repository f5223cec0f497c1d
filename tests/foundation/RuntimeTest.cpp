#include "platform/objc/Encoding.h"
#include "tests/foundation/FoundationTest.h"

#include <algorithm>
#include <cstdlib>

namespace phone {
namespace {

class Root : public objc::Defines<Root, NSObject> {
public:
    static constexpr auto objc_name = "RuntimeTestRoot";
    static void define(objc::ClassTable<Root>& c) { c.def<"number", &Root::number>(); }

private:
    objc::Int number() { return 1; }
};

class Leaf : public objc::Defines<Leaf, objc::Ref<Root>> {
public:
    static constexpr auto objc_name = "RuntimeTestLeaf";
    static void define(objc::ClassTable<Leaf>&) {}
};

objc::Int two(id, SEL) { return 2; }

class Runtime : public FoundationTest {
protected:
    Runtime() { Leaf::definedClass(); }

    static bool listsItself(Class cls, SEL selector) {
        unsigned count = 0;
        Method* methods = class_copyMethodList(cls, &count);
        const bool found = std::any_of(methods, methods + count,
                                       [&](Method method) { return sel_isEqual(method_getName(method), selector); });
        std::free(methods);
        return found;
    }

    const SEL number = objc::selector<"number">();
    const IMP answer = reinterpret_cast<IMP>(&two);
};

// Holds: runtime-add-method
TEST_F(Runtime, AddsAMethodUnlessTheClassItselfHasIt) {
    EXPECT_FALSE(class_addMethod(nullptr, number, answer, "q@:"));
    EXPECT_FALSE(class_addMethod(Root::definedClass(), number, answer, "q@:"));
    EXPECT_TRUE(class_addMethod(Leaf::definedClass(), number, answer, "q@:"));

    EXPECT_EQ((objc::Ref<Leaf>::make()->send<"number", objc::Int>()), 2);
    EXPECT_EQ((objc::Ref<Root>::make()->send<"number", objc::Int>()), 1);
}

// Holds: runtime-replace-method
TEST_F(Runtime, ReplacingAnInheritedMethodAddsItAndHasNoPrevious) {
    EXPECT_EQ(class_replaceMethod(Leaf::definedClass(), number, answer, "q@:"), nullptr);
    EXPECT_EQ((objc::Ref<Root>::make()->send<"number", objc::Int>()), 1); // the parent stays as it is

    EXPECT_NE(class_replaceMethod(Root::definedClass(), number, answer, "q@:"), nullptr);
    EXPECT_EQ((objc::Ref<Root>::make()->send<"number", objc::Int>()), 2);
}

// Holds: runtime-look-up
TEST_F(Runtime, FindsInheritedMethodsButListsOnlyTheClasssOwn) {
    EXPECT_TRUE(class_getInstanceMethod(Leaf::definedClass(), number));

    EXPECT_TRUE(listsItself(Root::definedClass(), number));
    EXPECT_FALSE(listsItself(Leaf::definedClass(), number));
}

// Holds: runtime-implementation-never-null, runtime-taken-name
TEST_F(Runtime, HasAnImplementationForEverythingAndEachNameOnce) {
    EXPECT_NE(class_getMethodImplementation(Leaf::definedClass(), objc::selector<"nobodyAnswersThis">()), nullptr);

    EXPECT_EQ(objc_allocateClassPair(Root::definedClass(), "RuntimeTestLeaf", 0), nullptr);
}

} // namespace
} // namespace phone
