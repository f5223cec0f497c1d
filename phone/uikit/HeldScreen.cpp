#include "phone/uikit/HeldScreen.h"

#include "phone/device/Orientation.h"
#include "phone/device/Settings.h"

#include <algorithm>

namespace phone {

namespace {

CGSize uprightSize() { return {settings().device.width, settings().device.height}; }

/// Turns a point of a picture of this size clockwise by a quarter.
CGPoint turned(CGPoint point, CGSize size) { return {size.height - point.y, point.x}; }

} // namespace

HeldScreen& HeldScreen::shared() {
    static auto* screen = new HeldScreen;
    return *screen;
}

bool HeldScreen::turn(const std::string& orientation) {
    if (std::find(orientationNames.begin(), orientationNames.end(), orientation) == orientationNames.end()) {
        return false;
    }
    _orientation = orientation;
    return true;
}

int HeldScreen::quarterTurns() const {
    return static_cast<int>(std::find(orientationNames.begin(), orientationNames.end(), _orientation) -
                            orientationNames.begin());
}

CGSize HeldScreen::size() const {
    const CGSize upright = uprightSize();
    return quarterTurns() % 2 == 0 ? upright : CGSize{upright.height, upright.width};
}

CGPoint HeldScreen::held(CGPoint upright) const {
    CGSize size = uprightSize();
    for (int turn = 0; turn < quarterTurns(); ++turn) {
        upright = turned(upright, size);
        std::swap(size.width, size.height);
    }
    return upright;
}

CGPoint HeldScreen::upright(CGPoint held) const {
    CGSize size = this->size();
    for (int turn = quarterTurns(); turn % 4 != 0; ++turn) {
        held = turned(held, size);
        std::swap(size.width, size.height);
    }
    return held;
}

CGRect HeldScreen::held(CGRect upright) const {
    const CGPoint a = held(upright.origin);
    const CGPoint b = held(CGPoint{upright.maxX(), upright.maxY()});
    const CGPoint origin{std::min(a.x, b.x), std::min(a.y, b.y)};
    return {origin, {std::max(a.x, b.x) - origin.x, std::max(a.y, b.y) - origin.y}};
}

} // namespace phone
