#include "phone/flow/CommandReader.h"

#include "phone/device/Orientation.h"
#include "phone/flow/FlowFile.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/PreferenceReader.h"
#include "phone/flow/SelectorReader.h"

#include <algorithm>
#include <array>

namespace phone {

namespace {

constexpr int deepest = 20;            // runFlow and repeat inside each other
constexpr long mostTimes = 100'000;    // rounds of a loop, backspaces
constexpr long defaultBackspaces = 50; // as testers know it
constexpr double defaultSwipe = 400;   // milliseconds

/// One of a few words, exactly.
template <std::size_t N>
std::string oneOf(const Yaml& node, const std::string& name, const CommandScope& scope,
                  const std::array<std::string_view, N>& words) {
    const std::string text = readText(node, name, scope);
    if (std::find(words.begin(), words.end(), text) == words.end()) {
        std::string all;
        for (std::string_view word : words) {
            all += (all.empty() ? "" : ", ") + std::string(word);
        }
        node.fail(name + " \"" + text + "\" is not one of " + all);
    }
    return text;
}

commands::Any phoneCall(const Yaml& node, const CommandScope& scope) {
    static constexpr std::array<std::string_view, 4> actions = {"call", "accept", "hold", "cancel"};
    const YamlMap keys = node.map("phoneCall", {"number", "action"});
    commands::PhoneCall call;
    call.action = oneOf(keys.require("action"), "action", scope, actions);
    if (const auto number = keys.find("number")) {
        call.number = readText(*number, "number", scope);
    } else if (call.action == "call") {
        node.fail("phoneCall needs the key `number` for the action call");
    }
    return call;
}

commands::Any swipe(const Yaml& node, const CommandScope& scope) {
    const YamlMap keys = node.map("swipe", {"start", "end", "duration"});
    const auto duration = keys.find("duration");
    return commands::Swipe{readPoint(keys.require("start"), "start", scope),
                           readPoint(keys.require("end"), "end", scope),
                           (duration ? duration->number("duration", 0) : defaultSwipe) / 1000};
}

commands::Any setClock(const Yaml& node, const CommandScope& scope) {
    const std::string time = readText(node, "setClock", scope);
    if (!isLocalTime(time)) {
        node.fail("setClock \"" + time + "\" is no local time; write it like 2026-03-05T23:40:00");
    }
    return commands::SetClock{time};
}

commands::Any pickDate(const Yaml& node, const CommandScope& scope) {
    const std::string time = readText(node, "pickDate", scope);
    const auto fields = localFields(time);
    if (!fields || fields->tm_sec != 0) {
        node.fail("pickDate \"" + time + "\" is no local time of a whole minute; write it like 2026-05-16T09:00");
    }
    return commands::PickDate{time};
}

Access access(const Yaml& node, const std::string& name, const CommandScope& scope) {
    static constexpr std::array<std::string_view, 3> words = {"allow", "deny", "ask"};
    const std::string word = oneOf(node, name, scope, words);
    return word == "allow" ? Access::Allow : word == "deny" ? Access::Deny : Access::Ask;
}

commands::Any setPermissions(const Yaml& node, const CommandScope& scope) {
    const YamlMap keys = node.map("setPermissions", {"reminders", "events"});
    commands::SetPermissions permissions;
    if (const auto given = keys.find("reminders")) {
        permissions.reminders = access(*given, "reminders", scope);
    }
    if (const auto given = keys.find("events")) {
        permissions.events = access(*given, "events", scope);
    }
    return permissions;
}

/// A name of a file below the output folder, without its ending.
std::string outputName(const Yaml& node, const std::string& command, const CommandScope& scope) {
    const std::string name = readText(node, command, scope);
    const std::filesystem::path path(name);
    const bool climbs = std::find(path.begin(), path.end(), "..") != path.end();
    if (name.empty() || name.ends_with('/') || path.is_absolute() || climbs) {
        node.fail(command + " \"" + name + "\" has to name a file below the output folder");
    }
    return name;
}

CommandScope inside(const CommandScope& scope, const Yaml& node) {
    CommandScope inner = scope;
    if (++inner.depth > deepest) {
        node.fail("more than " + std::to_string(deepest) +
                  " runFlow and repeat inside each other; does a flow run "
                  "itself?");
    }
    return inner;
}

commands::Any runFlow(const Yaml& node, const CommandScope& outer) {
    const CommandScope scope = inside(outer, node);
    const bool isShort = node.isText();
    const YamlMap keys =
        isShort ? YamlMap(node, "runFlow", {}) : node.map("runFlow", {"file", "commands", "when", "env"});
    if (!isShort && keys.has("file") == keys.has("commands")) {
        node.fail("runFlow needs one of `file` and `commands`");
    }
    commands::RunFlow flow;
    if (const auto when = keys.find("when")) {
        flow.when = readCondition(*when, "when", scope);
    }
    Environment given;
    if (const auto env = keys.find("env")) {
        given = readEnvironment(*env, scope.environment);
    }
    if (const auto list = keys.find("commands")) {
        CommandScope inner = scope;
        given.merge(inner.environment);
        inner.environment = given;
        flow.commands = readCommands(*list, inner);
        return flow;
    }
    const Yaml fileNode = isShort ? node : keys.require("file");
    const auto file = scope.folder / readText(fileNode, "file", scope);
    if (!std::filesystem::is_regular_file(file)) {
        fileNode.fail("no such file: " + file.string());
    }
    flow.commands = readFlowCommands(file.string(), scope, given);
    return flow;
}

commands::Any repeat(const Yaml& node, const CommandScope& outer) {
    const CommandScope scope = inside(outer, node);
    const YamlMap keys = node.map("repeat", {"times", "while", "commands"});
    commands::Repeat loop;
    if (const auto times = keys.find("times")) {
        loop.times = times->wholeNumber("times", 0, mostTimes);
    }
    if (const auto condition = keys.find("while")) {
        loop.loop = readCondition(*condition, "while", scope);
    }
    if (!loop.times && !loop.loop) {
        node.fail("repeat needs `times` or `while`, or both");
    }
    loop.commands = readCommands(keys.require("commands"), scope);
    return loop;
}

/// A command that takes something.
using Reader = commands::Any (*)(const Yaml&, const CommandScope&);

template <class C, commands::Tap::Kind kind>
commands::Any touching(const Yaml& node, const CommandScope& scope) {
    return C{kind, readSelector(node, "the selector", scope, true)};
}

template <class C>
commands::Any looking(const Yaml& node, const CommandScope& scope) {
    return C{readSelector(node, "the selector", scope, false)};
}

template <class C>
commands::Any taking(const Yaml& node, const CommandScope& scope) {
    return C{readText(node, "the text", scope)};
}

struct Known {
    std::string_view name;
    Reader read;                       // nullptr: the command takes nothing
    std::optional<commands::Any> bare; // without a value; nullopt where it needs one
};

const std::vector<Known>& knownCommands() {
    using namespace commands;
    using Kind = Tap::Kind;
    static const auto needs = [](std::string_view name, Reader read) { return Known{name, read, std::nullopt}; };
    static const auto bare = [](std::string_view name, Any what) { return Known{name, nullptr, std::move(what)}; };
    static const std::vector<Known> all = {
        bare("launchApp", LaunchApp{}),
        bare("stopApp", StopApp{}),
        needs("phoneCall", phoneCall),
        needs("tapOn", touching<Tap, Kind::Single>),
        needs("longPressOn", touching<Tap, Kind::Long>),
        needs("doubleTapOn", touching<Tap, Kind::Double>),
        needs("swipe", swipe),
        needs("inputText", taking<InputText>),
        {"eraseText",
         [](const Yaml& n, const CommandScope&) -> Any { return EraseText{n.wholeNumber("eraseText", 0, mostTimes)}; },
         EraseText{defaultBackspaces}},
        needs("pressKey",
              [](const Yaml& n, const CommandScope& s) -> Any {
                  static constexpr std::array<std::string_view, 5> keys = {"enter", "backspace", "delete", "left",
                                                                           "right"};
                  return PressKey{oneOf(n, "pressKey", s, keys)};
              }),
        needs("setClipboard", taking<SetClipboard>),
        bare("pasteText", PasteText{}),
        bare("hideKeyboard", HideKeyboard{}),
        needs("assertVisible", looking<AssertVisible>),
        needs("assertNotVisible", looking<AssertNotVisible>),
        bare("waitForAnimationToEnd", WaitForAnimationToEnd{}),
        needs("advance", [](const Yaml& n, const CommandScope&) -> Any { return Advance{n.number("advance", 0)}; }),
        needs("setOrientation",
              [](const Yaml& n, const CommandScope& s) -> Any {
                  return SetOrientation{oneOf(n, "setOrientation", s, orientationNames)};
              }),
        needs("toggle", looking<Toggle>),
        needs("pickDate", pickDate),
        needs("setClock", setClock),
        needs("setPreferences", [](const Yaml& n, const CommandScope& s) -> Any { return readPreferences(n, s); }),
        needs("setPermissions", setPermissions),
        needs("setStoreAnswers",
              [](const Yaml& n, const CommandScope& s) -> Any {
                  static constexpr std::array<std::string_view, 3> words = {"late", "early", "concurrent"};
                  return SetStoreAnswers{oneOf(n, "setStoreAnswers", s, words)};
              }),
        bare("memoryWarning", MemoryWarning{}),
        needs("takeScreenshot",
              [](const Yaml& n, const CommandScope& s) -> Any {
                  return TakeScreenshot{outputName(n, "takeScreenshot", s)};
              }),
        needs("dumpTree",
              [](const Yaml& n, const CommandScope& s) -> Any { return DumpTree{outputName(n, "dumpTree", s)}; }),
        needs("dumpLog",
              [](const Yaml& n, const CommandScope& s) -> Any { return DumpLog{outputName(n, "dumpLog", s)}; }),
        needs("runFlow", runFlow),
        needs("repeat", repeat),
    };
    return all;
}

const Known& known(const Yaml& node, const std::string& name) {
    const auto& all = knownCommands();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Known& one) { return one.name == name; });
    if (found == all.end()) {
        node.fail("unknown command `" + name + "`; `phone help` lists the commands");
    }
    return *found;
}

