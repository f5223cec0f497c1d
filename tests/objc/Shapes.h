/// Small classes for the kernel's tests.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSString.h"

namespace shapes {

/// Answers one message of every kind of result.
class Shape : public objc::Defines<Shape, NSObject> {
public:
    static constexpr auto objc_name = "TestShape";
    static void define(objc::ClassTable<Shape>& c) {
        c.def<"corners", &Shape::corners>()
            .def<"isRound", &Shape::isRound>()
            .def<"area", &Shape::area>()
            .def<"ratio", &Shape::ratio>()
            .def<"frame", &Shape::frame>()
            .def<"origin", &Shape::origin>()
            .def<"range", &Shape::range>()
            .def<"action", &Shape::action>()
            .def<"cName", &Shape::cName>()
            .get<"name", &Shape::name>()
            .set<"setName:", &Shape::name>()
            .def<"newTwin", &Shape::newTwin>()
            .def<"twin", &Shape::twin>()
            .def<"copying", &Shape::twin>()
            .def<"isWide:", &Shape::isWide>()
            .def<"scaled:by:named:", &Shape::scaled>()
            .def<"run:", &Shape::run>()
            .def<"keep:", &Shape::keep>()
            .def<"runKept:", &Shape::runKept>()
            .overrides<"description", &Shape::description>()
            .classMethod<"unit", &Shape::unit>();
    }

    NSString name;
    long destructorSaw = 0;

private:
    long corners() { return 4; }
    bool isRound() { return true; }
    double area() { return 12.5; }
    float ratio() { return 0.5F; }
    CGRect frame() { return {1, 2, 3, 4}; }
    CGPoint origin() { return {5, 6}; }
    NSRange range() { return {7, 8}; }
    SEL action() { return objc::selector<"area">(); }
    const char* cName() { return "shape"; }
    NSObject newTwin() { return objc::make<objc::Ref<Shape>>(); }
    NSObject twin() { return objc::make<objc::Ref<Shape>>(); }
    bool isWide(bool wide) { return wide; }
    CGRect scaled(CGRect rect, CGFloat factor, const NSString& newName) {
        name = newName;
        return {rect.origin.x * factor, rect.origin.y * factor, rect.size.width * factor, rect.size.height * factor};
    }
    long run(long (^block)(long)) { return block(20); }
    void keep(const objc::Block<long(long)>& block) { _kept = block; }
    long runKept(long value) { return _kept(value); }
    NSString description() { return super<"description", NSString>() ? "a shape"_ns : NSString(); }
    static NSObject unit() { return objc::make<objc::Ref<Shape>>(); }

    objc::Block<long(long)> _kept;
};

/// Derives from a class of ours, with a field of its own.
class Square : public objc::Defines<Square, objc::Ref<Shape>> {
public:
    static constexpr auto objc_name = "TestSquare";
    static void define(objc::ClassTable<Square>& c) {
        c.init<"initWithSide:", &Square::initWithSide>()
            .overrides<"corners", &Square::corners>()
            .get<"side", &Square::_side>();
    }

private:
    void initWithSide(double side) {
        super<"init">();
        _side = side;
    }
    long corners() { return super<"corners", long>() + 100; }

    double _side = -1;
};

/// A third level.
class Tile : public objc::Defines<Tile, objc::Ref<Square>> {
public:
    static constexpr auto objc_name = "TestTile";
    static void define(objc::ClassTable<Tile>& c) {
        c.get<"glaze", &Tile::_glaze>().set<"setGlaze:", &Tile::_glaze>().overrides<"corners", &Tile::corners>();
    }

private:
    long corners() { return super<"corners", long>() + 1000; }

    NSString _glaze = "plain"_ns;
};

} // namespace shapes
