#include "phone/applications/CallButton.h"

#include "phone/uikit/Color.h"

#include <algorithm>

namespace phone {

namespace {

constexpr double ringWidth = 1.5;
constexpr double cellLine = 0.5;
constexpr double barRadius = 8;
constexpr double captionHeight = 20;
constexpr Color light{1, 1, 1, 1};
constexpr Color dark{0.15, 0.17, 0.2, 1};
constexpr Color pressed{1, 1, 1, 0.35};
constexpr double paleAlpha = 0.35;

} // namespace

void CallButton::define(objc::ClassTable<CallButton>& c) {
    c.overrides<"_stateChanged", &CallButton::stateChanged>()
        .overrides<"layoutSubviews", &CallButton::layoutSubviews>()
        .overrides<"_drawContent:", &CallButton::drawContent>();
}

objc::Ref<CallButton> CallButton::with(const Look& look, const NSString& caption) {
    auto button = objc::make<objc::Ref<CallButton>>();
    button->_look = look;
    button->_caption = objc::make<UILabel>();
    button->_caption.setText(caption);
    button->_caption.setFont(UIFont::system(look.captionSize));
    button->_caption.setTextAlignment(NSTextAlignment::Center);
    button->addSubview(button->_caption);
    button->setAccessibilityLabel(caption);
    button->stateChanged();
    return button;
}

void CallButton::stateChanged() {
    super<"_stateChanged">();
    _caption.setTextColor(uiColor(_look.shape == Shape::Ring && _look.glyph ? light : ink()));
    setAlpha(isEnabled() ? 1 : paleAlpha);
    setNeedsDisplay();
}

Color CallButton::ink() const { return isSelected() ? dark : light; }

CGRect CallButton::shapeFrame() const {
    const CGRect all = bounds();
    if (_look.shape != Shape::Ring) {
        return all;
    }
    const double side = std::min(all.size.width, all.size.height - (_look.glyph ? captionHeight : 0));
    return {(all.size.width - side) / 2, 0, side, side};
}

void CallButton::layoutSubviews() {
    super<"layoutSubviews">();
    const CGRect all = bounds();
    _caption.setFrame(_look.glyph ? CGRect(0, all.size.height - captionHeight, all.size.width, captionHeight) : all);
}

void CallButton::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect shape = shapeFrame();
    const double radius = _look.shape == Shape::Ring ? shape.size.width / 2 : _look.shape == Shape::Bar ? barRadius : 0;
    if (_look.fill) {
        painter->fill(shape, *_look.fill, radius);
    } else if (_look.shape == Shape::Ring) {
        const double inset = ringWidth / 2;
        painter->strokeEllipse({shape.origin.x + inset, shape.origin.y + inset, shape.size.width - ringWidth,
                                shape.size.height - ringWidth},
                               light, ringWidth);
    } else {
        painter->stroke(shape, pressed, cellLine);
    }
    if (isSelected()) {
        painter->fill(shape, light, radius);
    } else if (isHighlighted()) {
        painter->fill(shape, pressed, radius);
    }
    if (_look.glyph) {
        CGPoint center = shape.center();
        if (_look.shape == Shape::Cell) {
            center.y -= captionHeight / 2;
        }
        drawCallGlyph(*painter, *_look.glyph, center, ink());
    }
}

} // namespace phone
