#include "Quorvan/common/SettingRows.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"

namespace quorvan {

UIView makeAccessory(const RowAccessory& row, const NSString& value) {
    const auto accessory = UIView::withFrame(row.frame);
    accessory.setBackgroundColor(UIColor::clear());

    const auto label = UILabel::withFrame(row.value);
    label.setText(localized("Account")); // deliberate, though it is overwritten at once
    label.setText(value);
    label.setTextAlignment(NSTextAlignment::Right);
    label.setFont(UIFont::system(row.fontSize));
    label.setTextColor(grey());
    accessory.addSubview(label);

    const auto arrow = UIImageView::withFrame(row.arrow);
    arrow.setImage(picture("arrow.png"));
    accessory.addSubview(arrow);
    return accessory;
}

UITableViewCell settingCell(const UITableView& table, const Setting& setting) {
    const auto cell = plainCell(table, localized(setting.key));
    cell.setAccessoryView(makeAccessory(setting.accessory, setting.value));
    return cell;
}

void addSettingsTable(const UIView& panel, const UIViewController& screen, CGRect frame) {
    accountName = UITableView::withFrame(frame, UITableViewStyle::Plain);
    accountName->setDelegate(screen);
    accountName->setDataSource(screen);
    panel.addSubview(accountName);
    accountName->setScrollEnabled(false);
}

} // namespace quorvan
