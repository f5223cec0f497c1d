#include "Quorvan/common/Tables.h"

namespace quorvan {

UITableView makeTable(const UIViewController& screen, CGRect frame) {
    const auto table = UITableView::withFrame(frame, UITableViewStyle::Plain);
    table.setDelegate(screen);
    table.setDataSource(screen);
    return table;
}

UITableViewCell cellWithIdentifier(const UITableView& table, const NSString& identifier) {
    const auto cell = table.dequeue(identifier);
    return cell ? cell : UITableViewCell::with(0, identifier);
}

UITableViewCell plainCell(const UITableView& table, const NSString& text) {
    const auto cell = cellWithIdentifier(table, "Cell"_ns);
    cell.textLabel().setText(text);
    return cell;
}

UITableViewCell moveCheckmark(const UITableView& table, objc::Int markedBefore, const NSIndexPath& tapped) {
    const auto before = NSIndexPath::forRow(markedBefore, tapped.section());
    table.cellForRow(before).setAccessoryType(UITableViewCellAccessoryType::None);
    const auto cell = table.cellForRow(tapped);
    cell.setAccessoryType(UITableViewCellAccessoryType::Checkmark);
    return cell;
}

} // namespace quorvan
