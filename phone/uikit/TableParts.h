/// The views that tables and their cells are made of, besides the cells.
#pragma once

#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UITableViewCell.h"

namespace phone {

/// Between a table and its cells, as long as the content.
class TableWrapper : public objc::Defines<TableWrapper, UIView> {
public:
    static constexpr auto objc_name = "UITableViewWrapperView";
    static void define(objc::ClassTable<TableWrapper>&) {}
};

/// Between a cell and what it shows. It exists for what people do to rows by swiping; here nothing moves it.
class TableCellScrollView : public objc::Defines<TableCellScrollView, UIScrollView> {
public:
    static constexpr auto objc_name = "UITableViewCellScrollView";
    static void define(objc::ClassTable<TableCellScrollView>&) {}
};

class TableCellContentView : public objc::Defines<TableCellContentView, UIView> {
public:
    static constexpr auto objc_name = "UITableViewCellContentView";
    static void define(objc::ClassTable<TableCellContentView>&) {}
};

/// The hairline under a row.
class TableCellSeparator : public objc::Defines<TableCellSeparator, UIView> {
public:
    static constexpr auto objc_name = "_UITableViewCellSeparatorView";
    static void define(objc::ClassTable<TableCellSeparator>&) {}
};

/// The grey behind the content of a row that is selected or under the finger.
class TableCellSelectedBackground : public objc::Defines<TableCellSelectedBackground, UIView> {
public:
    static constexpr auto objc_name = "UITableViewCellSelectedBackground";
    static void define(objc::ClassTable<TableCellSelectedBackground>&) {}
};

/// The drawn accessories: a grey chevron, or a check mark in the tint.
class TableCellMark : public objc::Defines<TableCellMark, UIView> {
public:
    static constexpr auto objc_name = "UITableViewCellAccessoryMark";
    static void define(objc::ClassTable<TableCellMark>& c);
    /// nil for a type that draws nothing.
    static UIView make(UITableViewCellAccessoryType type);

private:
    void drawContent(CGRect rect);

    UITableViewCellAccessoryType _type = UITableViewCellAccessoryType::None;
};

/// The title above a section.
class TableHeader : public objc::Defines<TableHeader, UIView> {
public:
    static constexpr auto objc_name = "UITableViewHeaderFooterView";
    static void define(objc::ClassTable<TableHeader>& c);

    void setTitle(const NSString& title) { _label.setText(title); }

private:
    void initWithFrame(CGRect frame);
    UILabel textLabel() { return _label; }
    void layoutSubviews();

    UILabel _label;
};

/// The colour of separators.
UIColor separatorColor();

} // namespace phone
