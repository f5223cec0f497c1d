/// The rows of a screen that name settings: each shows a value and an arrow, and opens a chooser.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// The frames of a row's accessory: its container, and in it the value and the arrow.
struct RowAccessory {
    CGRect frame;
    CGRect value;
    CGRect arrow;
};
/// A label for a row's value, right-aligned and grey, without text yet.
UILabel makeValue(const RowAccessory& row);
/// A clear view with the value and the arrow after it.
UIView makeAccessory(const RowAccessory& row, const UILabel& value);
/// The same of a value that is known at once.
UIView makeAccessory(const RowAccessory& row, const NSString& value);

/// What a row of the settings table reads: the key of its word, and the value.
struct Setting {
    const char* key;
    RowAccessory accessory;
    NSString value;
};
UITableViewCell settingCell(const UITableView& table, const Setting& setting);

/// Adds the settings table of a compose screen, kept as `accountName`, with the screen as its delegate and
/// data source.
void addSettingsTable(const UIView& panel, const UIViewController& screen, CGRect frame);

} // namespace quorvan
