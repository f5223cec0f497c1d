#include "phone/uikit/Placement.h"

#include <algorithm>

namespace phone {

namespace {

/// From 0 to 3.
int reduced(int quarters) { return (quarters % 4 + 4) % 4; }

CGRect spanning(CGPoint a, CGPoint b) {
    const CGPoint origin{std::min(a.x, b.x), std::min(a.y, b.y)};
    return {origin, {std::max(a.x, b.x) - origin.x, std::max(a.y, b.y) - origin.y}};
}

} // namespace

CGPoint turned(CGPoint point, int quarters) {
    switch (reduced(quarters)) {
    case 1:
        return {-point.y, point.x};
    case 2:
        return {-point.x, -point.y};
    case 3:
        return {point.y, -point.x};
    default:
        return point;
    }
}

CGPoint Placement::outward(CGPoint inner) const {
    const CGPoint point = turned(inner, quarters);
    return {origin.x + point.x, origin.y + point.y};
}

CGPoint Placement::inward(CGPoint outer) const { return turned({outer.x - origin.x, outer.y - origin.y}, -quarters); }

CGRect Placement::outward(CGRect inner) const {
    if (reduced(quarters) == 0) {
        return {outward(inner.origin), inner.size};
    }
    return spanning(outward(inner.origin), outward(CGPoint{inner.maxX(), inner.maxY()}));
}

CGRect Placement::inward(CGRect outer) const {
    if (reduced(quarters) == 0) {
        return {inward(outer.origin), outer.size};
    }
    return spanning(inward(outer.origin), inward(CGPoint{outer.maxX(), outer.maxY()}));
}

Placement Placement::after(const Placement& inner) const {
    return {reduced(quarters + inner.quarters), outward(inner.origin)};
}

} // namespace phone
