/// The arrow by which a popover points at what it belongs to.
#pragma once

#include "phone/coregraphics/Color.h"
#include "platform/uikit/UIPopoverPresentationController.h"

namespace phone {

class PopoverArrow : public objc::Defines<PopoverArrow, UIView> {
public:
    static constexpr auto objc_name = "_UIPopoverArrow";
    static void define(objc::ClassTable<PopoverArrow>& c);

    /// Of the popover's own colour.
    static objc::Ref<PopoverArrow> with(const Color& color);
    /// The arrow fills the frame and points this way.
    void place(CGRect frame, objc::UInt direction);

private:
    void drawRect(CGRect rect);

    Color _color;
    objc::UInt _direction = UIPopoverArrowDirectionUp;
};

} // namespace phone
