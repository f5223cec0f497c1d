#include "phone/uikit/TextView.h"

#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Font.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/Responder.h"

#include <algorithm>

namespace phone {

namespace {

constexpr CGFloat defaultTextSize = 12;
/// How strongly the tint lies under a selected text.
constexpr double selectionAlpha = 0.2;

TextLayout::Alignment alignmentOf(NSTextAlignment alignment) {
    switch (alignment) {
    case NSTextAlignment::Center:
        return TextLayout::Alignment::Center;
    case NSTextAlignment::Right:
        return TextLayout::Alignment::Right;
    default: // typing a language that is written from right to left turns the text's side
        return TextLayout::Alignment::Natural;
    }
}

} // namespace

void TextView::define(objc::ClassTable<TextView>& c) {
    c.init<"initWithFrame:", &TextView::initWithFrame>()
        .def<"text", &TextView::text>()
        .def<"setText:", &TextView::setText>()
        .def<"textColor", &TextView::textColor>()
        .def<"setTextColor:", &TextView::setTextColor>()
        .def<"font", &TextView::font>()
        .def<"setFont:", &TextView::setFont>()
        .def<"textAlignment", &TextView::textAlignment>()
        .def<"setTextAlignment:", &TextView::setTextAlignment>()
        .def<"selectedRange", &TextView::selectedRange>()
        .def<"setSelectedRange:", &TextView::setSelectedRange>()
        .def<"scrollRangeToVisible:", &TextView::scrollRangeToVisible>()
        .def<"isEditable", &TextView::isEditable>()
        .def<"setEditable:", &TextView::setEditable>()
        .get<"returnKeyType", &TextView::_returnKeyType>()
        .def<"setReturnKeyType:", &TextView::setReturnKeyType>()
        .get<"autocapitalizationType", &TextView::_autocapitalization>()
        .def<"setAutocapitalizationType:", &TextView::setAutocapitalizationType>()
        .def<"insertText:", &TextView::insertText>()
        .def<"deleteBackward", &TextView::deleteBackward>()
        .def<"hasText", &TextView::hasText>();
    c.overrides<"canBecomeFirstResponder", &TextView::canBecomeFirstResponder>()
        .overrides<"_shouldBecomeFirstResponder", &TextView::shouldBecome>()
        .overrides<"_didBecomeFirstResponder", &TextView::didBecome>()
        .overrides<"_shouldResignFirstResponder", &TextView::shouldResign>()
        .overrides<"_didResignFirstResponder", &TextView::didResign>()
        .overrides<"touchesBegan:withEvent:", &TextView::touchesBegan>()
        .overrides<"touchesMoved:withEvent:", &TextView::touchesMoved>()
        .overrides<"touchesEnded:withEvent:", &TextView::touchesEnded>()
        .overrides<"touchesCancelled:withEvent:", &TextView::touchesCancelled>()
        .overrides<"setBounds:", &TextView::setBounds>()
        .overrides<"layoutSubviews", &TextView::layoutSubviews>()
        .overrides<"sizeThatFits:", &TextView::sizeThatFits>()
        .overrides<"_drawContent:", &TextView::drawContent>();
}

void TextView::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setBackgroundColor(UIColor::white());
    _textColor = UIColor::black();
    _font = UIFont::system(defaultTextSize);
    _caret = objc::Ref<Caret>::make();
    addSubview(objc::as<UIView>(_caret));
    reflow();
}

void TextView::setText(const NSString& text) { _editing.setText(text); }

void TextView::setTextColor(const UIColor& color) { _textColor = color ? color : UIColor::black(); }

void TextView::setFont(const UIFont& font) {
    _font = font ? font : UIFont::system(defaultTextSize);
    textMoved();
}

void TextView::setTextAlignment(NSTextAlignment alignment) {
    _alignment = alignment;
    textMoved();
}

void TextView::setReturnKeyType(UIReturnKeyType type) {
    _returnKeyType = type;
    if (isFirstResponder()) {
        Keyboard::shared().refresh();
    }
}

void TextView::setAutocapitalizationType(UITextAutocapitalizationType kind) {
    _autocapitalization = kind;
    if (isFirstResponder()) {
        Keyboard::shared().refresh();
    }
}

void TextView::setSelectedRange(NSRange range) { _editing.setSelection(range); }

void TextView::setEditable(bool editable) {
    _editable = editable;
    if (!editable) {
        resignFirstResponder();
    }
}

// First responder

bool TextView::shouldBecome() {
    const objc::Object asked = delegate();
    return !objc::responds<"textViewShouldBeginEditing:">(asked) ||
           asked.send<"textViewShouldBeginEditing:", bool>(self());
}

void TextView::didBecome() {
    textMoved();
    Keyboard::shared().show();
    if (const objc::Object told = delegate(); objc::responds<"textViewDidBeginEditing:">(told)) {
        told.send<"textViewDidBeginEditing:">(self());
    }
}

