/// UITableView, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSIndexPath.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UITableViewCell.h"

/// `UITableViewStyle`
enum class UITableViewStyle : objc::Int { Plain = 0, Grouped = 1 };

class UITableView : public UIScrollView {
public:
    static constexpr auto objc_name = "UITableView";
    using UIScrollView::UIScrollView;
    static UITableView withFrame(CGRect frame, UITableViewStyle style) {
        return objc::make<UITableView, "initWithFrame:style:">(frame, style);
    }

    UITableViewStyle style() const { return send<"style", UITableViewStyle>(); }
    CGFloat rowHeight() const { return send<"rowHeight", CGFloat>(); }
    void setRowHeight(CGFloat height) const { send<"setRowHeight:">(height); }
    objc::Object dataSource() const { return send<"dataSource", objc::Object>(); }
    /// Neither data source nor delegate is retained.
    void setDataSource(const objc::Object& source) const { send<"setDataSource:">(source); }
    objc::Object delegate() const { return send<"delegate", objc::Object>(); }
    void setDelegate(const objc::Object& delegate) const { send<"setDelegate:">(delegate); }

    /// nil when the pool holds none of this identifier. A reused cell keeps what it showed.
    UITableViewCell dequeue(const NSString& identifier) const {
        return send<"dequeueReusableCellWithIdentifier:", UITableViewCell>(identifier);
    }
    /// nil when the row does not exist or is not visible.
    UITableViewCell cellForRow(const NSIndexPath& path) const {
        return send<"cellForRowAtIndexPath:", UITableViewCell>(path);
    }
    /// nil when the cell shows no row.
    NSIndexPath indexPathForCell(const UITableViewCell& cell) const {
        return send<"indexPathForCell:", NSIndexPath>(cell);
    }
    NSIndexPath indexPathForSelectedRow() const { return send<"indexPathForSelectedRow", NSIndexPath>(); }
    objc::Int numberOfRows(objc::Int section) const { return send<"numberOfRowsInSection:", objc::Int>(section); }
    void reloadData() const { send<"reloadData">(); }
    void deselectRow(const NSIndexPath& path, bool animated) const {
        send<"deselectRowAtIndexPath:animated:">(path, animated);
    }
};
