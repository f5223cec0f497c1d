#include "phone/uikit/TableView.h"

#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/TableParts.h"

#include <algorithm>
#include <utility>

namespace phone {

namespace {
constexpr Color groupedColor{239 / 255.0, 239 / 255.0, 244 / 255.0, 1};
} // namespace

void TableView::define(objc::ClassTable<TableView>& c) {
    c.init<"initWithFrame:", &TableView::initWithFrame>()
        .init<"initWithFrame:style:", &TableView::initWithFrameStyle>()
        .def<"style", &TableView::style>()
        .def<"rowHeight", &TableView::rowHeight>()
        .def<"setRowHeight:", &TableView::setRowHeight>()
        .get<"dataSource", &TableView::_dataSource>()
        .def<"setDataSource:", &TableView::setDataSource>()
        .overrides<"setDelegate:", &TableView::setDelegate>()
        .def<"tableFooterView", &TableView::tableFooterView>()
        .def<"setTableFooterView:", &TableView::setTableFooterView>()
        .get<"allowsSelection", &TableView::_allowsSelection>()
        .set<"setAllowsSelection:", &TableView::_allowsSelection>();
    c.def<"reloadData", &TableView::reloadData>()
        .def<"numberOfSections", &TableView::numberOfSections>()
        .def<"numberOfRowsInSection:", &TableView::numberOfRows>()
        .def<"dequeueReusableCellWithIdentifier:", &TableView::dequeue>()
        .def<"cellForRowAtIndexPath:", &TableView::cellForRow>()
        .def<"indexPathForCell:", &TableView::indexPathForCell>()
        .def<"visibleCells", &TableView::visibleCells>()
        .def<"rectForRowAtIndexPath:", &TableView::rectForRow>()
        .def<"indexPathForRowAtPoint:", &TableView::indexPathForRowAtPoint>()
        .def<"indexPathForSelectedRow", &TableView::indexPathForSelectedRow>()
        .def<"selectRowAtIndexPath:animated:scrollPosition:", &TableView::selectRow>()
        .def<"deselectRowAtIndexPath:animated:", &TableView::deselectRow>();
    c.overrides<"touchesBegan:withEvent:", &TableView::touchesBegan>()
        .overrides<"touchesMoved:withEvent:", &TableView::touchesMoved>()
        .overrides<"touchesEnded:withEvent:", &TableView::touchesEnded>()
        .overrides<"touchesCancelled:withEvent:", &TableView::touchesCancelled>()
        .overrides<"setBounds:", &TableView::setBounds>()
        .overrides<"layoutSubviews", &TableView::layoutSubviews>()
        .overrides<"_drawContent:", &TableView::drawContent>();
}

void TableView::initWithFrame(CGRect frame) { initWithFrameStyle(frame, UITableViewStyle::Plain); }

void TableView::initWithFrameStyle(CGRect frame, UITableViewStyle style) {
    super<"initWithFrame:">(frame);
    _style = style;
    setBackgroundColor(style == UITableViewStyle::Plain ? UIColor::white() : uiColor(groupedColor));
    _wrapper = objc::as<UIView>(objc::Ref<TableWrapper>::make());
    addSubview(_wrapper);
}

void TableView::setRowHeight(CGFloat height) {
    _rowHeight = height;
    forgetRows();
}

void TableView::setDataSource(const objc::Object& source) {
    _dataSource = source;
    forgetRows();
}

void TableView::setDelegate(const objc::Object& delegate) {
    super<"setDelegate:">(delegate);
    forgetRows();
}

void TableView::setTableFooterView(const UIView& view) {
    _footer.removeFromSuperview();
    _footer = view;
    if (_footer) {
        addSubview(_footer);
    }
    setNeedsLayout();
}

// The data

/// Counts and heights are read anew when they are next needed.
void TableView::forgetRows() {
    _rowsKnown = false;
    setNeedsLayout();
}

const TableRows& TableView::rows() {
    if (std::exchange(_rowsKnown, true)) {
        return _rows;
    }
    _rows.clear();
    const UITableView& self = *this;
    const objc::Object source = dataSource();
    const objc::Object owner = delegate();
    const objc::Int sections = !source ? 0
                               : objc::responds<"numberOfSectionsInTableView:">(source)
                                   ? source.send<"numberOfSectionsInTableView:", objc::Int>(self)
                                   : 1;
    for (objc::Int section = 0; section < sections; ++section) {
        NSString title;
        if (objc::responds<"tableView:titleForHeaderInSection:">(source)) {
            title = source.send<"tableView:titleForHeaderInSection:", NSString>(self, section);
        }
        CGFloat header = title ? headerHeight : 0;
        if (title && objc::responds<"tableView:heightForHeaderInSection:">(owner)) {
            header = owner.send<"tableView:heightForHeaderInSection:", CGFloat>(self, section);
        }
        _rows.addSection(header > 0 ? title : NSString(), header);
        const objc::Int count = source.send<"tableView:numberOfRowsInSection:", objc::Int>(self, section);
        for (objc::Int row = 0; row < count; ++row) {
            const bool asks = objc::responds<"tableView:heightForRowAtIndexPath:">(owner);
            _rows.addRow(asks ? owner.send<"tableView:heightForRowAtIndexPath:", CGFloat>(
                                    self, RowPath{section, row}.indexPath())
                              : _rowHeight);
        }
    }
    return _rows;
}

void TableView::reloadData() {
    unhighlight();
    _selected.reset();
    for (const auto& [path, cell] : std::exchange(_visible, {})) {
        recycle(cell);
    }
    for (const auto& [section, header] : std::exchange(_headers, {})) {
        header.removeFromSuperview();
    }
    forgetRows();
    rows();
}

objc::Int TableView::numberOfSections() { return static_cast<objc::Int>(rows().sections().size()); }

objc::Int TableView::numberOfRows(objc::Int section) {
    const auto& sections = rows().sections();
    return section >= 0 && section < static_cast<objc::Int>(sections.size())
               ? static_cast<objc::Int>(sections[static_cast<std::size_t>(section)].rows.size())
               : 0;
}

UITableViewCell TableView::dequeue(const NSString& identifier) {
    const auto found = _pool.find(text(identifier));
    if (found == _pool.end() || found->second.empty()) {
        return nullptr;
    }
    const UITableViewCell cell = found->second.back();
    found->second.pop_back();
    cell.send<"prepareForReuse">();
    return cell;
}

UITableViewCell TableView::visible(RowPath row) const {
    const auto found = _visible.find(row);
    return found == _visible.end() ? UITableViewCell() : found->second;
}

UITableViewCell TableView::cellForRow(const NSIndexPath& path) {
    return path ? visible(RowPath::of(path)) : UITableViewCell();
}

NSIndexPath TableView::indexPathForCell(const UITableViewCell& cell) {
    for (const auto& [path, shown] : _visible) {
        if (shown == cell) {
            return path.indexPath();
        }
    }
    return nullptr;
}

NSArray TableView::visibleCells() {
    auto cells = objc::make<NSMutableArray>();
    for (const auto& [path, cell] : _visible) {
        cells.add(cell);
    }
    return cells;
}

CGRect TableView::rectForRow(const NSIndexPath& path) {
    const TableRows::Row* row = rows().find(RowPath::of(path));
    return row == nullptr ? CGRect() : CGRect(0, row->top, bounds().size.width, row->height);
}

NSIndexPath TableView::indexPathForRowAtPoint(CGPoint point) {
    const auto row = rows().rowAt(point.y);
    return row ? row->indexPath() : NSIndexPath();
}

// Layout

void TableView::setBounds(CGRect next) {
    super<"setBounds:">(next);
    setNeedsLayout();
}

void TableView::layoutSubviews() {
    super<"layoutSubviews">();
    const CGFloat footer = _footer ? _footer.bounds().size.height : 0;
    const CGFloat rowsHeight = rows().height();
    setContentSize({bounds().size.width, rowsHeight + footer});
    const CGRect shown = bounds();
    _wrapper.setFrame({0, 0, shown.size.width, std::max(rowsHeight, shown.size.height)});
    _footer.setFrame({0, rowsHeight, shown.size.width, footer});

    const std::vector<RowPath> wanted = _rows.between(shown.origin.y, shown.maxY());
    for (auto cell = _visible.begin(); cell != _visible.end();) {
        const bool stays = std::find(wanted.begin(), wanted.end(), cell->first) != wanted.end();
        if (!stays) {
            recycle(cell->second);
        }
        cell = stays ? std::next(cell) : _visible.erase(cell);
    }
    for (const RowPath row : wanted) {
        placeCell(row);
        if (!_rowsKnown) {
            return; // the data source has asked for a reload; the next layout follows
        }
    }
    placeHeaders();
}

void TableView::placeCell(RowPath row) {
    UITableViewCell cell = visible(row);
    const bool isNew = !cell;
    const NSIndexPath path = row.indexPath();
    if (isNew) {
        const UITableView& self = *this;
        cell = dataSource().send<"tableView:cellForRowAtIndexPath:", UITableViewCell>(self, path);
        if (!cell) {
            raise("NSInternalInconsistencyException",
                  "UITableView dataSource must return a cell from tableView:cellForRowAtIndexPath:");
        }
    }
    const TableRows::Row* place = rows().find(row);
    if (place == nullptr) {
        return; // asking for the cell has changed the data
    }
    cell.setFrame({0, place->top, bounds().size.width, place->height});
    if (!isNew) {
        return;
    }
    _visible[row] = cell;
    if (cell.isSelected() != (_selected == row)) {
        cell.setSelected(_selected == row, false);
    }
    cell.setNeedsLayout();
    _wrapper.addSubview(cell);
    const UITableView& self = *this;
    if (const objc::Object owner = delegate(); objc::responds<"tableView:willDisplayCell:forRowAtIndexPath:">(owner)) {
        owner.send<"tableView:willDisplayCell:forRowAtIndexPath:">(self, cell, path);
    }
}

/// A plain table's header stays in sight as long as something of its section is.
void TableView::placeHeaders() {
    const auto& sections = _rows.sections();
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const TableRows::Section& section = sections[i];
        if (!section.title) {
            continue;
        }
        UIView& header = _headers[static_cast<objc::Int>(i)];
        if (!header) {
            const auto made = objc::Ref<TableHeader>::make();
            made->setTitle(section.title);
            header = objc::as<UIView>(made);
            addSubview(header);
        }
        CGFloat top = section.headerTop;
        if (_style == UITableViewStyle::Plain) {
            const CGFloat lowest = section.bottom - section.headerHeight;
            top = std::max(top, std::min(bounds().origin.y, lowest));
        }
        header.setFrame({0, top, bounds().size.width, section.headerHeight});
    }
}

void TableView::recycle(const UITableViewCell& cell) {
    const UITableViewCell kept = cell;
    kept.removeFromSuperview();
    if (const NSString identifier = kept.reuseIdentifier()) {
        _pool[text(identifier)].push_back(kept);
    }
}

/// The lines of the rows that a plain table has room for beyond its last one.
void TableView::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr || _style != UITableViewStyle::Plain || _footer || _rowHeight <= 0) {
        return;
    }
    const CGRect shown = bounds();
    const Color color = colorOf(separatorColor());
    for (CGFloat bottom = rows().height() + _rowHeight; bottom <= shown.maxY(); bottom += _rowHeight) {
        painter->fill({margin, bottom - hairline, shown.size.width - margin, hairline}, color);
    }
}

} // namespace phone
