/// The activities that the system itself offers in every share sheet.
#pragma once

#include "platform/uikit/UIActivity.h"

#include <vector>

namespace phone {

/// Makes one new activity. Its class answers `_drawIconInRect:`, which draws the icon into the view that
/// is being drawn.
using MakeActivity = UIActivity (*)();

/// Has every sheet from now on offer the activity, after those that were added before.
void offerSystemActivity(MakeActivity make);

/// One of each, newly made, in their order.
std::vector<UIActivity> makeSystemActivities();

} // namespace phone
