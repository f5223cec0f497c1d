/// The platform's four ways from 0 to 1.
#pragma once

#include "platform/uikit/UIView.h"

namespace phone {

/// The share of the change that has happened when `time` (from 0 to 1) of the duration has passed.
double eased(UIViewAnimationCurve curve, double time);

} // namespace phone
