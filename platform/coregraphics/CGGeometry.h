/// Points, sizes and rectangles, in points.
#pragma once

#include "platform/objc/Encoding.h"

using CGFloat = objc::Float;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;

    friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;

    friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
    CGPoint origin;
    CGSize size;

    constexpr CGRect() = default;
    constexpr CGRect(CGPoint o, CGSize s) : origin(o), size(s) {}
    constexpr CGRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) : origin{x, y}, size{width, height} {}

    constexpr CGFloat maxX() const { return origin.x + size.width; }
    constexpr CGFloat maxY() const { return origin.y + size.height; }
    constexpr CGPoint center() const { return {origin.x + size.width / 2, origin.y + size.height / 2}; }
    /// The left and top edges belong to the rectangle, the right and bottom ones do not.
    constexpr bool contains(CGPoint p) const {
        return p.x >= origin.x && p.y >= origin.y && p.x < maxX() && p.y < maxY();
    }
    friend constexpr bool operator==(const CGRect&, const CGRect&) = default;
};

/// Distances by which a rectangle is made smaller at its edges.
struct UIEdgeInsets {
    CGFloat top = 0;
    CGFloat left = 0;
    CGFloat bottom = 0;
    CGFloat right = 0;

    friend constexpr bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

namespace objc {
template <>
struct Encoding<CGPoint> {
    static constexpr auto text =
        FixedString("{CGPoint=") + Encoding<CGFloat>::text + Encoding<CGFloat>::text + FixedString("}");
};
template <>
struct Encoding<CGSize> {
    static constexpr auto text =
        FixedString("{CGSize=") + Encoding<CGFloat>::text + Encoding<CGFloat>::text + FixedString("}");
};
template <>
struct Encoding<CGRect> {
    static constexpr auto text =
        FixedString("{CGRect=") + Encoding<CGPoint>::text + Encoding<CGSize>::text + FixedString("}");
};
template <>
struct Encoding<UIEdgeInsets> {
    static constexpr auto text = FixedString("{UIEdgeInsets=") + Encoding<CGFloat>::text + Encoding<CGFloat>::text +
                                 Encoding<CGFloat>::text + Encoding<CGFloat>::text + FixedString("}");
};
} // namespace objc
