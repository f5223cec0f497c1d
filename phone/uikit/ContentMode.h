/// Where content lies in a view that is larger or smaller than it.
#pragma once

#include "platform/uikit/UIView.h"

namespace phone {

/// Content of this size in the bounds, stretched or moved as the mode says. What is to be drawn anew at a change of
/// bounds fills them.
CGRect placed(CGSize content, CGRect bounds, UIViewContentMode mode);

} // namespace phone
