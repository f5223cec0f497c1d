/// How the interface stands on the screen: the rotation that follows the device where controllers allow it.
#pragma once

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"

namespace phone {

/// One per process. Windows, screen and keyboard keep the coordinates of the device held upright; what
/// turns is the root view of each window and of each controller presented there, by a transform of whole
/// quarters. Which orientations it takes: see Orientations.
class Interface {
public:
    /// How long a quarter of a turn takes, in seconds.
    static constexpr double quarterSeconds = 0.4;

    static Interface& shared();

    /// The whole screen, held upright.
    static CGRect screen();

    UIInterfaceOrientation orientation() const { return _orientation; }
    /// How far a view that fills a window is turned in it, clockwise.
    int quarters() const;
    /// Width and height as they are read.
    CGSize size() const;
    /// From the interface's own rectangle to that of the screen held upright.
    CGRect upright(CGRect rect) const;

    /// The same as applications get to read it: up to 7 that of the screen held upright, from 8 on the interface's own.
    CGRect told(CGRect rect) const;

    /// The view fills the window, as the interface stands.
    void fill(const UIView& view, const UIWindow& window) const;
    /// The person has turned the device. Asks the controller in front, not its children; where it allows the new
    /// orientation the interface turns, and whoever is shown is told in the platform's order, children too. While a
    /// transition is under way that waits for its end.
    void deviceTurned();
    /// A controller is about to fill the screen: the interface stands as it allows, as the device is held if
    /// it can be. Nobody is told; who shows the controller puts it in its place.
    void adopt(const UIViewController& controller);
    /// Touches are delivered again.
    void transitionsEnded();

private:
    void turn(UIInterfaceOrientation to);

    UIInterfaceOrientation _orientation = UIInterfaceOrientation::Portrait;
    bool _waits = false; // the device was turned during a transition
};

} // namespace phone
