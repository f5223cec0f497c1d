/// The running phone application as flows, tools and tests see it: one entry for touches, keys and questions.
#pragma once

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>

namespace phone {

/// The phone application refused a command, or died.
class ScreenError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Either in this process (tests) or at the other end of a socket. Coordinates are points of the screen
/// as the person holds the device. After each command the application has drained its main loop; the
/// animation clock moves only by `advance` and `settle`. Every call throws ScreenError when the
/// application has died or refuses.
class Screen {
public:
    enum class Phase { Began, Moved, Ended, Cancelled };

    virtual ~Screen() = default;

    /// A finger goes down, moves or goes up, or something takes its touch away. All touches enter here.
    void touch(Phase phase, double x, double y);
    /// Characters through the key entry, one composed character at a time.
    void type(const std::string& text);
    /// "enter" or "backspace"; of a connected keyboard also "delete" (what is behind the caret),
    /// "left", "right", "home" and "end".
    void key(const std::string& name);
    /// Moves the animation clock.
    void advance(double seconds);
    /// Moves the animation clock until nothing moves any more and every answer of the calendar store has returned.
    void settle();
    /// The dumped tree. For finding, each element carries more attributes: `visible` (true, false); where a
    /// touch reaches it or something inside it, `touch` ("x y", a point that does); where a person sees it
    /// turned, `turned` (clockwise, in quarters); `identity`, a number that no other view of this process ever
    /// has; `kind`, the nearest class that the platform publishes; `enabled`; where one is set, the
    /// `accessibilityLabel`; and what a key of the keyboard is for (`key`).
    std::string tree(bool forFinding = false);
    /// The tree for finding, whose root carries the `identity` of the view that a touch at the point would reach
    /// (`hit`); without it where none would.
    std::string treeAt(double x, double y);
    /// The log's lines, or those after the first few.
    std::string log(std::size_t from = 0);
    /// Writes a PNG file at two pixels per point.
    void screenshot(const std::string& path);
    /// The same of a part of the screen, which has to lie on it: points, as the person holds the device.
    void screenshot(const std::string& path, double x, double y, double width, double height);
    /// `action` is call, accept, hold or cancel.
    void phoneCall(const std::string& number, const std::string& action);
    /// Sets the wall clock, which stands still from then on; seconds since 1970, UTC.
    void setClock(double seconds);
    /// Sets the wall clock and lets it move by itself.
    void runClock(double seconds);
    /// "late" (as the application starts), "early" or "concurrent": when the calendar store answers requests for
    /// access that need no person.
    void setStoreAnswers(const std::string& when);
    /// The system warns the application that memory is short.
    void warnOfMemory();
    void setOrientation(const std::string& name);
    void setClipboard(const std::string& text);
    /// The pasteboard's text; "" where there is none.
    std::string clipboard();
    void pasteText();
    void hideKeyboard();

    /// What the phone is doing: `orientation`, `call` {phase: idle, ringing, active, held, ended; number; seconds},
    /// `clock` (seconds since 1970, UTC), `keyboard` (whether it is shown), `logged` (how many lines the log has).
    nlohmann::json state();

    /// Sends one command and gives the answer; the one way into the application.
    virtual nlohmann::json request(const nlohmann::json& command) = 0;
};

} // namespace phone
