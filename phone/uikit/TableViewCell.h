/// One row of a table.
#pragma once

#include "platform/uikit/UITableViewCell.h"

namespace phone {

/// UITableViewCell of the first style: a picture and one text. Inside it lies a scroll view, and in that
/// the content and the accessory. Its text and accessories outlive reuse.
class TableViewCell : public objc::Implements<TableViewCell, UITableViewCell, UIView> {
public:
    static void define(objc::ClassTable<TableViewCell>& c);

private:
    void initWithFrame(CGRect frame);
    void initWithStyle(objc::Int style, const NSString& identifier);
    NSString reuseIdentifier() { return _identifier; }
    UIView contentView() { return _content; }
    UILabel textLabel();
    UIImageView imageView();
    UITableViewCellAccessoryType accessoryType() { return _accessoryType; }
    void setAccessoryType(UITableViewCellAccessoryType type);
    UIView accessoryView() { return _accessoryView; }
    void setAccessoryView(const UIView& view);
    UIView selectedBackgroundView() { return _selectedBackground; }
    void setSelectedBackgroundView(const UIView& view);
    bool isSelected() { return _selected; }
    void setSelected(bool selected) { send<"setSelected:animated:">(selected, false); }
    void setSelectedAnimated(bool selected, bool animated);
    bool isHighlighted() { return _highlighted; }
    void setHighlighted(bool highlighted, bool animated);
    void setHighlightedPlain(bool highlighted) { send<"setHighlighted:animated:">(highlighted, false); }
    void prepareForReuse() {}
    void layoutSubviews();

    void showSelection(bool animated);
    /// The view at the right end; nil when there is none.
    UIView accessory() const { return _accessoryView ? _accessoryView : _mark; }
    /// What the parts of the cell stand in: on system 7 a view of its own.
    UIView inside() const { return _scroll ? _scroll : objc::borrow<UIView>(raw()); }

    NSString _identifier; // nil: the cell is not reused
    UIView _scroll;       // nil from system 8 on
    UIView _content;
    UIView _separator;
    UILabel _textLabel;         // nil until asked for
    UIImageView _imageView;     // nil until asked for
    UIView _mark;               // drawn for the accessory type; nil for none
    UIView _accessoryView;      // nil: the type counts
    UIView _selectedBackground; // nil until the cell is first selected
    UITableViewCellAccessoryType _accessoryType = UITableViewCellAccessoryType::None;
    bool _selected = false;
    bool _highlighted = false;
};

} // namespace phone
