/// Tables, their cells, and the checkmark among them.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// A plain table that asks the screen for its rows and tells it what is tapped.
UITableView makeTable(const UIViewController& screen, CGRect frame);

/// A cell of this identifier, reused where there is one.
UITableViewCell cellWithIdentifier(const UITableView& table, const NSString& identifier);
/// A cell that shows one text, reused where there is one.
UITableViewCell plainCell(const UITableView& table, const NSString& text);
/// Moves the checkmark from the row marked before, in the same section and if it is visible, to the cell of the
/// tapped row. Gives that cell.
UITableViewCell moveCheckmark(const UITableView& table, objc::Int markedBefore, const NSIndexPath& tapped);

} // namespace quorvan
