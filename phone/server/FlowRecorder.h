/// Writes down what a person does with the phone, as a flow that does it again.
#pragma once

#include "phone/flow/Flow.h"
#include "phone/flow/PhoneOptions.h"
#include "phone/flow/ScreenTree.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace phone {

/// Hears of each thing done, in order. The flow begins with the phone application's start.
class FlowRecorder {
public:
    /// The phone as the recording finds it.
    struct Beginning {
        LaunchSettings settings;
        std::string localTime;                                             // at which the wall clock stands
        std::vector<std::pair<std::string, std::optional<bool>>> switches; // nullopt for one that was never touched
        Access reminders = Access::Ask;
        Access events = Access::Ask;
    };
    /// When something is done.
    struct Moment {
        double seconds = 0;  // of any clock that goes on evenly
        bool moving = false; // whether something moved on the screen by itself
    };

    static constexpr double farthestTap = 10; // points that a finger may move and still tap
    static constexpr double longPress = 1;    // seconds from which a finger that stays is a long press
    static constexpr double shortestWait = 0.05;

    explicit FlowRecorder(const Beginning& beginning);

    /// `tree` is the screen's tree for this point, before the touch.
    void fingerDown(const Moment& moment, const ScreenPoint& point, const std::string& tree);
    void fingerMoved(const ScreenPoint& point);
    void fingerUp(const Moment& moment, const ScreenPoint& point);
    /// What it has done so far is not written down.
    void fingerCancelled() { _finger.reset(); }

    void type(const Moment& moment, const std::string& text);
    void key(const Moment& moment, const std::string& name);
    void paste(const Moment& moment, const std::string& text);
    void call(const Moment& moment, const std::string& action, const std::string& number);
    void turn(const Moment& moment, const std::string& orientation);
    void setClock(const Moment& moment, const std::string& localTime);
    void setSwitch(const Moment& moment, const std::string& key, std::optional<bool> value);
    void setPermissions(const Moment& moment, Access reminders, Access events);
    void launch(const Moment& moment);

    /// Whether the next thing done should be preceded by `look`.
    bool wantsLook() const { return _wheel.has_value(); }
    /// The tree for finding, once what the last touch has set off is over: which date its wheels have come to.
    void look(const std::string& tree);

    std::size_t count() const { return _commands.size() - _opening; }
    /// The flow's file.
    std::string text() const;

private:
    struct Finger {
        Moment began;
        ScreenPoint start;
        std::string name; // as `tapOn` takes it
        std::optional<std::string> date;
        double farthest = 0;
    };
    struct Wheel {
        ScreenPoint point;
        std::string date; // before it was turned
    };
    enum class Kind { Other, Wait, Text, Erase, Date };
    struct Written {
        Kind kind;
        std::string line; // "" where the value says all
        std::string text; // what is typed
        long count = 0;   // of backspaces
    };

    /// Waits as the person has waited, then does it.
    void add(const Moment& moment, const std::string& line);
    void waitFor(const Moment& moment);
    void write(const std::string& line, Kind kind = Kind::Other) { _commands.push_back({kind, line, "", 0}); }
    Kind lastKind() const { return _commands.back().kind; }

    Beginning _beginning;
    std::vector<Written> _commands;
    std::size_t _opening = 0; // commands before the first thing done
    std::optional<Finger> _finger;
    std::optional<Wheel> _wheel;
    double _lastEnd = 0;
};

/// "ask", "allow" or "deny", as flows say it.
const char* nameOf(Access access);

} // namespace phone
