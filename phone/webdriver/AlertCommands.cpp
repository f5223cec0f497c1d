// The system's questions to the person.

#include "phone/elements/Find.h"
#include "phone/webdriver/Commands.h"
#include "phone/webdriver/Reach.h"

#include <algorithm>

namespace phone::webdriver {

namespace {

/// The question in front; null when there is none.
Element question(const AccessibilityTree& tree) {
    const auto all = find(tree.application(), "class name", "XCUIElementTypeAlert");
    const auto shown = std::find_if(all.rbegin(), all.rend(), [](const Element& one) { return one.isVisible(); });
    return shown == all.rend() ? Element() : *shown;
}

Element existingQuestion(const AccessibilityTree& tree) {
    const Element found = question(tree);
    if (!found) {
        throw Refusal(Error::NoSuchAlert, "no question of the system is on the screen");
    }
    return found;
}

std::vector<Element> buttonsOf(const Element& question) {
    auto all = find(question, "class name", "XCUIElementTypeButton");
    std::erase_if(all, [](const Element& button) { return !button.isHittable(); });
    return all;
}

/// The one that agrees is the last; the one that does not is the first.
Element buttonFor(const Element& question, AlertAnswer answer) {
    const auto all = buttonsOf(question);
    if (all.empty()) {
        throw Refusal(Error::InvalidElementState, "the question has no button that can be touched");
    }
    return answer == AlertAnswer::Accept ? all.back() : all.front();
}

Element buttonNamed(const Element& question, const std::string& name) {
    const auto all = buttonsOf(question);
    const auto found = std::find_if(all.begin(), all.end(), [&](const Element& one) { return one.label() == name; });
    if (found == all.end()) {
        throw Refusal(Error::InvalidElementState, "the question has no button \"" + name + "\"");
    }
    return *found;
}

json answered(Session& session, const Call& call, AlertAnswer answer) {
    Point point;
    {
        const AccessibilityTree tree = session.seen();
        const Element alert = existingQuestion(tree);
        const char* key = call.has("buttonLabel") ? "buttonLabel" : "name";
        const Element button = call.has(key) ? buttonNamed(alert, call.text(key)) : buttonFor(alert, answer);
        point = button.touchPoint().value();
    }
    touchAt(session, point);
    return nullptr;
}

} // namespace

bool answerAlert(Session& session, AlertAnswer answer) {
    Point point;
    {
        const AccessibilityTree tree = session.seen();
        const Element alert = question(tree);
        if (!alert || buttonsOf(alert).empty()) {
            return false;
        }
        point = buttonFor(alert, answer).touchPoint().value();
    }
    touchAt(session, point);
    return true;
}

json alertText(Session& session, const Call&) {
    const AccessibilityTree tree = session.seen();
    std::string all;
    for (const Element& line : find(existingQuestion(tree), "class name", "XCUIElementTypeStaticText")) {
        const bool isOfButton = line.parent().type() == "XCUIElementTypeButton";
        if (!isOfButton && !line.text().empty()) {
            all += (all.empty() ? "" : "\n") + line.text();
        }
    }
    return all;
}

json alertButtons(Session& session, const Call&) {
    const AccessibilityTree tree = session.seen();
    json labels = json::array();
    for (const Element& button : buttonsOf(existingQuestion(tree))) {
        labels.push_back(button.label().value_or(""));
    }
    return labels;
}

json acceptAlert(Session& session, const Call& call) { return answered(session, call, AlertAnswer::Accept); }

json dismissAlert(Session& session, const Call& call) { return answered(session, call, AlertAnswer::Dismiss); }

json alert(Session& session, const Call& call) {
    const std::string action = call.text("action");
    if (action == "accept") {
        return acceptAlert(session, call);
    }
    if (action == "dismiss") {
        return dismissAlert(session, call);
    }
    if (action == "getButtons") {
        return alertButtons(session, call);
    }
    throw Refusal(Error::InvalidArgument, "\"action\" has to be accept, dismiss or getButtons");
}

} // namespace phone::webdriver
