/// UINavigationBar, its items and their buttons, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIView.h"

class UINavigationItem : public NSObject {
public:
    static constexpr auto objc_name = "UINavigationItem";
    using NSObject::NSObject;
    static UINavigationItem withTitle(const NSString& title) {
        return objc::make<UINavigationItem, "initWithTitle:">(title);
    }

    NSString title() const { return send<"title", NSString>(); }
    void setTitle(const NSString& title) const { send<"setTitle:">(title); }
    UIView titleView() const { return send<"titleView", UIView>(); }
    void setTitleView(const UIView& view) const { send<"setTitleView:">(view); }
    UIBarButtonItem leftBarButtonItem() const { return send<"leftBarButtonItem", UIBarButtonItem>(); }
    void setLeftBarButtonItem(const UIBarButtonItem& item) const { send<"setLeftBarButtonItem:">(item); }
    UIBarButtonItem rightBarButtonItem() const { return send<"rightBarButtonItem", UIBarButtonItem>(); }
    void setRightBarButtonItem(const UIBarButtonItem& item) const { send<"setRightBarButtonItem:">(item); }
};

class UINavigationBar : public UIView {
public:
    static constexpr auto objc_name = "UINavigationBar";
    using UIView::UIView;
    static UINavigationBar withFrame(CGRect frame) { return objc::make<UINavigationBar, "initWithFrame:">(frame); }

    /// Bottom first; the last one shows.
    NSArray items() const { return send<"items", NSArray>(); }
    void setItems(const NSArray& items) const { send<"setItems:">(items); }
    /// nil while the bar has no item.
    UINavigationItem topItem() const { return send<"topItem", UINavigationItem>(); }
    UINavigationItem backItem() const { return send<"backItem", UINavigationItem>(); }
};
