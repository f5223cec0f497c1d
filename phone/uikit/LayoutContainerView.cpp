#include "phone/uikit/LayoutContainerView.h"

#include "phone/uikit/View.h"

namespace phone {

void LayoutContainerView::layoutSubviews() {
    super<"layoutSubviews">();
    if (const UIViewController owner = View::of(*this)->controller()) {
        owner.send<"_layOutContainer">();
    }
}

} // namespace phone
