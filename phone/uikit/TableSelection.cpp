// The part of TableView that selects rows, by touch and by code.

#include "phone/uikit/TableView.h"
#include "phone/uikit/TableViewCell.h"

#include <utility>

namespace phone {

NSIndexPath TableView::indexPathForSelectedRow() { return _selected ? _selected->indexPath() : NSIndexPath(); }

void TableView::select(std::optional<RowPath> path, bool animated) {
    const auto before = std::exchange(_selected, path);
    if (before && before != path) {
        visible(*before).setSelected(false, animated);
    }
    if (path) {
        visible(*path).setSelected(true, animated);
    }
}

void TableView::selectRow(const NSIndexPath& path, bool animated, objc::Int) {
    select(path ? std::optional(RowPath::of(path)) : std::nullopt, animated);
}

void TableView::deselectRow(const NSIndexPath& path, bool animated) {
    if (!path) {
        return;
    }
    const RowPath row = RowPath::of(path);
    if (_selected == row) {
        select(std::nullopt, animated);
    } else {
        visible(row).setSelected(false, animated); // the cell may have been selected by itself
    }
}

// The finger

void TableView::touchesBegan(const NSSet& touches, const UIEvent&) {
    const auto touch = touches.any<UITouch>();
    if (!_allowsSelection || !touch.view().isDescendantOfView(_wrapper)) {
        return;
    }
    const auto row = rows().rowAt(touch.locationInView(*this).y);
    if (!row || !visible(*row)) {
        return;
    }
    const UITableView& self = *this;
    const objc::Object asked = delegate();
    if (objc::responds<"tableView:shouldHighlightRowAtIndexPath:">(asked) &&
        !asked.send<"tableView:shouldHighlightRowAtIndexPath:", bool>(self, row->indexPath())) {
        return;
    }
    _touched = row;
    visible(*row).send<"setHighlighted:animated:">(true, false);
}

void TableView::touchesMoved(const NSSet& touches, const UIEvent&) {
    if (!_touched) {
        return;
    }
    const CGPoint at = touches.any<UITouch>().locationInView(*this);
    const TableRows::Row* row = rows().find(*_touched);
    if (row == nullptr || !CGRect(0, row->top, bounds().size.width, row->height).contains(at)) {
        unhighlight();
    }
}

void TableView::touchesEnded(const NSSet&, const UIEvent&) {
    const auto row = _touched;
    if (row) {
        pick(*row);
    }
    unhighlight();
}

void TableView::touchesCancelled(const NSSet&, const UIEvent&) { unhighlight(); }

void TableView::unhighlight() {
    if (const auto row = std::exchange(_touched, std::nullopt)) {
        visible(*row).send<"setHighlighted:animated:">(false, false);
    }
}

/// What lifting the finger does: the delegate may choose another row or none.
void TableView::pick(RowPath row) {
    const UITableView& self = *this;
    const objc::Object owner = delegate();
    NSIndexPath chosen = row.indexPath();
    if (objc::responds<"tableView:willSelectRowAtIndexPath:">(owner)) {
        chosen = owner.send<"tableView:willSelectRowAtIndexPath:", NSIndexPath>(self, chosen);
    }
    if (!chosen) {
        return;
    }
    const auto before = _selected;
    const bool deselects = before && before != RowPath::of(chosen);
    if (deselects && objc::responds<"tableView:willDeselectRowAtIndexPath:">(owner)) {
        owner.send<"tableView:willDeselectRowAtIndexPath:", NSIndexPath>(self, before->indexPath());
    }
    select(RowPath::of(chosen), false);
    unhighlight();
    if (deselects && objc::responds<"tableView:didDeselectRowAtIndexPath:">(owner)) {
        owner.send<"tableView:didDeselectRowAtIndexPath:">(self, before->indexPath());
    }
    if (objc::responds<"tableView:didSelectRowAtIndexPath:">(owner)) {
        owner.send<"tableView:didSelectRowAtIndexPath:">(self, chosen);
    }
}

} // namespace phone
