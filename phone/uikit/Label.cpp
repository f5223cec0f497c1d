#include "phone/uikit/Label.h"

#include "phone/coregraphics/Painter.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Font.h"

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

constexpr double defaultSize = 17; // points

TextLayout::Alignment alignmentOf(NSTextAlignment alignment) {
    switch (alignment) {
    case NSTextAlignment::Left:
        return TextLayout::Alignment::Left;
    case NSTextAlignment::Center:
        return TextLayout::Alignment::Center;
    case NSTextAlignment::Right:
        return TextLayout::Alignment::Right;
    }
    return TextLayout::Alignment::Left;
}

} // namespace

void Label::define(objc::ClassTable<Label>& c) {
    c.init<"initWithFrame:", &Label::initWithFrame>()
        .def<"text", &Label::text>()
        .def<"setText:", &Label::setText>()
        .def<"textColor", &Label::textColor>()
        .def<"setTextColor:", &Label::setTextColor>()
        .def<"font", &Label::font>()
        .def<"setFont:", &Label::setFont>()
        .def<"textAlignment", &Label::textAlignment>()
        .def<"setTextAlignment:", &Label::setTextAlignment>()
        .def<"numberOfLines", &Label::numberOfLines>()
        .def<"setNumberOfLines:", &Label::setNumberOfLines>()
        .overrides<"sizeThatFits:", &Label::sizeThatFits>()
        .overrides<"drawRect:", &Label::drawRect>()
        .overrides<"_drawContent:", &Label::drawRect>();
}

void Label::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setUserInteractionEnabled(false);
    setFont(nullptr);
    setTextColor(nullptr);
}

void Label::setText(const NSString& text) {
    _text = text.send<"copy", NSString>(); // a later change of a mutable text is none of the label's
    setNeedsDisplay();
}

void Label::setTextColor(const UIColor& color) {
    _textColor = color ? color : UIColor::black();
    setNeedsDisplay();
}

void Label::setFont(const UIFont& font) {
    _font = font ? font : UIFont::system(defaultSize);
    setNeedsDisplay();
}

void Label::setTextAlignment(NSTextAlignment alignment) {
    _alignment = alignment;
    setNeedsDisplay();
}

void Label::setNumberOfLines(objc::Int lines) {
    _lines = std::max<objc::Int>(lines, 0);
    setNeedsDisplay();
}

CGSize Label::sizeThatFits(CGSize size) {
    if (_text.length() == 0) {
        return {};
    }
    // One line is as wide as its text, whatever the width offered; more lines want a width to break at.
    const double width = _lines == 1 || size.width <= 0 ? -1 : size.width;
    const CGSize fitting = layout(width, static_cast<int>(_lines))->size();
    const double scale = settings().device.scale;
    return {std::ceil(fitting.width * scale) / scale, std::ceil(fitting.height * scale) / scale};
}

void Label::drawRect(CGRect) {
    Painter* painter = Painter::current();
    const CGRect area = bounds();
    if (painter == nullptr || _text.length() == 0 || area.size.width <= 0) {
        return;
    }
    const int thatFit = static_cast<int>(area.size.height / TextLayout::lineHeight(typefaceOf(_font)));
    const int allowed = static_cast<int>(_lines);
    const int lines = std::max(allowed == 0 ? thatFit : std::min(allowed, thatFit), 1);
    const auto set = layout(area.size.width, lines);
    painter->text(*set, {area.origin.x, area.center().y - set->size().height / 2}, colorOf(_textColor));
}

std::unique_ptr<TextLayout> Label::layout(double width, int lines) {
    return TextLayout::make(phone::text(_text), {.face = typefaceOf(_font),
                                                 .width = width,
                                                 .maximumLines = lines,
                                                 .alignment = alignmentOf(_alignment),
                                                 .ellipsis = true});
}

} // namespace phone
