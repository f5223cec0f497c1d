#include "phone/macho/DeviceRuntime.h"
#include "phone/macho/MessageSend.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSString.h"
#include "platform/objc/Class.h"
#include "platform/objc/Pool.h"
#include "tests/macho/GuestFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace phone::macho {
namespace {

using objc::Float;
using objc::Int;

constexpr const char* runtime = "/usr/lib/libobjc.A.dylib";

/// A function of the device's runtime, as a library for the device calls it.
template <class Function>
Function* function(const char* name) {
    return reinterpret_cast<Function*>(const_cast<void*>(Exports::ofThePhone().find(runtime, name)));
}

class Answering : public objc::Defines<Answering, NSObject> {
public:
    static constexpr auto objc_name = "AnsweringParent";
    static void define(objc::ClassTable<Answering>& c) {
        c.def<"frame", &Answering::frame>()
            .def<"a:b:c:d:x:y:z:u:v:w:s:t:", &Answering::many>()
            .def<"yes", &Answering::yes>();
    }

private:
    CGRect frame() { return {{1, 2}, {3, 4}}; }
    Float many(Int a, Int b, Int c, Int d, Float x, Float y, Float z, Float u, Float v, Float w, Float s, Float t) {
        return Float(a + 10 * b + 100 * c + 1000 * d) + x + 2 * y + 4 * z + 8 * u + 16 * v + 32 * w + 64 * s + 128 * t;
    }
    bool yes() { return true; }
};

class Overriding : public objc::Defines<Overriding, objc::Ref<Answering>> {
public:
    static constexpr auto objc_name = "AnsweringChild";
    static void define(objc::ClassTable<Overriding>& c) { c.overrides<"frame", &Overriding::frame>(); }

private:
    CGRect frame() { return {}; }
};

class MessageSend : public testing::Test {
protected:
    objc::Pool pool;
    objc::Ref<Overriding> object = objc::Ref<Overriding>::make();
    objc_super parent{object.raw(), Answering::definedClass()};
    SEL many = objc::selector<"a:b:c:d:x:y:z:u:v:w:s:t:">();
#if defined(__x86_64__)
    static constexpr const char* largeResult = "_objc_msgSend_stret";
    static constexpr const char* largeSuperResult = "_objc_msgSendSuper_stret";
#else
    static constexpr const char* largeResult = "_objc_msgSend";
    static constexpr const char* largeSuperResult = "_objc_msgSendSuper";
#endif
    static constexpr Float expected = 4321 + 1 + 2 + 4 + 8 + 16 + 32 + 64 + 128;
};

TEST_F(MessageSend, EveryArgumentArrives) {
    using Many = Float(id, SEL, Int, Int, Int, Int, Float, Float, Float, Float, Float, Float, Float, Float);

    EXPECT_EQ(function<Many>("_objc_msgSend")(object.raw(), many, 1, 2, 3, 4, 1, 1, 1, 1, 1, 1, 1, 1), expected);
}

TEST_F(MessageSend, EveryArgumentArrivesAtTheSuperclass) {
    using Many = Float(objc_super*, SEL, Int, Int, Int, Int, Float, Float, Float, Float, Float, Float, Float, Float);

    EXPECT_EQ(function<Many>("_objc_msgSendSuper")(&parent, many, 1, 2, 3, 4, 1, 1, 1, 1, 1, 1, 1, 1), expected);
}

TEST_F(MessageSend, AVariableNumberOfArgumentsArrives) {
    const auto format = "%d %.1f %@"_ns;
    using Format = id(id, SEL, id, ...);

    const id text =
        function<Format>("_objc_msgSend")(reinterpret_cast<id>(objc_getClass("NSString")),
                                          objc::selector<"stringWithFormat:">(), format.raw(), 7, 2.5, "x"_ns.raw());

    EXPECT_TRUE(objc::borrow<NSString>(text).isEqual("7 2.5 x"_ns));
}

TEST_F(MessageSend, ALargeResultArrives) {
    EXPECT_EQ(function<CGRect(id, SEL)>(largeResult)(object.raw(), objc::selector<"frame">()), (CGRect{}));
    EXPECT_EQ(function<CGRect(objc_super*, SEL)>(largeSuperResult)(&parent, objc::selector<"frame">()),
              (CGRect{{1, 2}, {3, 4}}));
}

TEST_F(MessageSend, NilAnswersZero) {
    EXPECT_EQ(function<Int(id, SEL)>("_objc_msgSend")(nullptr, many), 0);
    EXPECT_EQ(function<Float(id, SEL)>("_objc_msgSend")(nullptr, many), 0);
    EXPECT_EQ(function<CGSize(id, SEL)>("_objc_msgSend")(nullptr, many), (CGSize{}));
}

#if defined(__x86_64__)
TEST_F(MessageSend, NilLeavesAResultInMemoryAlone) {
    CGRect rectangle{{1, 2}, {3, 4}};

    const void* answered = function<void*(CGRect*, id, SEL)>("_objc_msgSend_stret")(&rectangle, nullptr, many);

    EXPECT_EQ(answered, &rectangle);
    EXPECT_EQ(rectangle, (CGRect{{1, 2}, {3, 4}}));
}
#endif

TEST(DeviceRuntime, TruthValuesAreEncodedInEachRuntimesWay) {
    EXPECT_EQ(withTruthAs('C', "B24@0:8B16"), "C24@0:8C16");
    EXPECT_EQ(withTruthAs('B', "v@:{CGRect={CGPoint=dd}{CGSize=dd}}C"), "v@:{CGRect={CGPoint=dd}{CGSize=dd}}B");
    EXPECT_EQ(withTruthAs('B', "v@:{Calendar}C@\"Class\"C(Choice=iC)"), "v@:{Calendar}B@\"Class\"B(Choice=iB)");
}

TEST(DeviceRuntime, AddedMethodsHaveTheEncodingOfThisMachine) {
    const Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "MadeByTheDevice", 0);
    const auto implementation = reinterpret_cast<IMP>(+[](id, SEL) { return 1; });

