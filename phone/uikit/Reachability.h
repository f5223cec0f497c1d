/// Where a finger would have to go to reach a view.
#pragma once

#include "platform/uikit/UIView.h"

#include <optional>

namespace phone {

/// Whether the view is hidden, or so transparent that the platform counts it as hidden.
bool isInvisible(const UIView& view);

/// A point of `seen` (the view's visible part, in points of the upright screen) where a touch goes to the
/// view or to something inside it; the middle where that does. A view that takes no touches itself is
/// reached where the view around it that does would get them. nullopt when there is no such point.
std::optional<CGPoint> touchPoint(const UIView& view, CGRect seen);

} // namespace phone
