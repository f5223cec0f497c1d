#include "tests/objc/Shapes.h"

#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

#include <thread>

using namespace shapes;

namespace {

std::string utf8(const NSString& text) {
    const char* bytes = text.UTF8String();
    return bytes == nullptr ? "" : bytes;
}

class Kernel : public ::testing::Test {
    objc::Pool _pool;
};

template <class T>
NSObject object() {
    return objc::Ref<T>::make();
}

TEST_F(Kernel, NilAnswersZeroForEveryKindOfResult) {
    const NSObject nothing;

    nothing.send<"corners">();

    EXPECT_EQ((nothing.send<"corners", long>()), 0);
    EXPECT_EQ((nothing.send<"isRound", bool>()), false);
    EXPECT_EQ((nothing.send<"area", double>()), 0);
    EXPECT_EQ((nothing.send<"ratio", float>()), 0);
    EXPECT_EQ((nothing.send<"frame", CGRect>()), CGRect());
    EXPECT_EQ((nothing.send<"origin", CGPoint>()), CGPoint());
    EXPECT_EQ((nothing.send<"range", NSRange>()), NSRange());
    EXPECT_EQ((nothing.send<"action", SEL>()), nullptr);
    EXPECT_EQ((nothing.send<"cName", const char*>()), nullptr);
    EXPECT_FALSE((nothing.send<"name", NSString>()));
    EXPECT_FALSE((nothing.send<"newTwin", NSObject>()));
}

TEST_F(Kernel, AnObjectAnswersEveryKindOfResult) {
    const auto shape = object<Shape>();

    EXPECT_EQ((shape.send<"corners", long>()), 4);
    EXPECT_EQ((shape.send<"isRound", bool>()), true);
    EXPECT_EQ((shape.send<"area", double>()), 12.5);
    EXPECT_EQ((shape.send<"ratio", float>()), 0.5F);
    EXPECT_EQ((shape.send<"frame", CGRect>()), CGRect(1, 2, 3, 4));
    EXPECT_EQ((shape.send<"origin", CGPoint>()), (CGPoint{5, 6}));
    EXPECT_EQ((shape.send<"range", NSRange>()), (NSRange{7, 8}));
    EXPECT_TRUE(objc::same(shape.send<"action", SEL>(), objc::selector<"area">()));
    EXPECT_STREQ((shape.send<"cName", const char*>()), "shape");
}

TEST_F(Kernel, ArgumentsOfEveryKindArrive) {
    const auto shape = object<Shape>();

    const auto scaled = shape.send<"scaled:by:named:", CGRect>(CGRect(1, 2, 3, 4), CGFloat(2), "double"_ns);

    EXPECT_EQ(scaled, CGRect(2, 4, 6, 8));
    EXPECT_EQ(utf8(shape.send<"name", NSString>()), "double");
    EXPECT_TRUE((shape.send<"isWide:", bool>(true)));
    EXPECT_FALSE((shape.send<"isWide:", bool>(false)));
}

TEST_F(Kernel, ASmallArgumentIsMaskedWhateverTheRestOfTheWordHolds) {
    const auto shape = object<Shape>();

    const auto wide = objc::detail::call<unsigned char>(shape.raw(), objc::selector<"isWide:">(), 0xffffff00UL);
    const auto narrow = objc::detail::call<unsigned char>(shape.raw(), objc::selector<"isWide:">(), 0xffffff01UL);

    EXPECT_EQ(wide, 0);
    EXPECT_EQ(narrow, 1);
}

TEST_F(Kernel, ResultsOfOwningFamiliesAreTakenOverAndOthersRetained) {
    const auto shape = object<Shape>();
    const long before = Shape::liveCount();

    {
        objc::Pool pool;
        const auto given = shape.send<"newTwin", NSObject>();
        const auto lent = shape.send<"twin", NSObject>();
        const auto notACopy = shape.send<"copying", NSObject>();
        EXPECT_EQ(Shape::liveCount(), before + 3);
    }

    EXPECT_EQ(Shape::liveCount(), before);
}

TEST_F(Kernel, FamiliesAreWholeWords) {
    using objc::Family;
    EXPECT_EQ(objc::family(objc::FixedString("copy")), Family::Copy);
    EXPECT_EQ(objc::family(objc::FixedString("copyWithZone:")), Family::Copy);
    EXPECT_EQ(objc::family(objc::FixedString("_copy")), Family::Copy);
    EXPECT_EQ(objc::family(objc::FixedString("copying")), Family::None);
    EXPECT_EQ(objc::family(objc::FixedString("newlyAddedNote")), Family::None);
    EXPECT_EQ(objc::family(objc::FixedString("newNote")), Family::New);
    EXPECT_EQ(objc::family(objc::FixedString("initialize")), Family::None);
    EXPECT_EQ(objc::family(objc::FixedString("initWithFrame:")), Family::Init);
    EXPECT_EQ(objc::family(objc::FixedString("mutableCopy")), Family::MutableCopy);
    EXPECT_EQ(objc::family(objc::FixedString("allocWithZone:")), Family::Alloc);
}

TEST_F(Kernel, CopyingAHandleRetainsAndMovingIsFree) {
    const long before = Shape::liveCount();
    {
        objc::Pool pool;
        auto first = object<Shape>();
        auto second = first;
        const auto third = std::move(first);
        second = nullptr;
        EXPECT_FALSE(first);
        EXPECT_TRUE(third);
        EXPECT_EQ(Shape::liveCount(), before + 1);
    }

    EXPECT_EQ(Shape::liveCount(), before);
}

TEST_F(Kernel, AnUnretainedHandleKeepsNothingAlive) {
    const long before = Shape::liveCount();
    objc::Unretained<NSObject> pointer;
    {
        objc::Pool pool;
        const auto shape = object<Shape>();
        pointer = shape;
        EXPECT_EQ(pointer.get(), shape);
    }

    EXPECT_EQ(Shape::liveCount(), before);
}

TEST_F(Kernel, EveryLevelOfSubclassesHasItsOwnFields) {
    const auto tile = objc::make<objc::Ref<Tile>, "initWithSide:">(2.5);
    const auto other = objc::make<objc::Ref<Tile>, "initWithSide:">(7.0);

    tile.send<"setName:">("kitchen"_ns);
    tile.send<"setGlaze:">("green"_ns);

    EXPECT_EQ((tile.send<"side", double>()), 2.5);
    EXPECT_EQ((other.send<"side", double>()), 7.0);
    EXPECT_EQ(utf8(tile.send<"name", NSString>()), "kitchen");
    EXPECT_EQ(utf8(tile.send<"glaze", NSString>()), "green");
    EXPECT_FALSE((other.send<"name", NSString>()));
    EXPECT_EQ(utf8(other.send<"glaze", NSString>()), "plain");
}

TEST_F(Kernel, AnOverrideReachesTheNextLevelThroughSuper) {
    EXPECT_EQ((object<Shape>().send<"corners", long>()), 4);
    EXPECT_EQ((object<Square>().send<"corners", long>()), 104);
    EXPECT_EQ((object<Tile>().send<"corners", long>()), 1104);
    EXPECT_EQ(utf8(object<Tile>().description()), "a shape");
}

TEST_F(Kernel, PeersOfEveryLevelDieWithTheirObject) {
    const long shapes = Shape::liveCount();
    const long tiles = Tile::liveCount();
    {
        objc::Pool pool;
        const auto tile = object<Tile>();
        EXPECT_EQ(Shape::liveCount(), shapes + 1);
        EXPECT_EQ(Tile::liveCount(), tiles + 1);
    }

    EXPECT_EQ(Shape::liveCount(), shapes);
    EXPECT_EQ(Tile::liveCount(), tiles);
}

TEST_F(Kernel, APeerIsFoundInItsObjectAndInNoOther) {
    const auto square = object<Square>();

    EXPECT_NE(Shape::of(square), nullptr);
    EXPECT_NE(Square::of(square), nullptr);
    EXPECT_EQ(Tile::of(square), nullptr);
    EXPECT_EQ(Shape::of("text"_ns), nullptr);
    EXPECT_EQ(Shape::of(NSObject()), nullptr);
    EXPECT_TRUE(objc::isKind<objc::Ref<Shape>>(square));
    EXPECT_FALSE(objc::isKind<objc::Ref<Tile>>(square));
}

TEST_F(Kernel, ABlockCapturesHandlesAndGivesThemBack) {
    const auto runner = object<Shape>();
    const long before = Shape::liveCount();
    {
        objc::Pool pool;
        const auto captured = object<Shape>();
        runner.send<"keep:">(objc::Block<long(long)>(^(long value) {
          return value + captured.send<"corners", long>();
        }));
    }
    EXPECT_EQ(Shape::liveCount(), before + 1); // the kept block keeps what it captured

    const long answer = runner.send<"runKept:", long>(38L);
    runner.send<"keep:">(objc::Block<long(long)>());

    EXPECT_EQ(answer, 42);
    EXPECT_EQ(Shape::liveCount(), before);
    EXPECT_EQ((runner.send<"runKept:", long>(1L)), 0); // no block answers zero
}

TEST_F(Kernel, ABlockLiteralIsAnArgument) {
    const long offset = 22;

    const long answer = object<Shape>().send<"run:", long>(^(long value) {
      return value + offset;
    });

    EXPECT_EQ(answer, 42);
}

// A truth value is `C` to the runtime here.
TEST_F(Kernel, EncodingsComeFromTheSignature) {
    EXPECT_STREQ((objc::methodEncoding<void>().text), "v@:");
    EXPECT_STREQ((objc::methodEncoding<bool, const NSString&, NSRange>().text), "C@:@{_NSRange=QQ}");
    EXPECT_STREQ((objc::methodEncoding<CGRect, CGFloat, SEL, Class>().text), "{CGRect={CGPoint=dd}{CGSize=dd}}@:d:#");
    EXPECT_STREQ((objc::methodEncoding<void, void (^)(bool), int, const char*>().text), "v@:@?ir*");
    const Method method = class_getInstanceMethod(Shape::definedClass(), objc::selector<"scaled:by:named:">());
    ASSERT_NE(method, nullptr);
    EXPECT_TRUE(objc::encodingsAgree(method_getTypeEncoding(method),
                                     "{NSRect={NSPoint=dd}{NSSize=dd}}64@0:8{r={p=dd}{s=dd}}16d48@56"));
    EXPECT_FALSE(objc::encodingsAgree("v@:i", "v@:q"));
    EXPECT_FALSE(objc::encodingsAgree("v@:", "v@:@"));
}

TEST_F(Kernel, AClassMethodAnswers) {
    const auto unit = objc::sendClass<objc::Ref<Shape>, "unit", NSObject>();

    EXPECT_NE(Shape::of(unit), nullptr);
}

struct Late : NSObject {
    static constexpr auto objc_name = "TestLate";
    using NSObject::NSObject;
};

TEST_F(Kernel, AFailedLookUpIsNotKept) {
    EXPECT_FALSE(objc::make<Late>());

    objc_registerClassPair(objc_allocateClassPair(objc_getClass("NSObject"), "TestLate", 0));

    EXPECT_TRUE(objc::make<Late>());
}

/// Wants a name that the platform has taken.
class Taken : public objc::Defines<Taken, NSObject> {
public:
    static constexpr auto objc_name = "NSString";
    static void define(objc::ClassTable<Taken>& c) { c.def<"length", &Taken::length>(); }

private:
    objc::UInt length() { return 12345; }
};

TEST_F(Kernel, ATakenNameLeavesTheClassQuiet) {
    EXPECT_EQ(Taken::definedClass(), nullptr);
    EXPECT_FALSE(objc::Ref<Taken>::make());
    EXPECT_EQ("text"_ns.length(), 4U);
}

/// Has nothing to give: its initialiser lets go of the receiver.
class Refusing : public objc::Defines<Refusing, NSObject> {
public:
    static constexpr auto objc_name = "TestRefusing";
    static void define(objc::ClassTable<Refusing>& c) { c.def<"initWithSide:", &Refusing::initWithSide>(); }

private:
    NSObject initWithSide(double) {
        NSObject::release(raw());
        return nullptr;
    }
};

/// Sets itself up after its superclass.
class Refused : public objc::Defines<Refused, objc::Ref<Refusing>> {
public:
    static constexpr auto objc_name = "TestRefused";
    static void define(objc::ClassTable<Refused>& c) { c.init<"initWithSide:", &Refused::initWithSide>(); }

private:
    void initWithSide(double side) {
        super<"initWithSide:">(side);
        _side = side;
    }

