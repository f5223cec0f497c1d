/// The control that shows a bar item with a title, and the one that leads back.
#pragma once

#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIButton.h"

namespace phone {

/// A touch on it sends its item's action. It takes touches over the whole height of the bar.
class NavigationButton : public objc::Defines<NavigationButton, UIButton> {
public:
    static constexpr auto objc_name = "UINavigationButton";
    static void define(objc::ClassTable<NavigationButton>& c);
    ~NavigationButton();

    static UIButton with(const UIBarButtonItem& item);
    /// The way back: a chevron before the title. A touch sends the action to the target.
    static UIButton leadingBack(const NSString& title, const objc::Object& target, SEL action);

    /// Shows what the item says now, and has the bar lay itself out.
    void refresh();

private:
    void press(const objc::Object& sender);
    bool pointInside(CGPoint point, const UIEvent& event);
    void layoutSubviews();
    void tintColorDidChange();
    void drawContent(CGRect rect);
    CGSize sizeThatFits(CGSize size);
    void setTitleColors();

    UIBarButtonItem _item; // nil for the way back
    bool _leadsBack = false;
};

} // namespace phone
