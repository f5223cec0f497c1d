#include "phone/uikit/TextField.h"

#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Control.h"
#include "phone/uikit/Font.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/Responder.h"

#include <algorithm>

namespace phone {

namespace {

constexpr CGFloat defaultTextSize = 17;
/// About #C7C7CD on white.
constexpr Color placeholderColor{0, 0, 0.098, 0.22};

/// A field has one line: a line break in it is drawn as a space. Positions stay what they are.
std::string oneLine(std::string utf8) {
    std::replace(utf8.begin(), utf8.end(), '\n', ' ');
    return utf8;
}

} // namespace

void TextField::define(objc::ClassTable<TextField>& c) {
    c.init<"initWithFrame:", &TextField::initWithFrame>()
        .def<"text", &TextField::text>()
        .def<"setText:", &TextField::setText>()
        .def<"placeholder", &TextField::placeholder>()
        .def<"setPlaceholder:", &TextField::setPlaceholder>()
        .def<"textColor", &TextField::textColor>()
        .def<"setTextColor:", &TextField::setTextColor>()
        .def<"font", &TextField::font>()
        .def<"setFont:", &TextField::setFont>()
        .get<"textAlignment", &TextField::_alignment>()
        .def<"setTextAlignment:", &TextField::setTextAlignment>()
        .get<"returnKeyType", &TextField::_returnKeyType>()
        .def<"setReturnKeyType:", &TextField::setReturnKeyType>()
        .get<"autocapitalizationType", &TextField::_autocapitalization>()
        .def<"setAutocapitalizationType:", &TextField::setAutocapitalizationType>()
        .get<"delegate", &TextField::_delegate>()
        .def<"setDelegate:", &TextField::setDelegate>()
        .def<"isEditing", &TextField::isEditing>()
        .def<"insertText:", &TextField::insertText>()
        .def<"deleteBackward", &TextField::deleteBackward>()
        .def<"hasText", &TextField::hasText>();
    c.overrides<"canBecomeFirstResponder", &TextField::canBecomeFirstResponder>()
        .overrides<"_shouldBecomeFirstResponder", &TextField::shouldBecome>()
        .overrides<"_didBecomeFirstResponder", &TextField::didBecome>()
        .overrides<"_shouldResignFirstResponder", &TextField::shouldResign>()
        .overrides<"_didResignFirstResponder", &TextField::didResign>()
        .overrides<"touchesEnded:withEvent:", &TextField::touchesEnded>()
        .overrides<"layoutSubviews", &TextField::layoutSubviews>()
        .overrides<"_drawContent:", &TextField::drawContent>();
}

void TextField::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    _textColor = UIColor::black();
    _font = UIFont::system(defaultTextSize);
    _caret = objc::Ref<Caret>::make();
    addSubview(objc::as<UIView>(_caret));
}

void TextField::setText(const NSString& text) { _editing.setText(text); }

void TextField::setTextColor(const UIColor& color) { _textColor = color ? color : UIColor::black(); }

void TextField::setFont(const UIFont& font) {
    _font = font ? font : UIFont::system(defaultTextSize);
    textMoved();
}

void TextField::setTextAlignment(NSTextAlignment alignment) {
    _alignment = alignment;
    textMoved();
}

void TextField::setReturnKeyType(UIReturnKeyType type) {
    _returnKeyType = type;
    if (isFirstResponder()) {
        Keyboard::shared().refresh();
    }
}

void TextField::setAutocapitalizationType(UITextAutocapitalizationType kind) {
    _autocapitalization = kind;
    if (isFirstResponder()) {
        Keyboard::shared().refresh();
    }
}

// First responder

bool TextField::shouldBecome() {
    const objc::Object asked = delegate();
    return !objc::responds<"textFieldShouldBeginEditing:">(asked) ||
           asked.send<"textFieldShouldBeginEditing:", bool>(self());
}

void TextField::didBecome() {
    textMoved();
    if (const objc::Object told = delegate(); objc::responds<"textFieldDidBeginEditing:">(told)) {
        told.send<"textFieldDidBeginEditing:">(self());
    }
    sendActions(UIControlEventEditingDidBegin);
    // Documented the other way round; devices tell a field's delegate first, and a text view's last.
    if (isFirstResponder()) {
        Keyboard::shared().show();
    }
}

bool TextField::shouldResign() {
    const objc::Object asked = delegate();
    return !objc::responds<"textFieldShouldEndEditing:">(asked) ||
           asked.send<"textFieldShouldEndEditing:", bool>(self());
}

