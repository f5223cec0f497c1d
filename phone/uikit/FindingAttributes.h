/// What an element of the tree for finding says beside its looks: which view it is, and what can be done with it.
#pragma once

#include "platform/uikit/UIView.h"

#include <pugixml.hpp>

namespace phone {

/// What the views around one leave to it.
struct Responsiveness {
    bool takesTouches = true; // whether all of them do
    bool enabled = true;      // of the nearest that can be disabled
};

/// `identity` (the view's, for as long as the process lives), `kind` (the nearest class that the platform
/// publishes), `enabled`, an `accessibilityLabel` where one is set, and what a key of the keyboard is for (`key`).
/// Gives what holds for the views inside.
Responsiveness writeFindingAttributes(pugi::xml_node& element, const UIView& view, const Responsiveness& around);

} // namespace phone
