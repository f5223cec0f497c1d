/// Which orientations the interface may take: what the application allows, and what the controller in front does.
#pragma once

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"

#include <initializer_list>

namespace phone {

/// `UIInterfaceOrientationMask`: a bit an orientation.
class OrientationMask {
public:
    constexpr OrientationMask(std::initializer_list<UIInterfaceOrientation> all) {
        for (const UIInterfaceOrientation one : all) {
            _bits |= bit(one);
        }
    }
    constexpr explicit OrientationMask(objc::UInt bits) : _bits(bits) {}

    constexpr bool has(UIInterfaceOrientation one) const { return (_bits & bit(one)) != 0; }
    constexpr OrientationMask with(UIInterfaceOrientation one) const { return OrientationMask(_bits | bit(one)); }
    constexpr OrientationMask common(OrientationMask other) const { return OrientationMask(_bits & other._bits); }
    constexpr bool isEmpty() const { return _bits == 0; }
    constexpr objc::UInt bits() const { return _bits; }

private:
    static constexpr objc::UInt bit(UIInterfaceOrientation one) { return 1u << static_cast<objc::UInt>(one); }

    objc::UInt _bits = 0;
};

/// What a controller takes that says nothing: everything on a tablet, on a phone everything but upside down.
OrientationMask orientationsByDefault();

/// How a controller answers for the interface when it is in front. Its children are not asked.
struct OrientationAnswer {
    bool turns;              // it follows the device
    OrientationMask allowed; // by the controller and the application both
};
/// Asks the newer pair of questions; where the controller's class overrides neither and overrides the older
/// question, that one. Raises UIApplicationInvalidInterfaceOrientation where a controller that follows the device
/// has no orientation in common with the application.
OrientationAnswer orientationAnswer(const UIViewController& controller);

} // namespace phone
