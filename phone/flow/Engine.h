/// Hands and eyes: what a script or a tool does on the screen, whichever way it came in.
#pragma once

#include "phone/device/Screen.h"
#include "phone/flow/ScreenTree.h"
#include "phone/flow/Selector.h"

#include <stdexcept>
#include <string>

namespace phone {

/// Something is not as the flow says, or not there to be touched; the text is one line for a person.
class CommandFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Works on a running application. Whatever takes a selector waits for it, up to `patience` on the
/// animation clock. Throws CommandFailure, and ScreenError when the application refuses or dies.
class Engine {
public:
    static constexpr double patience = 7;         // seconds, as testers know it
    static constexpr double look = 0.1;           // seconds from one look at the screen to the next
    static constexpr double tapSeconds = 0.05;    // how long a finger stays down
    static constexpr double longPressSeconds = 3; // as testers know it
    static constexpr double doubleTapPause = 0.1; // seconds from the first tap's end to the second
    static constexpr double rowSeconds = 0.02;    // how long a finger takes for one row of a wheel
    static constexpr long rowsAtFirst = 32;       // turned before the first look; more than half of any ring
    static constexpr double swipeStep = 1.0 / 60; // seconds from one place of the finger to the next

    /// The screen has to outlive the engine.
    explicit Engine(Screen& screen) : _screen(screen) {}

    void tap(const Selector& selector);
    void longPress(const Selector& selector);
    void doubleTap(const Selector& selector);
    /// The finger goes evenly and stops before it leaves the glass.
    void swipe(const PointSpec& start, const PointSpec& end, double seconds);
    /// A finger goes down, stays for so many seconds and goes up.
    void press(const ScreenPoint& point, double seconds);
    void pressTwice(const ScreenPoint& point);
    /// A finger goes down, is held still, goes evenly from one point to the other and up.
    void drag(const ScreenPoint& from, const ScreenPoint& to, double seconds, double held = 0);
    /// The same of a finger that is down, and stays so, in this many steps.
    void move(const ScreenPoint& from, const ScreenPoint& to, double seconds, int steps);
    void erase(long characters);
    /// Touches the switch on the line of the label, or the one that the selector names itself.
    void toggle(const Selector& selector);
    /// Turns the wheels of the date picker on the screen, a finger's reach at a time, until it shows this
    /// local time; where it does already nothing is touched. A picker of dates alone keeps its time of day.
    /// Looks at the picker less often the longer all goes well; fails once it is no nearer than before.
    void pickDate(const std::string& localTime);

    void assertVisible(const Selector& selector);
    void assertNotVisible(const Selector& selector);
    /// Whether it is visible, or becomes so in time.
    bool becomesVisible(const Selector& selector);
    /// Whether it is not visible, or ceases to be in time.
    bool becomesInvisible(const Selector& selector);
    /// As the screen stands.
    bool isVisible(const Selector& selector);

private:
    ScreenPoint touchPoint(const Selector& selector);
    void turnWheel(const ScreenTree& tree, const ScreenElement& wheel, long rows);
    ScreenPoint checked(const ScreenTree& tree, const ScreenPoint& point) const;
    template <class Question>
    bool waitUntil(const Question& question);

    Screen& _screen;
};

} // namespace phone