    double _side = 0;
};

TEST_F(Kernel, AnInitialiserWhoseSuperclassYieldsNothingYieldsNothing) {
    {
        const objc::Pool pool;
        EXPECT_FALSE((objc::make<objc::Ref<Refused>, "initWithSide:">(2.5)));
    }

    EXPECT_EQ(Refused::liveCount(), 0);
    EXPECT_EQ(Refusing::liveCount(), 0);
}

/// Asks itself something while it is being torn down.
class Asking : public objc::Defines<Asking, NSObject> {
public:
    static constexpr auto objc_name = "TestAsking";
    static void define(objc::ClassTable<Asking>& c) { c.def<"count", &Asking::count>(); }
    ~Asking() { answer = send<"count", long>(); }

    static inline long answer = -1;

private:
    long count() { return 1; }
};

/// Would answer, if it were still there.
class Answering : public objc::Defines<Answering, objc::Ref<Asking>> {
public:
    static constexpr auto objc_name = "TestAnswering";
    static void define(objc::ClassTable<Answering>& c) { c.overrides<"count", &Answering::count>(); }

private:
    long count() { return _value; }

    long _value = 7;
};

TEST_F(Kernel, AMessageAfterThePeersDestructionDoesNothing) {
    auto object = objc::Ref<Answering>::make();
    EXPECT_EQ((object.send<"count", long>()), 7);

    object = nullptr; // the subclass's peer is destroyed first, then the superclass asks

    EXPECT_EQ(Asking::answer, 0);
    EXPECT_EQ(Answering::liveCount(), 0);
    EXPECT_EQ(Asking::liveCount(), 0);
}

/// Lets go of itself in the middle of a call.
class Suicidal : public objc::Defines<Suicidal, NSObject> {
public:
    static constexpr auto objc_name = "TestSuicidal";
    static void define(objc::ClassTable<Suicidal>& c) { c.def<"letGo", &Suicidal::letGo>(); }
    static inline NSObject holder;

private:
    long letGo() {
        holder = nullptr;
        return _value; // still alive: the call keeps it
    }