void TextField::didResign() {
    _caret->hide();
    _scrolled = 0;
    Keyboard::shared().hide(Responder::coming());
    if (const objc::Object told = delegate(); objc::responds<"textFieldDidEndEditing:">(told)) {
        told.send<"textFieldDidEndEditing:">(self());
    }
    sendActions(UIControlEventEditingDidEnd);
}

void TextField::touchesEnded(const NSSet& touches, const UIEvent& event) {
    const CGPoint at = touches.any<UITouch>().locationInView(*this);
    const bool tapped = Control::of(*this)->isTracking() && bounds().contains(at);
    super<"touchesEnded:withEvent:">(touches, event);
    if (!tapped || !becomeFirstResponder()) {
        return;
    }
    const auto line = layout(_editing.text(), false);
    const CGPoint origin = textOrigin(*line);
    _editing.placeCaret(line->positionAt({at.x - origin.x, at.y - origin.y}));
}

// Keys

void TextField::enter(const NSString& text) { _editing.type(string(oneLine(phone::text(text)))); }

void TextField::pressReturn() {
    const objc::Object asked = delegate();
    const bool answered =
        objc::responds<"textFieldShouldReturn:">(asked) ? asked.send<"textFieldShouldReturn:", bool>(self()) : true;
    if (!answered) {
        return;
    }
    // Only who waits for this event makes return end the editing.
    const bool ends = Control::of(*this)->hasActions(UIControlEventEditingDidEndOnExit);
    sendActions(UIControlEventEditingDidEndOnExit);
    if (ends) {
        resignFirstResponder();
    }
}

bool TextField::mayChange(NSRange range, const NSString& replacement) {
    const objc::Object asked = delegate();
    return !objc::responds<"textField:shouldChangeCharactersInRange:replacementString:">(asked) ||
           asked.send<"textField:shouldChangeCharactersInRange:replacementString:", bool>(self(), range, replacement);
}

void TextField::textChanged() { sendActions(UIControlEventEditingChanged); }

void TextField::textMoved() {
    if (!isFirstResponder()) {
        return;
    }
    Keyboard::shared().textMoved();
    const auto line = layout(_editing.text(), false);
    const CGFloat room = bounds().size.width - TextLayout::caretWidth;
    const CGFloat caret = line->caret(_editing.selection().end()).origin.x;
    const CGFloat overflow = std::max<CGFloat>(0, line->size().width - room);
    _scrolled = std::clamp(_scrolled, std::max<CGFloat>(0, caret - room), std::max<CGFloat>(0, caret));
    _scrolled = std::min(_scrolled, overflow);
    const CGPoint origin = textOrigin(*line);
    CGRect place = line->caret(_editing.selection().end());
    place.origin = {place.origin.x + origin.x, place.origin.y + origin.y};
    _caret->show(place);
}

// Look

std::unique_ptr<TextLayout> TextField::layout(const NSString& text, bool cut) {
    TextLayout::Options options;
    options.face = typefaceOf(_font);
    if (cut) {
        options.width = bounds().size.width;
        options.maximumLines = 1;
        options.ellipsis = true;
    }
    return TextLayout::make(oneLine(phone::text(text)), options);
}

CGPoint TextField::textOrigin(const TextLayout& layout) {
    const CGRect area = bounds();
    const CGSize size = layout.size();
    const CGFloat spare = std::max<CGFloat>(0, area.size.width - size.width);
    CGFloat x = 0;
    if (_alignment == NSTextAlignment::Center) {
        x = spare / 2;
    } else if (_alignment == NSTextAlignment::Right || layout.isRightToLeft()) { // as typing such a language turns it
        x = std::max<CGFloat>(0, spare - (isFirstResponder() ? TextLayout::caretWidth : 0));
    }
    return {area.origin.x + x - _scrolled, area.origin.y + (area.size.height - size.height) / 2};
}

void TextField::layoutSubviews() {
    super<"layoutSubviews">();
    textMoved();
}

void TextField::drawContent(CGRect) {
    Painter* painter = Painter::current();
    const bool empty = _editing.isEmpty();
    if (painter == nullptr || (empty && !_placeholder)) {
        return;
    }
    const auto line = layout(empty ? _placeholder : _editing.text(), empty || !isFirstResponder());
    painter->text(*line, textOrigin(*line), empty ? placeholderColor : colorOf(_textColor));
}

} // namespace phone
