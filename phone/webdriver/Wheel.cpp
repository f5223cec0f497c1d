#include "phone/webdriver/Wheel.h"

#include "phone/device/WheelRow.h"
#include "phone/flow/LocalTime.h"
#include "phone/webdriver/Reach.h"

#include <charconv>
#include <cstdlib>
#include <optional>

namespace phone::webdriver {

namespace {

constexpr long farthest = 60; // rows that are looked through in either direction

std::string shownValue(Session& session, const std::string& reference) {
    const AccessibilityTree tree = session.tree();
    return session.element(tree, reference).value().value_or("");
}

std::optional<int> number(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

/// 1 to later rows, -1 to earlier ones: lower numbers stand before higher ones.
long likelyDirection(const std::string& from, const std::string& to) {
    const auto start = number(from);
    const auto end = number(to);
    return start && end && *end < *start ? -1 : 1;
}

} // namespace

void turnWheel(Session& session, const std::string& reference, long rows) {
    const Point from = reach(session, reference);
    int quarters = 0;
    {
        const AccessibilityTree tree = session.tree();
        quarters = session.element(tree, reference).quarterTurns();
    }
    // Later rows lie below: the finger goes up for them, as the wheel stands.
    const double length = static_cast<double>(rows) * wheelRowHeight;
    const Point ways[] = {{0, -length}, {length, 0}, {0, length}, {-length, 0}};
    const Point& way = ways[quarters % 4];
    drag(session, from, {from.x + way.x, from.y + way.y}, Engine::rowSeconds * static_cast<double>(std::labs(rows)));
    session.phone().settle();
}

void turnWheelTo(Session& session, const std::string& reference, const std::string& value) {
    const std::string first = shownValue(session, reference);
    const long likely = likelyDirection(first, value);
    std::string shown = first;
    bool wentRound = false;
    for (const long direction : {likely, -likely}) {
        const long most = direction == likely ? farthest : 2 * farthest; // back over what was turned before
        for (long turned = 0; turned < most && shown != value && !wentRound && !session.isOver(); ++turned) {
            turnWheel(session, reference, direction);
            const std::string now = shownValue(session, reference);
            if (now == shown) {
                break; // the end of the wheel
            }
            shown = now;
            wentRound = direction == likely && shown == first;
        }
    }
    if (shown != value) {
        throw Refusal(Error::InvalidArgument,
                      "the wheel shows \"" + shown + "\" and has no row \"" + value + "\" near it");
    }
}

void pickDate(Session& session, const std::string& localTime) {
    if (!isLocalTime(localTime)) {
        throw Refusal(Error::InvalidArgument, "a date picker takes a local time like 2026-05-16T09:00");
    }
    const LivePhone::Finger finger(session.phone());
    try {
        Engine(session.phone()).pickDate(localTime);
    } catch (const CommandFailure& failure) {
        throw Refusal(Error::InvalidElementState, failure.what());
    }
}

} // namespace phone::webdriver
