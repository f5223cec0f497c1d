/// What a screen takes back when it goes. Its table, its switch and its picker may outlive it, in a shared variable or
/// while they still move, and they know it without keeping it alive.
#pragma once

#include "platform/uikit/UIControl.h"
#include "platform/uikit/UITableView.h"

namespace quorvan {

/// The table asks nobody any more.
void takeBackDelegates(const UITableView& table);
/// The same for a table in a shared variable, which may be another screen's by now.
void takeBackDelegates(const UITableView& table, const objc::Object& screen);
/// The control tells the screen nothing any more.
void takeBackTarget(const UIControl& control, const objc::Object& screen);

} // namespace quorvan
