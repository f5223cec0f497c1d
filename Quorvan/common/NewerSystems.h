/// What systems newer than the screens' own would do otherwise unless they are asked not to. Each is asked only where
/// the object answers the message.
#pragma once

#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// 13 and later: a panel stays light where the person has chosen dark screens; its text and ground are made for that.
void stayLight(const UIView& panel);
/// 13 and later: a screen covers what lies beneath, where it would come as a card that a person can swipe away without
/// its activity hearing of it.
void coverScreen(const UIViewController& screen);
/// 13.4 and later: a date picker has its wheels, for which the choosers leave room. Before its frame is set.
void keepWheels(const UIDatePicker& picker);

} // namespace quorvan
