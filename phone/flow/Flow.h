/// A script for the phone, read and checked: its header and its commands.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/flow/InputError.h"
#include "phone/flow/Selector.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace phone {

struct Command;

/// What a flow's header says about the phone; what is left out is nullopt.
struct PhoneOptions {
    std::optional<std::string> device;
    std::optional<std::string> application;
    std::optional<std::string> language;
    std::optional<std::string> region;
    std::optional<std::string> hours;
    std::optional<std::string> system;
    std::optional<std::string> now; // local time in the zone
    std::optional<std::string> zone;
};

/// Whether a selector's thing is there, or is not there.
struct Condition {
    Selector selector;
    bool visible = true;
};

/// One value of the preferences file; monostate removes the key.
using PreferenceValue = std::variant<std::monostate, bool, long, double, std::string>;

namespace commands {

struct LaunchApp {};
struct StopApp {};
struct PhoneCall {
    std::string number; // "" where the action needs none
    std::string action; // call, accept, hold, cancel
};
struct Tap {
    enum class Kind { Single, Long, Double };
    Kind kind;
    Selector selector;
};
struct Swipe {
    PointSpec start;
    PointSpec end;
    double seconds;
};
struct InputText {
    std::string text;
};
struct EraseText {
    long count;
};
struct PressKey {
    std::string key; // enter, backspace, delete, left, right
};
struct SetClipboard {
    std::string text;
};
struct PasteText {};
struct HideKeyboard {};
struct AssertVisible {
    Selector selector;
};
struct AssertNotVisible {
    Selector selector;
};
struct WaitForAnimationToEnd {};
struct Advance {
    double seconds;
};
struct SetOrientation {
    std::string orientation;
};
struct SetClock {
    std::string localTime;
};
struct Toggle {
    Selector selector; // of the label beside the switch
};
struct PickDate {
    std::string localTime; // of a whole minute
};
struct SetPreferences {
    std::vector<std::pair<std::string, PreferenceValue>> values;
};
struct SetPermissions {
    std::optional<Access> reminders; // nullopt leaves it as it is
    std::optional<Access> events;
};
struct SetStoreAnswers {
    std::string when; // late, early, concurrent
};
struct MemoryWarning {};
struct TakeScreenshot {
    std::string name;
};
struct DumpTree {
    std::string name;
};
struct DumpLog {
    std::string name;
};
struct RunFlow {
    std::optional<Condition> when;
    std::vector<Command> commands;
};
struct Repeat {
    std::optional<long> times;
    std::optional<Condition> loop; // goes on while this holds
    std::vector<Command> commands;
};

using Any = std::variant<LaunchApp, StopApp, PhoneCall, Tap, Swipe, InputText, EraseText, PressKey, SetClipboard,
                         PasteText, HideKeyboard, AssertVisible, AssertNotVisible, WaitForAnimationToEnd, Advance,
                         SetOrientation, SetClock, SetPreferences, TakeScreenshot, DumpTree, DumpLog, RunFlow, Repeat,
                         Toggle, PickDate, SetPermissions, SetStoreAnswers, MemoryWarning>;

} // namespace commands

struct Command {
    Place place;
    std::string name; // as the flow spells it
    commands::Any what;
};

struct Flow {
    std::string file;
    std::string name; // the file's name without its ending when the header gives none
    PhoneOptions phone;
    std::vector<Command> commands;

    /// Reads a flow with all flows that it runs; throws InputError at the first thing that is wrong.
    static Flow read(const std::string& file);
    /// The same of a text. `name` stands for its file, beside which the flows that it runs lie.
    static Flow parse(const std::string& text, const std::string& name);
};

} // namespace phone
