/// Lines of text that a person edits and scrolls.
#pragma once

#include "phone/coregraphics/TextLayout.h"
#include "phone/uikit/Caret.h"
#include "phone/uikit/TextEditing.h"
#include "phone/uikit/TextInput.h"
#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UITextView.h"

#include <memory>

namespace phone {

/// UITextView. The delegate is asked and told in the platform's order; unlike a field's, the keyboard's
/// notifications come before the start of editing. There is no correction and no completion.
class TextView : public objc::Implements<TextView, UITextView, UIScrollView>,
                 public TextInput,
                 private TextEditing::Owner {
public:
    /// Between the view's edges and its text, in points.
    static constexpr UIEdgeInsets containerInset{8, 5, 8, 5};

    static void define(objc::ClassTable<TextView>& c);

    void enter(const NSString& text) override { _editing.type(text); }
    void eraseBackward() override { _editing.erase(); }
    void eraseForward() override { _editing.eraseForward(); }
    void moveCaret(CaretMove move) override { _editing.moveCaret(move); }
    void pressReturn() override { _editing.type("\n"_ns); }
    UIReturnKeyType returnKey() const override { return _returnKeyType; }
    UITextAutocapitalizationType autocapitalization() const override { return _autocapitalization; }
    NSString textBeforeCaret() const override { return _editing.textBeforeCaret(); }

private:
    void initWithFrame(CGRect frame);
    NSString text() { return _editing.text(); }
    void setText(const NSString& text);
    UIColor textColor() { return _textColor; }
    /// nil means black.
    void setTextColor(const UIColor& color);
    UIFont font() { return _font; }
    /// nil means the system's font at 12 points.
    void setFont(const UIFont& font);
    NSTextAlignment textAlignment() { return _alignment; }
    void setTextAlignment(NSTextAlignment alignment);
    void setReturnKeyType(UIReturnKeyType type);
    void setAutocapitalizationType(UITextAutocapitalizationType kind);
    NSRange selectedRange() { return _editing.selection(); }
    void setSelectedRange(NSRange range);
    bool isEditable() { return _editable; }
    void setEditable(bool editable);
    void insertText(const NSString& text) { _editing.insert(text); }
    void deleteBackward() { _editing.deleteBackward(); }
    bool hasText() { return !_editing.isEmpty(); }
    void scrollRangeToVisible(NSRange range);

    bool canBecomeFirstResponder() { return _editable; }
    bool shouldBecome();
    void didBecome();
    bool shouldResign();
    void didResign();
    void touchesBegan(const NSSet&, const UIEvent&) {}
    void touchesMoved(const NSSet&, const UIEvent&) {}
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void touchesCancelled(const NSSet&, const UIEvent&) {}
    void setBounds(CGRect bounds);
    void layoutSubviews();
    CGSize sizeThatFits(CGSize size);
    void drawContent(CGRect rect);

    bool mayChange(NSRange range, const NSString& replacement) override;
    void textChanged() override;
    void textMoved() override;

    const UITextView& self() const { return *this; }
    std::unique_ptr<TextLayout> layout(CGFloat width);
    /// The present text in the present width; made anew after either has changed.
    const TextLayout& currentLayout();
    void reflow();
    CGRect caretRect(objc::UInt position);
    void showRect(CGRect rect);

    TextEditing _editing{*this};
    std::unique_ptr<TextLayout> _layout; // none until asked for
    UIColor _textColor;
    UIFont _font;
    NSTextAlignment _alignment = NSTextAlignment::Left;
    UIReturnKeyType _returnKeyType = UIReturnKeyType::Default;
    UITextAutocapitalizationType _autocapitalization = UITextAutocapitalizationType::Sentences;
    bool _editable = true;
    objc::Ref<Caret> _caret;
};

} // namespace phone