    long _value = 99;
};

TEST_F(Kernel, ACallKeepsItsReceiverAlive) {
    Suicidal::holder = object<Suicidal>();
    id raw = Suicidal::holder.raw();

    EXPECT_EQ((objc::detail::call<long>(raw, objc::selector<"letGo">())), 99);
    EXPECT_EQ(Suicidal::liveCount(), 0);
}

TEST_F(Kernel, AGlobalOwnsItsValue) {
    static constinit objc::Global<NSObject> global;
    {
        objc::Pool pool;
        global = object<Shape>();
    }

    EXPECT_TRUE(static_cast<bool>(global));
    EXPECT_EQ((global->send<"corners", long>()), 4);
    global = NSObject();
    EXPECT_FALSE(static_cast<bool>(global));
}

TEST_F(Kernel, AGlobalIsReadWholeWhileAnotherThreadReplacesIt) {
    static constinit objc::Global<NSObject> global;
    constexpr int times = 20'000;
    const long before = Shape::liveCount();
    global = object<Shape>();
    std::thread writer([] {
        for (int i = 0; i < times; ++i) {
            global = object<Shape>();
        }
    });
    for (int i = 0; i < times; ++i) {
        ASSERT_EQ((global->send<"corners", long>()), 4);
    }
    writer.join();

    global = NSObject();
    EXPECT_EQ(Shape::liveCount(), before);
}

} // namespace