Command readCommand(const Yaml& node, const CommandScope& scope) {
    if (node.isText()) {
        const std::string name = node.text("");
        const Known& command = known(node, name);
        if (!command.bare) {
            node.fail(name + " needs something after it, as in `- " + name + ": ...`");
        }
        return {node.place(), name, *command.bare};
    }
    const auto pairs = node.isMap() ? node.pairs("a command") : std::vector<std::pair<Yaml, Yaml>>{};
    if (pairs.size() != 1) {
        node.fail("each command is one line `- command` or `- command: ...`");
    }
    const auto& [key, value] = pairs.front();
    const std::string name = key.text("");
    const Known& command = known(key, name);
    if (!command.read) {
        key.fail(name + " takes nothing; write `- " + name + "` alone");
    }
    if (value.isNull()) {
        key.fail(name + " needs something after the colon");
    }
    return {key.place(), name, command.read(value, scope)};
}

} // namespace

std::vector<Command> readCommands(const Yaml& list, const CommandScope& scope) {
    std::vector<Command> all;
    for (const Yaml& node : list.list("commands")) {
        const int number = static_cast<int>(all.size()) + 1;
        try {
            all.push_back(readCommand(node, scope));
        } catch (const InputError& error) {
            Place place = error.place();
            if (place.command != 0 || place.file != node.place().file) {
                throw; // a command inside, or a file that this one runs, has said where
            }
            place.command = number;
            throw InputError(place, error.problem());
        }
        all.back().place.command = number;
    }
    return all;
}

} // namespace phone
