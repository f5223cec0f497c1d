// Finding elements, and asking them.

#include "phone/elements/Find.h"
#include "phone/webdriver/Commands.h"

#include <algorithm>

namespace phone::webdriver {

namespace {

constexpr std::chrono::milliseconds look{100}; // from one look for an element to the next, where something happens
constexpr double longestPatience = 600;        // seconds; a client that waits longer has gone

json referenceJson(const Element& element, std::uint64_t launch) {
    const std::string reference = Session::referenceTo(element, launch);
    return {{elementKey, reference}, {"ELEMENT", reference}};
}

/// What the call asks for, as the screen stands; inside an element where the path names one.
json found(Session& session, const Call& call) {
    const std::uint64_t launch = session.phone().status().launch; // before its screen: a newer one makes these stale
    const AccessibilityTree tree = session.tree();
    const std::string around = call.parameter("element");
    const Element context = around.empty() ? tree.application() : session.element(tree, around);
    json all = json::array();
    for (const Element& element : find(context, call.text("using"), call.text("value"))) {
        all.push_back(referenceJson(element, launch));
    }
    return all;
}

/// Looks again until there is something or the session's patience is at its end.
json waitedFor(Session& session, const Call& call) {
    using Seconds = std::chrono::duration<double>;
    const Seconds patience(std::min(session.timeouts().implicit, longestPatience));
    const auto began = LivePhone::Clock::now();
    for (;;) {
        const std::uint64_t seen = session.phone().changes();
        json all = found(session, call);
        if (!all.empty() || LivePhone::Clock::now() - began >= patience || session.isOver()) {
            return all;
        }
        session.phone().waitForChange(seen, look);
        session.phone().advance(session.phone().isMoving() ? Seconds(look).count() : 0);
    }
}

template <class Question>
json asked(Session& session, const Call& call, const Question& question) {
    const AccessibilityTree tree = session.tree();
    return question(session.element(tree, call.parameter("element")));
}

json orNull(const std::optional<std::string>& text) { return text ? json(*text) : json(); }

} // namespace

json findElement(Session& session, const Call& call) {
    json all = waitedFor(session, call);
    if (all.empty()) {
        throw Refusal(Error::NoSuchElement, "nothing on the screen has " + call.text("using") + " \"" +
                                                call.text("value") + "\"; GET source shows what there is");
    }
    return all.front();
}

json findElements(Session& session, const Call& call) { return waitedFor(session, call); }

json activeElement(Session& session, const Call&) {
    const std::uint64_t launch = session.phone().status().launch;
    const AccessibilityTree tree = session.tree();
    for (const Element& element : find(tree.application(), "predicate string", "focused == true")) {
        return referenceJson(element, launch);
    }
    throw Refusal(Error::NoSuchElement, "no text is being edited");
}

json text(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.text(); });
}

json name(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.type(); });
}

json rect(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json {
        const Rect rect = element.rect();
        return {{"x", rect.x}, {"y", rect.y}, {"width", rect.width}, {"height", rect.height}};
    });
}

json attribute(Session& session, const Call& call) {
    return asked(session, call,
                 [&](const Element& element) { return orNull(element.attribute(call.parameter("name"))); });
}

json isDisplayed(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.isVisible(); });
}

json isEnabled(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.isEnabled(); });
}

json isSelected(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.isSelected(); });
}

json isFocused(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.isFocused(); });
}

json isAccessible(Session& session, const Call& call) {
    return asked(session, call, [](const Element& element) -> json { return element.isAccessible(); });
}

} // namespace phone::webdriver
