/// A button of the call screen: a picture or a digit in a ring or a cell, and what it does below or in it.
#pragma once

#include "phone/applications/CallGlyph.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"

#include <optional>

namespace phone {

/// Selected it is filled, disabled it is pale.
class CallButton : public objc::Defines<CallButton, UIControl> {
public:
    static constexpr auto objc_name = "CallButton";

    enum class Shape {
        Ring, // a circle at the top, the caption below
        Cell, // a rectangle: picture and caption inside
        Bar,  // a rectangle with round corners: the caption alone
    };
    struct Look {
        Shape shape = Shape::Ring;
        std::optional<CallGlyph> glyph; // none: the caption stands in the middle
        std::optional<Color> fill;      // none: outlined
        double captionSize = 14;
    };

    static void define(objc::ClassTable<CallButton>& c);
    static objc::Ref<CallButton> with(const Look& look, const NSString& caption);

    const NSString caption() const { return _caption.text(); }

private:
    void stateChanged();
    void layoutSubviews();
    void drawContent(CGRect rect);
    CGRect shapeFrame() const;
    Color ink() const;

    Look _look;
    UILabel _caption;
};

} // namespace phone
