/// UIScrollView, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIView.h"

class UIScrollView : public UIView {
public:
    static constexpr auto objc_name = "UIScrollView";
    using UIView::UIView;

    CGPoint contentOffset() const { return send<"contentOffset", CGPoint>(); }
    void setContentOffset(CGPoint offset) const { send<"setContentOffset:">(offset); }
    CGSize contentSize() const { return send<"contentSize", CGSize>(); }
    void setContentSize(CGSize size) const { send<"setContentSize:">(size); }
    /// Room around the content, in points.
    UIEdgeInsets contentInset() const { return send<"contentInset", UIEdgeInsets>(); }
    void setContentInset(const UIEdgeInsets& inset) const { send<"setContentInset:">(inset); }
    bool isDragging() const { return send<"isDragging", bool>(); }
    /// The delegate is not retained.
    void setDelegate(const objc::Object& delegate) const { send<"setDelegate:">(delegate); }
    bool isScrollEnabled() const { return send<"isScrollEnabled", bool>(); }
    /// Stops dragging only: code may still scroll.
    void setScrollEnabled(bool enabled) const { send<"setScrollEnabled:">(enabled); }
};
