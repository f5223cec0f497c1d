/// The ways from a chooser back to the screen that it was opened from.
#pragma once

#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// When a chooser that goes back reloads the rows of the compose screen.
enum class Reload { BeforeThePop, AfterThePop };
/// Goes back to the compose screen.
void popToCompose(const UIViewController& chooser, Reload rows);
/// Goes back to the screen that the compose screen has pushed.
void popToSecond(const UIViewController& chooser);

} // namespace quorvan
