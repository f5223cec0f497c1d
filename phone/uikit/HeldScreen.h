/// How the person holds the device, and what that makes of points on its screen.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

#include <string>

namespace phone {

/// One per process. The applications' own coordinates are those of the device held upright; a person's
/// are those of the screen as it is held.
class HeldScreen {
public:
    static HeldScreen& shared();

    /// PORTRAIT, UPSIDE_DOWN, LANDSCAPE_LEFT (turned to the left, its top pointing left) or
    /// LANDSCAPE_RIGHT. False for any other name.
    bool turn(const std::string& orientation);
    const std::string& orientation() const { return _orientation; }

    /// As it is held, in points.
    CGSize size() const;
    /// From the person's coordinates to those of the upright device, and back.
    CGPoint upright(CGPoint held) const;
    CGPoint held(CGPoint upright) const;
    CGRect held(CGRect upright) const;
    /// How far the upright picture is turned clockwise for the person, in quarters.
    int quarterTurns() const;

private:
    std::string _orientation = "PORTRAIT";
};

} // namespace phone
