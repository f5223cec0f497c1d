/// Where a view's points lie in what is around it: moved, and turned by whole quarters.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

namespace phone {

/// Turns a point around the origin, clockwise; `quarters` may be any number.
CGPoint turned(CGPoint point, int quarters);

/// Inner points to outer ones and back. Without a turn, numbers are only added and subtracted.
struct Placement {
    int quarters = 0; // clockwise
    CGPoint origin;   // of the inner points, in outer ones

    CGPoint outward(CGPoint inner) const;
    CGPoint inward(CGPoint outer) const;
    /// Of a rectangle: the one that its corners make there.
    CGRect outward(CGRect inner) const;
    CGRect inward(CGRect outer) const;
    /// This placement applied to what another one, further inside, gives.
    Placement after(const Placement& inner) const;
};

} // namespace phone
