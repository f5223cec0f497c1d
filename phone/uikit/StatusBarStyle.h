/// The colour that a controller wants the status bar written in.
#pragma once

#include "platform/objc/Runtime.h"

namespace phone {

/// `UIStatusBarStyle`
enum class StatusBarStyle : objc::Int { Default = 0 /* dark */, Light = 1 };

} // namespace phone
