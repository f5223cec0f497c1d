/// The controllers of the library's screens, for tests that tell them what a touch cannot.
#pragma once

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"

/// The one at this place of the navigation stack, the compose screen being the first.
inline UIViewController screenAt(objc::UInt place) {
    const auto root = UIApplication::shared().keyWindow().rootViewController();
    const auto stack = objc::as<UINavigationController>(root.presentedViewController().presentedViewController());
    return stack.viewControllers().at<UIViewController>(place);
}