bool TextView::shouldResign() {
    const objc::Object asked = delegate();
    return !objc::responds<"textViewShouldEndEditing:">(asked) || asked.send<"textViewShouldEndEditing:", bool>(self());
}

void TextView::didResign() {
    _caret->hide();
    Keyboard::shared().hide(Responder::coming());
    if (const objc::Object told = delegate(); objc::responds<"textViewDidEndEditing:">(told)) {
        told.send<"textViewDidEndEditing:">(self());
    }
}

void TextView::touchesEnded(const NSSet& touches, const UIEvent&) {
    const auto touch = touches.any<UITouch>();
    if (!bounds().contains(touch.locationInView(*this)) || !becomeFirstResponder()) {
        return;
    }
    const CGPoint at = touch.locationInView(*this); // the start of editing may have scrolled the text
    _editing.placeCaret(currentLayout().positionAt({at.x - containerInset.left, at.y - containerInset.top}));
}

// Keys

bool TextView::mayChange(NSRange range, const NSString& replacement) {
    const objc::Object asked = delegate();
    return !objc::responds<"textView:shouldChangeTextInRange:replacementText:">(asked) ||
           asked.send<"textView:shouldChangeTextInRange:replacementText:", bool>(self(), range, replacement);
}

void TextView::textChanged() {
    const objc::Object told = delegate();
    if (objc::responds<"textViewDidChangeSelection:">(told)) {
        told.send<"textViewDidChangeSelection:">(self());
    }
    if (objc::responds<"textViewDidChange:">(told)) {
        told.send<"textViewDidChange:">(self());
    }
}

void TextView::textMoved() {
    reflow();
    if (isFirstResponder()) {
        const CGRect caret = caretRect(_editing.selection().end());
        showRect(caret);
        _caret->show(caret);
        Keyboard::shared().textMoved();
    }
}

// Look

std::unique_ptr<TextLayout> TextView::layout(CGFloat width) {
    TextLayout::Options options;
    options.face = typefaceOf(_font);
    options.width = std::max<CGFloat>(1, width - containerInset.left - containerInset.right);
    options.alignment = alignmentOf(_alignment);
    return TextLayout::make(phone::text(_editing.text()), options);
}

const TextLayout& TextView::currentLayout() {
    if (!_layout) {
        _layout = layout(bounds().size.width);
    }
    return *_layout;
}

void TextView::reflow() {
    _layout = nullptr;
    const CGFloat height = currentLayout().size().height + containerInset.top + containerInset.bottom;
    setContentSize({bounds().size.width, height});
}

void TextView::setBounds(CGRect next) {
    const CGFloat before = bounds().size.width;
    super<"setBounds:">(next);
    if (before != next.size.width) {
        reflow();
    }
}

void TextView::layoutSubviews() {
    super<"layoutSubviews">();
    if (isFirstResponder()) {
        objc::as<UIView>(_caret).setFrame(caretRect(_editing.selection().end()));
    }
}

CGSize TextView::sizeThatFits(CGSize size) {
    return {size.width, layout(size.width)->size().height + containerInset.top + containerInset.bottom};
}

CGRect TextView::caretRect(objc::UInt position) {
    CGRect caret = currentLayout().caret(position);
    caret.origin = {caret.origin.x + containerInset.left, caret.origin.y + containerInset.top};
    return caret;
}

/// Scrolls as little as makes the rectangle visible, with the margin that the text has at its ends.
void TextView::showRect(CGRect rect) {
    const CGRect shown = bounds();
    CGFloat y = shown.origin.y;
    y = std::max(y, rect.maxY() + containerInset.bottom - shown.size.height);
    y = std::min(y, rect.origin.y - containerInset.top);
    if (y != shown.origin.y) {
        setContentOffset({shown.origin.x, y});
    }
}

void TextView::scrollRangeToVisible(NSRange range) {
    showRect(caretRect(range.end()));
    showRect(caretRect(range.location));
}

void TextView::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const NSRange selected = _editing.selection();
    Color selection = colorOf(tintColor());
    selection.alpha = selectionAlpha;
    for (objc::UInt at = selected.location; isFirstResponder() && at < selected.end(); ++at) {
        const CGRect left = caretRect(at);
        const CGRect right = caretRect(at + 1);
        if (left.origin.y == right.origin.y) {
            const CGFloat from = std::min(left.origin.x, right.origin.x); // the next letter may stand at the left
            const CGFloat to = std::max(left.origin.x, right.origin.x);
            painter->fill({from, left.origin.y, to - from, left.size.height}, selection);
        }
    }
    painter->text(currentLayout(), {containerInset.left, containerInset.top}, colorOf(_textColor));
}

} // namespace phone
