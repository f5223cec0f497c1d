/// The variables through which compose screens and choosers talk: one of each in the process, alive as
/// long as the process, and reset only where a screen says so.
#pragma once

#include "platform/foundation/NSString.h"
#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UITableView.h"

namespace quorvan {

// The note composer.
extern objc::Global<UIView> noteView;            // the panel shown now
extern objc::Global<UINavigationItem> navigItem; // the panel bar's title and buttons
extern objc::Global<NSString> noteOut;           // the text for the panel that is built next
extern objc::Global<NSString> titleOut;          // the title for the panel that is built next
extern objc::Global<NSString> nAccount;          // the name of the chosen account
extern objc::Int storeNum;                       // the chosen store's place in the list; negative: the default one
extern objc::Int previousSelection;              // the row of the account chooser marked last

// Shared by the composers.
extern objc::Global<UITableView> accountName; // the settings table of the compose screen open now

} // namespace quorvan
