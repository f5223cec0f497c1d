#include "phone/webdriver/Actions.h"
#include "phone/webdriver/Call.h"
#include "phone/webdriver/Commands.h"

#include <algorithm>
#include <set>

namespace phone::webdriver {

namespace {

constexpr double millisecondsPerSecond = 1000;
constexpr double longest = 60; // seconds of one action
constexpr std::size_t mostTicks = 10000;

[[noreturn]] void refuse(const std::string& where, const std::string& problem) {
    throw Refusal(Error::InvalidArgument, where + ": " + problem);
}

/// One source of the client's list.
class SourceReader {
public:
    SourceReader(const json& source, std::string where, bool fingerIsDown)
        : _source(source), _where(std::move(where)), _isDown(fingerIsDown) {
        if (!source.is_object()) {
            refuse(_where, "a source is an object with type, id and actions");
        }
        _type = textOf(source, "type", _where);
        if (_type != "pointer" && _type != "key" && _type != "none" && _type != "wheel") {
            refuse(_where, "\"type\" has to be pointer, key or none");
        }
    }

    const std::string& type() const { return _type; }
    std::string id() const { return textOf(_source, "id", _where); }

    void addTo(std::vector<Tick>& ticks) {
        if (!_source.contains("actions") || !_source.at("actions").is_array()) {
            refuse(_where, "\"actions\" has to be a list");
        }
        const json& actions = _source.at("actions");
        if (actions.size() > mostTicks) {
            refuse(_where, "more than " + std::to_string(mostTicks) + " actions");
        }
        ticks.resize(std::max(ticks.size(), actions.size()));
        for (std::size_t index = 0; index < actions.size(); ++index) {
            const std::string where = _where + ", action " + std::to_string(index);
            if (!actions[index].is_object()) {
                refuse(where, "an action is an object with a type");
            }
            Tick& tick = ticks[index];
            tick.items.push_back(item(actions[index], where));
            tick.seconds = std::max(tick.seconds, duration(actions[index], where));
        }
        if (!_keysDown.empty()) {
            refuse(_where, "a key goes down and never up");
        }
    }

private:
    static std::string textOf(const json& object, const char* key, const std::string& where) {
        if (!object.contains(key) || !object.at(key).is_string()) {
            refuse(where, std::string("\"") + key + "\" has to be a text");
        }
        return object.at(key);
    }

    static double duration(const json& action, const std::string& where) {
        if (!action.contains("duration") || action.at("duration").is_null()) {
            return 0;
        }
        const json& given = action.at("duration");
        const double seconds = given.is_number() ? given.get<double>() / millisecondsPerSecond : -1;
        if (!(seconds >= 0 && seconds <= longest)) {
            refuse(where, "\"duration\" has to be from 0 to 60000 milliseconds");
        }
        return seconds;
    }

    ActionItem item(const json& action, const std::string& where) {
        const std::string what = textOf(action, "type", where);
        if (what == "pause") {
            return Pause{};
        }
        if (_type == "pointer") {
            return pointerItem(action, what, where);
        }
        if (_type == "key") {
            return keyItem(action, what, where);
        }
        if (_type == "wheel") { // it may stand there and pause, as clients send it with everything
            throw Refusal(Error::UnsupportedOperation, where + ": a phone has no wheel; use a pointer");
        }
        refuse(where, "a source of type none can only pause, not " + what);
    }

    ActionItem pointerItem(const json& action, const std::string& what, const std::string& where) {
        if (what == "pointerMove") {
            return pointerMove(action, where);
        }
        if (what == "pointerDown") {
            if (std::exchange(_isDown, true)) {
                refuse(where, "the pointer is down already");
            }
            return PointerDown{};
        }
        if (what == "pointerUp") {
            if (!std::exchange(_isDown, false)) {
                refuse(where, "the pointer goes up without having gone down");
            }
            return PointerUp{};
        }
        if (what == "pointerCancel") {
            throw Refusal(Error::UnsupportedOperation,
                          where + ": a finger cannot be cancelled; DELETE actions lifts it");
        }
        refuse(where, "a pointer does pointerMove, pointerDown, pointerUp and pause, not " + what);
    }

    static PointerMove pointerMove(const json& action, const std::string& where) {
        PointerMove move;
        const auto coordinate = [&](const char* key) {
            if (!action.contains(key) || !action.at(key).is_number()) {
                refuse(where, std::string("\"") + key + "\" has to be a number of points");
            }
            return action.at(key).get<double>();
        };
        move.to = {coordinate("x"), coordinate("y")};
        if (!action.contains("origin") || action.at("origin").is_null() || action.at("origin") == "viewport") {
            return move;
        }
        const json& origin = action.at("origin");
        if (origin == "pointer") {
            move.origin = PointerMove::Origin::Pointer;
            return move;
        }
        move.origin = PointerMove::Origin::Element;
        for (const char* key : {elementKey, "ELEMENT"}) {
            if (origin.is_object() && origin.contains(key) && origin.at(key).is_string()) {
                move.element = origin.at(key);
                return move;
            }
        }
        refuse(where, "\"origin\" has to be viewport, pointer or an element");
    }

    ActionItem keyItem(const json& action, const std::string& what, const std::string& where) {
        if (what != "keyDown" && what != "keyUp") {
            refuse(where, "a key source does keyDown, keyUp and pause, not " + what);
        }
        const std::string key = textOf(action, "value", where);
        if (key.empty()) {
            refuse(where, "\"value\" is the key, one character");
        }
        if (what == "keyDown") {
            _keysDown.insert(key);
            return KeyDown{key};
        }
        if (_keysDown.erase(key) == 0) {
            refuse(where, "the key goes up without having gone down");
        }
        return Pause{};
    }

    const json& _source;
    std::string _where;
    std::string _type;
    bool _isDown;
    std::set<std::string> _keysDown;
};

} // namespace

std::vector<Tick> readActions(const json& actions, bool fingerIsDown) {
    if (!actions.is_array()) {
        throw Refusal(Error::InvalidArgument, "\"actions\" has to be a list of sources");
    }
    std::vector<Tick> ticks;
    std::set<std::string> ids;
    bool hasPointer = false;
    for (std::size_t index = 0; index < actions.size(); ++index) {
        const std::string where = "source " + std::to_string(index);
        SourceReader source(actions[index], where, fingerIsDown);
        if (!ids.insert(source.id()).second) {
            refuse(where, "the id \"" + source.id() + "\" is another source's already");
        }
        if (source.type() == "pointer" && std::exchange(hasPointer, true)) {
            throw Refusal(Error::UnsupportedOperation, where + ": the phone's screen follows one finger only");
        }
        source.addTo(ticks);
    }
    return ticks;
}

} // namespace phone::webdriver