    EXPECT_EQ(function<signed char(Class, SEL, IMP, const char*)>("_class_addMethod")(cls, objc::selector<"yes">(),
                                                                                      implementation, "B@:"),
              1);
    objc_registerClassPair(cls);

    const Method method = class_getInstanceMethod(cls, objc::selector<"yes">());
    EXPECT_STREQ(method_getTypeEncoding(method), "C@:");
    EXPECT_STREQ(function<const char*(Method)>("_method_getTypeEncoding")(method), "B@:");
}

TEST(DeviceRuntime, EveryNameThatTheLibraryIsLinkedAgainstIsThereInTheSameVersion) {
    int names = 0;
    for (const auto& file : std::filesystem::directory_iterator(SOURCE_DIRECTORY "/package/stubs")) {
        std::istringstream lines(readBytes(file.path()));
        std::string library;
        bool isForThisProcessor = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("install-name: '")) {
                library = line.substr(15, line.size() - 16);
                ASSERT_TRUE(installedVersion(library)) << library;
                EXPECT_EQ(Exports::ofThePhone().version(library), installedVersion(library));
            } else if (line.starts_with("compatibility-version: ")) {
                EXPECT_EQ(installedVersion(library)->text(), line.substr(23) + ".0.0") << library;
            } else if (line.starts_with("  - targets: ")) {
                isForThisProcessor = line.find(nameOf(thisProcessor)) != std::string::npos;
            } else if (line.starts_with("      - ") && isForThisProcessor) {
                ++names;
                EXPECT_NE(Exports::ofThePhone().find(library, line.substr(8)), nullptr) << library << line;
            }
        }
    }
    EXPECT_GT(names, 0);
}

} // namespace
} // namespace phone::macho
