/// The views on the screen as XML.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

#include <optional>
#include <string>

namespace phone {

/// Root `screen`, one element per window below it, back to front, then one per view in subview order.
/// Coordinates are points; `frame` is in the superview, `screen` as the person holds the device. For
/// finding, each element also says whether it is `visible`, by how many quarters a person sees it `turned`
/// clockwise, if any, where a touch reaches it or something inside it, a point that does (`touch`), and what
/// `FindingAttributes` tells.
/// With a point of the screen held upright the root says which view a touch there would reach (`hit`: its `identity`).
std::string dumpTree(bool forFinding, std::optional<CGPoint> touched = std::nullopt);

} // namespace phone
