#include "Quorvan/common/SettingRows.h"

#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/Tables.h"
#include "platform/uikit/UIImageView.h"

namespace quorvan {

UILabel makeValue(const RowAccessory& row) {
    const auto value = UILabel::withFrame(row.value);
    value.setFont(value.font().withSize(14));
    value.setTextAlignment(NSTextAlignment::Right);
    value.setTextColor(grey());
    return value;
}

UIView makeAccessory(const RowAccessory& row, const UILabel& value) {
    const auto arrow = UIImageView::withFrame(row.arrow);
    arrow.setImage(picture("arrow.png"));

    const auto accessory = UIView::withFrame(row.frame);
    accessory.setBackgroundColor(UIColor::clear());
    accessory.addSubview(value);
    accessory.addSubview(arrow);
    return accessory;
}

UIView makeAccessory(const RowAccessory& row, const NSString& value) {
    const auto label = makeValue(row);
    label.setText(value);
    return makeAccessory(row, label);
}

UITableViewCell settingCell(const UITableView& table, const Setting& setting) {
    const auto cell = cellWithIdentifier(table, "Cell"_ns);
    const auto value = makeValue(setting.accessory);
    value.setText(localized("Account")); // docs/kept.md: a word for a value
    cell.textLabel().setText(localized(setting.key));
    value.setText(setting.value);
    cell.setAccessoryView(makeAccessory(setting.accessory, value));
    return cell;
}

void addSettingsTable(const UIView& panel, const UIViewController& screen, CGRect frame) {
    accountName = makeTable(screen, frame);
    panel.addSubview(accountName);
    accountName->setScrollEnabled(false);
}

} // namespace quorvan
