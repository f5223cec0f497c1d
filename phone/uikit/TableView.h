/// Rows below each other, of which only those in sight exist as views.
#pragma once

#include "phone/uikit/TableRows.h"
#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UITableView.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace phone {

/// UITableView. Counts and heights are read when the data is loaded or reloaded, cells are asked for in
/// layout and go into a pool when they leave the sight. Selecting by code calls no delegate. A table of
/// the grouped style is drawn as a plain one without the lines of empty rows.
class TableView : public objc::Implements<TableView, UITableView, UIScrollView> {
public:
    static constexpr CGFloat defaultRowHeight = 44;
    static constexpr CGFloat headerHeight = 28;
    static constexpr CGFloat hairline = 0.5;
    /// Where texts and separators begin, and how far accessories keep from the right edge.
    static constexpr CGFloat margin = 15;

    static void define(objc::ClassTable<TableView>& c);

private:
    void initWithFrame(CGRect frame);
    void initWithFrameStyle(CGRect frame, UITableViewStyle style);
    UITableViewStyle style() { return _style; }
    CGFloat rowHeight() { return _rowHeight; }
    void setRowHeight(CGFloat height);
    objc::Object dataSource() { return _dataSource.get(); }
    void setDataSource(const objc::Object& source);
    void setDelegate(const objc::Object& delegate);
    UIView tableFooterView() { return _footer; }
    void setTableFooterView(const UIView& view);

    // The data.
    void reloadData();
    objc::Int numberOfSections();
    objc::Int numberOfRows(objc::Int section);
    UITableViewCell dequeue(const NSString& identifier);
    UITableViewCell cellForRow(const NSIndexPath& path);
    NSIndexPath indexPathForCell(const UITableViewCell& cell);
    NSArray visibleCells();
    CGRect rectForRow(const NSIndexPath& path);
    NSIndexPath indexPathForRowAtPoint(CGPoint point);

    // Selection.
    NSIndexPath indexPathForSelectedRow();
    void selectRow(const NSIndexPath& path, bool animated, objc::Int scrollPosition);
    void deselectRow(const NSIndexPath& path, bool animated);
    void select(std::optional<RowPath> path, bool animated);

    void touchesBegan(const NSSet& touches, const UIEvent& event);
    void touchesMoved(const NSSet& touches, const UIEvent& event);
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void touchesCancelled(const NSSet& touches, const UIEvent& event);
    void pick(RowPath row);
    void unhighlight();

    void setBounds(CGRect bounds);
    void layoutSubviews();
    void drawContent(CGRect rect);

    void forgetRows();
    /// Reads counts and heights where that is due.
    const TableRows& rows();
    UITableViewCell visible(RowPath row) const;
    void placeCell(RowPath row);
    void placeHeaders();
    void recycle(const UITableViewCell& cell);

    UITableViewStyle _style = UITableViewStyle::Plain;
    CGFloat _rowHeight = defaultRowHeight;
    objc::Unretained<objc::Object> _dataSource; // UIKit retains neither data source nor delegate
    UIView _wrapper;
    UIView _footer; // nil while there is none
    TableRows _rows;
    bool _rowsKnown = false;
    bool _allowsSelection = true;
    std::map<RowPath, UITableViewCell> _visible;
    std::map<objc::Int, UIView> _headers;
    std::map<std::string, std::vector<UITableViewCell>> _pool;
    std::optional<RowPath> _selected;
    std::optional<RowPath> _touched; // the row under the finger
};

} // namespace phone
