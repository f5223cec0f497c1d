/// UITableViewCell, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"

/// `UITableViewCellAccessoryType`
enum class UITableViewCellAccessoryType : objc::Int { None = 0, DisclosureIndicator = 1, Checkmark = 3 };

class UITableViewCell : public UIView {
public:
    static constexpr auto objc_name = "UITableViewCell";
    using UIView::UIView;
    /// Style 0 shows a picture and one text.
    static UITableViewCell with(objc::Int style, const NSString& identifier) {
        return objc::make<UITableViewCell, "initWithStyle:reuseIdentifier:">(style, identifier);
    }

    NSString reuseIdentifier() const { return send<"reuseIdentifier", NSString>(); }
    UIView contentView() const { return send<"contentView", UIView>(); }
    UILabel textLabel() const { return send<"textLabel", UILabel>(); }
    UIImageView imageView() const { return send<"imageView", UIImageView>(); }
    UITableViewCellAccessoryType accessoryType() const { return send<"accessoryType", UITableViewCellAccessoryType>(); }
    void setAccessoryType(UITableViewCellAccessoryType type) const { send<"setAccessoryType:">(type); }
    UIView accessoryView() const { return send<"accessoryView", UIView>(); }
    /// Keeps its size; the table places it. Wins over the accessory type.
    void setAccessoryView(const UIView& view) const { send<"setAccessoryView:">(view); }
    bool isSelected() const { return send<"isSelected", bool>(); }
    void setSelected(bool selected, bool animated) const { send<"setSelected:animated:">(selected, animated); }
};
