/// The root view of a controller that contains others: asks its controller to lay them out.
#pragma once

#include "platform/uikit/UIView.h"

namespace phone {

/// Sends `_layOutContainer` to the controller whose view this is, at every layout pass that it needs.
class LayoutContainerView : public objc::Defines<LayoutContainerView, UIView> {
public:
    static constexpr auto objc_name = "UILayoutContainerView";
    static void define(objc::ClassTable<LayoutContainerView>& c) {
        c.overrides<"layoutSubviews", &LayoutContainerView::layoutSubviews>();
    }

private:
    void layoutSubviews();
};

} // namespace phone
