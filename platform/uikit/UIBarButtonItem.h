/// UIBarButtonItem, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIView.h"

class UIBarButtonItem : public NSObject {
public:
    static constexpr auto objc_name = "UIBarButtonItem";
    using NSObject::NSObject;
    /// The target is not retained. Style 0 is plain, 1 bordered, 2 done.
    static UIBarButtonItem withTitle(const NSString& title, objc::Int style, const objc::Object& target, SEL action) {
        return objc::make<UIBarButtonItem, "initWithTitle:style:target:action:">(title, style, target, action);
    }
    /// Shows the view at its own size.
    static UIBarButtonItem withCustomView(const UIView& view) {
        return objc::make<UIBarButtonItem, "initWithCustomView:">(view);
    }

    NSString title() const { return send<"title", NSString>(); }
    objc::Int style() const { return send<"style", objc::Int>(); }
    UIView customView() const { return send<"customView", UIView>(); }
    objc::Object target() const { return send<"target", objc::Object>(); }
    SEL action() const { return send<"action", SEL>(); }
    bool isEnabled() const { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) const { send<"setEnabled:">(enabled); }
};
