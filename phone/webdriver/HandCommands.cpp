// Touching and typing.

#include "phone/webdriver/Actions.h"
#include "phone/webdriver/Commands.h"
#include "phone/webdriver/Keys.h"
#include "phone/webdriver/Reach.h"
#include "phone/webdriver/Wheel.h"

#include <algorithm>
#include <cmath>

namespace phone::webdriver {

namespace {

constexpr double edge = 0.05;       // points; on the very edge a touch may go to the neighbour
constexpr double longestTouch = 60; // seconds
constexpr double usualSwipeSeconds = 0.25;
constexpr double partOfSwipe = 0.4; // of the area's side, from its middle

/// Which element the call means: by the path, or by one of the names that clients give it; "" for none.
std::string reference(const Call& call) {
    if (const std::string inPath = call.parameter("element"); !inPath.empty()) {
        return inPath;
    }
    for (const char* key : {"elementId", "element", elementKey}) {
        if (!call.has(key)) {
            continue;
        }
        const json& value = call.body.at(key);
        if (value.is_object() && value.contains(elementKey) && value.at(elementKey).is_string()) {
            return value.at(elementKey);
        }
        return call.text(key);
    }
    return "";
}

/// In seconds, no longer than a finger can stay.
double seconds(const Call& call, const char* key, double otherwise) {
    const double given = call.number(key, otherwise);
    if (!(given >= 0 && given <= longestTouch)) {
        throw Refusal(Error::InvalidArgument, std::string("\"") + key + "\" has to be from 0 to 60 seconds");
    }
    return given;
}

/// A point of the screen, or of the element that the call names; its middle where no point is given.
Point target(Session& session, const Call& call) {
    const std::string on = reference(call);
    if (on.empty()) {
        const Point point{call.number("x"), call.number("y")};
        checkOnScreen(session, point);
        return point;
    }
    const Point reached = reach(session, on);
    if (!call.has("x") && !call.has("y")) {
        return reached;
    }
    const AccessibilityTree tree = session.tree();
    const Point corner = session.element(tree, on).corner();
    const Point point{corner.x + std::max(call.number("x"), edge), corner.y + std::max(call.number("y"), edge)};
    checkOnScreen(session, point);
    return point;
}

void type(Session& session, const std::string& utf8) {
    for (const Stroke& stroke : strokes(utf8)) {
        try {
            stroke.kind == Stroke::Kind::Key ? session.phone().key(stroke.what) : session.phone().type(stroke.what);
        } catch (const ApplicationDied&) {
            throw;
        } catch (const ScreenError& refused) {
            throw Refusal(Error::InvalidElementState, std::string(refused.what()) + "; touch a text first");
        }
    }
    session.settle();
}

/// What is to be typed: "text", or "value" or "keys" as a text, a number or a list of texts.
std::string typed(const Call& call) {
    if (call.has("text")) {
        return call.text("text");
    }
    const char* key = call.has("keys") ? "keys" : "value";
    if (!call.has(key)) {
        throw Refusal(Error::InvalidArgument, R"("text", "value" or "keys" says what is to be typed)");
    }
    const json& value = call.body.at(key);
    if (value.is_number()) {
        return value.dump();
    }
    if (!value.is_array()) {
        return call.text(key);
    }
    std::string all;
    for (const json& part : value) {
        if (!part.is_string()) {
            throw Refusal(Error::InvalidArgument, std::string("\"") + key + "\" is a list of texts");
        }
        all += part.get<std::string>();
    }
    return all;
}

/// Shows a value at all times, which a new one takes the place of.
bool isPicker(const std::string& type) {
    return type == "XCUIElementTypePickerWheel" || type == "XCUIElementTypeDatePicker";
}

bool isTextInput(const std::string& type) {
    return type == "XCUIElementTypeTextField" || type == "XCUIElementTypeTextView" ||
           type == "XCUIElementTypeSecureTextField" || type == "XCUIElementTypeSearchField";
}

struct Seen {
    std::string type;
    bool focused = false;
    std::string value; // "" where only the placeholder is shown
};

Seen see(Session& session, const std::string& reference) {
    const AccessibilityTree tree = session.tree();
    const Element element = session.element(tree, reference);
    const std::string value = element.value().value_or("");
    const bool isPlaceholder = element.placeholder() && value == *element.placeholder();
    return {element.type(), element.isFocused(), isPlaceholder ? "" : value};
}

/// Touches a text that is not being edited, with the caret behind it then.
void edit(Session& session, const std::string& reference) {
    if (!see(session, reference).focused) {
        touchAt(session, reach(session, reference));
        if (see(session, reference).focused) { // who asked for it may have been refused
            session.phone().key("end");
        }
    }
}

long graphemeUpperBound(const std::string& utf8) {
    return std::count_if(utf8.begin(), utf8.end(),
                         [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
}

/// Across an area: from its middle towards the direction, as a finger does.
void swipeAcross(Session& session, const Rect& area, const std::string& direction, double seconds) {
    const Point middle{static_cast<double>(area.x) + static_cast<double>(area.width) / 2,
                       static_cast<double>(area.y) + static_cast<double>(area.height) / 2};
    const double across = static_cast<double>(area.width) * partOfSwipe;
    const double down = static_cast<double>(area.height) * partOfSwipe;
    const auto go = [&](double x, double y) {
        drag(session, {middle.x - x, middle.y - y}, {middle.x + x, middle.y + y}, seconds);
    };
    if (direction == "up") {
        go(0, -down);
    } else if (direction == "down") {
        go(0, down);
    } else if (direction == "left") {
        go(-across, 0);
    } else if (direction == "right") {
        go(across, 0);
    } else {
        throw Refusal(Error::InvalidArgument, "\"direction\" has to be up, down, left or right");
    }
}

Rect areaOf(Session& session, const Call& call) {
    const AccessibilityTree tree = session.tree();
    const std::string on = reference(call);
    return on.empty() ? tree.application().rect() : session.element(tree, on).rect();
}

} // namespace

json click(Session& session, const Call& call) {
    touchAt(session, reach(session, reference(call)));
    return nullptr;
}

json clear(Session& session, const Call& call) {
    const std::string on = reference(call);
    const Seen before = see(session, on);
    if (isPicker(before.type)) {
        return nullptr; // clients clear before they set a value
    }
    if (!isTextInput(before.type)) {
        throw Refusal(Error::InvalidElementState, before.type + " holds no text that could be cleared");
    }
    edit(session, on);
    // Editing may itself change the text. What stands behind the caret goes the other way.
    const std::string value = see(session, on).value;
    for (const char* key : {"backspace", "delete"}) {
        for (long left = graphemeUpperBound(value); left > 0 && !session.isOver(); --left) {
            session.phone().key(key);
        }
    }
    session.settle();
    return nullptr;
}

json sendValue(Session& session, const Call& call) {
    const std::string on = reference(call);
    const std::string value = typed(call);
    const Seen seen = see(session, on);
    if (seen.type == "XCUIElementTypePickerWheel") {
        turnWheelTo(session, on, value);
    } else if (seen.type == "XCUIElementTypeDatePicker") {
        pickDate(session, value);
    } else if (isTextInput(seen.type)) {
        edit(session, on);
        type(session, value);
    } else {
        throw Refusal(Error::InvalidElementState,
                      seen.type + " takes no value; texts, picker wheels and date pickers do");
    }
    return nullptr;
}

json sendKeys(Session& session, const Call& call) {
    type(session, typed(call));
    return nullptr;
}

json tap(Session& session, const Call& call) {
    touchAt(session, target(session, call));
    return nullptr;
}

json doubleTap(Session& session, const Call& call) {
    const Point point = target(session, call);
    session.engine().pressTwice(point);
    session.settle();
    return nullptr;
}

json touchAndHold(Session& session, const Call& call) {
    const double held = seconds(call, "duration", 1);
    touchAt(session, target(session, call), held);
    return nullptr;
}

json swipe(Session& session, const Call& call) {
    swipeAcross(session, areaOf(session, call), call.text("direction"), usualSwipeSeconds);
    return nullptr;
}

json scroll(Session& session, const Call& call) {
    if (call.flag("toVisible", false)) {
        reach(session, reference(call));
        return nullptr;
    }
    if (call.has("name") || call.has("predicateString")) {
        throw Refusal(Error::InvalidArgument, "find the element, and scroll with its elementId and toVisible");
    }
    // What scrolls down goes up under the finger.
    const std::string direction = call.text("direction");
    const char* finger = direction == "up"      ? "down"
                         : direction == "down"  ? "up"
                         : direction == "left"  ? "right"
                         : direction == "right" ? "left"
                                                : "";
    swipeAcross(session, areaOf(session, call), finger, usualSwipeSeconds);
    return nullptr;
}

json dragFromToForDuration(Session& session, const Call& call) {
    const double held = seconds(call, "duration", 1);
    Point from{call.number("fromX"), call.number("fromY")};
    Point to{call.number("toX"), call.number("toY")};
    if (const std::string on = reference(call); !on.empty()) {
        const AccessibilityTree tree = session.tree();
        const Point corner = session.element(tree, on).corner();
        for (Point* point : {&from, &to}) {
            point->x += corner.x;
            point->y += corner.y;
        }
    }
    checkOnScreen(session, from);
    checkOnScreen(session, to);
    drag(session, from, to, usualSwipeSeconds, held);
    return nullptr;
}

json selectPickerWheelValue(Session& session, const Call& call) {
    const std::string order = call.text("order");
    if (order != "next" && order != "previous") {
        throw Refusal(Error::InvalidArgument, "\"order\" has to be next or previous");
    }
    turnWheel(session, reference(call), order == "next" ? 1 : -1);
    return nullptr;
}

json performActions(Session& session, const Call& call) {
    if (!call.has("actions")) {
        throw Refusal(Error::InvalidArgument, "\"actions\" has to be a list of sources");
    }
    const auto ticks = readActions(call.body.at("actions"), session.screen().fingerIsDown());
    std::optional<Point> at = session.pointer();
    try {
        perform(session, ticks, at);
    } catch (...) {
        session.setPointer(at); // where it stopped
        throw;
    }
    session.setPointer(at);
    return nullptr;
}

json releaseActions(Session& session, const Call&) {
    session.screen().liftFinger();
    session.setPointer(std::nullopt);
    session.settle();
    return nullptr;
}

} // namespace phone::webdriver
