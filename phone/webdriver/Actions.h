/// What fingers and keys do together, tick by tick.
#pragma once

#include "phone/webdriver/Session.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace phone::webdriver {

struct PointerMove {
    enum class Origin { Viewport, Pointer, Element };
    Origin origin = Origin::Viewport;
    std::string element; // its reference, where that is the origin: its middle
    Point to;
};
struct PointerDown {};
struct PointerUp {};
struct KeyDown {
    std::string key; // in UTF-8, with the protocol's own characters
};
/// Nothing but time: pauses, and keys that go up.
struct Pause {};

using ActionItem = std::variant<PointerMove, PointerDown, PointerUp, KeyDown, Pause>;

/// What all sources do at once.
struct Tick {
    std::vector<ActionItem> items;
    double seconds = 0;
};

/// The client's list of sources as ticks. Throws Refusal, invalid argument: a pointer without a place, one that goes
/// up before it went down, the same source twice, keys that are not released; and unsupported operation for a second
/// finger or a wheel. `fingerIsDown` says how things stand before.
std::vector<Tick> readActions(const nlohmann::json& actions, bool fingerIsDown);

/// Does them. `at` is where the finger was last, and where it is afterwards.
void perform(Session& session, const std::vector<Tick>& ticks, std::optional<Point>& at);

} // namespace phone::webdriver
