#include "phone/uikit/Interface.h"

#include "phone/device/RunLoop.h"
#include "phone/device/Settings.h"
#include "phone/uikit/Alert.h"
#include "phone/uikit/HeldScreen.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/Orientations.h"
#include "phone/uikit/Placement.h"
#include "phone/uikit/Presentation.h"
#include "phone/uikit/View.h"
#include "phone/uikit/ViewController.h"
#include "phone/uikit/Window.h"

#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

namespace phone {

namespace {

using Controllers = std::vector<UIViewController>;

// In the order of quarters clockwise by which a root view is turned. Held with its top to the left, a
// device shows what is called landscape right, after the side of its button.
constexpr std::array orientations = {UIInterfaceOrientation::Portrait, UIInterfaceOrientation::LandscapeRight,
                                     UIInterfaceOrientation::PortraitUpsideDown, UIInterfaceOrientation::LandscapeLeft};

CGSize uprightSize() { return {settings().device.width, settings().device.height}; }

/// That in which the interface is upright for the person.
UIInterfaceOrientation heldOrientation() {
    return orientations[static_cast<std::size_t>((4 - HeldScreen::shared().quarterTurns()) % 4)];
}

int quartersOf(UIInterfaceOrientation orientation) {
    const auto* const found = std::find(orientations.begin(), orientations.end(), orientation);
    return static_cast<int>(found - orientations.begin());
}

/// Those shown in a window, lowest first.
Controllers shownIn(const UIWindow& window) {
    const UIViewController root = window.rootViewController();
    return root && !window.isHidden() ? presentation::visibleFrom(root) : Controllers();
}

void addWithChildren(Controllers& all, const UIViewController& controller) {
    all.push_back(controller);
    for (const auto& child : controller.send<"_appearingChildren", NSArray>()) {
        addWithChildren(all, objc::as<UIViewController>(child));
    }
}

struct Shown {
    UIWindow window;
    UIViewController controller;
};

std::vector<Shown> everythingShown() {
    std::vector<Shown> all;
    for (const UIWindow& window : Window::all()) {
        for (const UIViewController& controller : shownIn(window)) {
            all.push_back({window, controller});
        }
    }
    return all;
}

} // namespace

Interface& Interface::shared() {
    static auto* interface = new Interface;
    return *interface;
}

CGRect Interface::screen() { return {{}, uprightSize()}; }

int Interface::quarters() const { return quartersOf(_orientation); }

CGSize Interface::size() const {
    const CGSize upright = uprightSize();
    return quarters() % 2 == 0 ? upright : CGSize{upright.height, upright.width};
}

CGRect Interface::upright(CGRect rect) const {
    const CGSize screen = uprightSize();
    const CGSize read = size();
    const CGPoint half = turned({read.width / 2, read.height / 2}, quarters());
    return Placement{quarters(), {screen.width / 2 - half.x, screen.height / 2 - half.y}}.outward(rect);
}

CGRect Interface::told(CGRect rect) const { return settings().system.number >= 8 ? rect : upright(rect); }

void Interface::fill(const UIView& view, const UIWindow& window) const {
    if (View* peer = View::of(view)) {
        peer->setQuarters(quarters());
        view.setFrame(window.bounds());
    }
}

void Interface::deviceTurned() {
    if (UIApplication::shared().isIgnoringInteractionEvents()) {
        _waits = true;
        return;
    }
    const Controllers shown = shownIn(Window::front());
    const UIInterfaceOrientation to = heldOrientation();
    if (shown.empty() || to == _orientation) {
        return;
    }
    // The lowest of what is seen fills the screen; what lies over it without filling the screen is not asked.
    const OrientationAnswer answer = orientationAnswer(shown.front());
    if (answer.turns && answer.allowed.has(to)) {
        turn(to);
    }
}

void Interface::transitionsEnded() {
    if (std::exchange(_waits, false)) {
        RunLoop::main().perform([this] { deviceTurned(); });
    }
}

void Interface::adopt(const UIViewController& controller) {
    const OrientationAnswer answer = orientationAnswer(controller);
    for (const UIInterfaceOrientation wanted :
         {answer.turns ? heldOrientation() : _orientation, _orientation, UIInterfaceOrientation::Portrait,
          UIInterfaceOrientation::LandscapeRight, UIInterfaceOrientation::LandscapeLeft,
          UIInterfaceOrientation::PortraitUpsideDown}) {
        if (answer.allowed.has(wanted)) {
            if (wanted != _orientation) {
                Keyboard::shared().interfaceWillTurn();
                _orientation = wanted;
                Keyboard::shared().interfaceTurned(0);
                Alerts::shared().interfaceTurned();
            }
            return;
        }
    }
}

void Interface::turn(UIInterfaceOrientation to) {
    const UIInterfaceOrientation from = _orientation;
    const int distance = std::abs(quartersOf(to) - quartersOf(from));
    const double duration = quarterSeconds * (distance == 2 ? 2 : 1);
    const std::vector<Shown> shown = everythingShown();
    Controllers told;
    for (const Shown& one : shown) {
        addWithChildren(told, one.controller);
    }

    UIApplication::shared().beginIgnoringInteractionEvents();
    for (const UIViewController& controller : told) {
        controller.send<"willRotateToInterfaceOrientation:duration:">(to, duration);
    }
    Keyboard::shared().interfaceWillTurn();
    _orientation = to;
    UIView::animate(
        duration, 0, 0,
        ^{
          for (const Shown& one : shown) {
              fill(one.controller.view(), one.window);
              one.controller.view().layoutIfNeeded();
          }
          Keyboard::shared().interfaceTurned(duration);
          Alerts::shared().interfaceTurned();
          for (const UIViewController& controller : told) {
              controller.send<"willAnimateRotationToInterfaceOrientation:duration:">(to, duration);
          }
        },
        ^(bool) {
          for (const UIViewController& controller : told) {
              controller.send<"didRotateFromInterfaceOrientation:">(from);
          }
          UIApplication::shared().endIgnoringInteractionEvents();
        });
}

} // namespace phone
