#include "phone/uikit/TextEditing.h"

#include "phone/coregraphics/Graphemes.h"
#include "phone/foundation/Text.h"

#include <algorithm>
#include <utility>

namespace phone {

namespace {

/// Cut to the text.
NSRange within(NSRange range, objc::UInt length) {
    const objc::UInt start = std::min(range.location, length);
    return {start, std::min(range.length, length - start)};
}

NSString copied(const NSString& text) { return text ? text.send<"copy", NSString>() : ""_ns; }

} // namespace

NSString TextEditing::textBeforeCaret() const {
    return text().send<"substringToIndex:", NSString>(_selection.location);
}

NSString TextEditing::text() const {
    const std::lock_guard lock(_mutex);
    return _text;
}

void TextEditing::put(NSString text) {
    const std::lock_guard lock(_mutex);
    std::swap(_text, text);
}

void TextEditing::setText(const NSString& text) {
    put(copied(text));
    _selection = {_text.length(), 0};
    _owner.textMoved();
}

void TextEditing::setSelection(NSRange range) {
    const NSRange inside = within(range, _text.length());
    const auto boundaries = graphemeBoundaries(phone::text(_text));
    const auto after = std::upper_bound(boundaries.begin(), boundaries.end(), inside.location);
    const objc::UInt start = after == boundaries.begin() ? 0 : *std::prev(after);
    objc::UInt end = start;
    if (inside.length > 0) {
        const auto last = std::lower_bound(boundaries.begin(), boundaries.end(), inside.end());
        end = last == boundaries.end() ? _text.length() : *last;
    }
    _selection = {start, end - start};
    _owner.textMoved();
}

void TextEditing::insert(const NSString& text) { replace(_selection, copied(text)); }

void TextEditing::deleteBackward() { replace(beforeCaret(), ""_ns); }

bool TextEditing::type(const NSString& text) { return change(_selection, copied(text)); }

bool TextEditing::erase() {
    const NSRange range = beforeCaret();
    return range.length > 0 && change(range, ""_ns);
}

bool TextEditing::eraseForward() {
    const NSRange range = behindCaret();
    return range.length > 0 && change(range, ""_ns);
}

void TextEditing::moveCaret(CaretMove move) {
    switch (move) {
    case CaretMove::Back:
        return placeCaret(beforeCaret().location);
    case CaretMove::Forth:
        return placeCaret(behindCaret().end());
    case CaretMove::Start:
        return placeCaret(0);
    case CaretMove::End:
        return placeCaret(_text.length());
    }
}

NSRange TextEditing::behindCaret() const {
    if (_selection.length > 0) {
        return _selection;
    }
    const auto boundaries = graphemeBoundaries(phone::text(_text));
    const auto next = std::upper_bound(boundaries.begin(), boundaries.end(), _selection.location);
    const objc::UInt end = next == boundaries.end() ? _text.length() : *next;
    return {_selection.location, end - _selection.location};
}

NSRange TextEditing::beforeCaret() const {
    if (_selection.length > 0) {
        return _selection;
    }
    const auto boundaries = graphemeBoundaries(phone::text(_text));
    const auto here = std::lower_bound(boundaries.begin(), boundaries.end(), _selection.location);
    const objc::UInt start = here == boundaries.begin() ? 0 : *std::prev(here);
    return {start, _selection.location - start};
}

bool TextEditing::change(NSRange range, const NSString& replacement) {
    if (!_owner.mayChange(range, replacement)) {
        return false;
    }
    replace(within(range, _text.length()), replacement); // who was asked may have set another text
    _owner.textChanged();
    return true;
}

void TextEditing::replace(NSRange range, const NSString& replacement) {
    put(_text.stringByReplacingCharactersInRange(range, replacement));
    _selection = {range.location + replacement.length(), 0};
    _owner.textMoved();
}

} // namespace phone
