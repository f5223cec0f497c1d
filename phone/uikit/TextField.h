/// One line of text that a person edits.
#pragma once

#include "phone/coregraphics/TextLayout.h"
#include "phone/uikit/Caret.h"
#include "phone/uikit/TextEditing.h"
#include "phone/uikit/TextInput.h"
#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UITextField.h"

#include <memory>

namespace phone {

/// UITextField. The delegate is asked and told in the platform's order; the keyboard's notifications come
/// after the start of editing. There is no correction and no completion.
class TextField : public objc::Implements<TextField, UITextField, UIControl>,
                  public TextInput,
                  private TextEditing::Owner {
public:
    static void define(objc::ClassTable<TextField>& c);

    void enter(const NSString& text) override;
    void eraseBackward() override { _editing.erase(); }
    void eraseForward() override { _editing.eraseForward(); }
    void moveCaret(CaretMove move) override { _editing.moveCaret(move); }
    void pressReturn() override;
    UIReturnKeyType returnKey() const override { return _returnKeyType; }
    UITextAutocapitalizationType autocapitalization() const override { return _autocapitalization; }
    NSString textBeforeCaret() const override { return _editing.textBeforeCaret(); }

private:
    void initWithFrame(CGRect frame);
    NSString text() { return _editing.text(); }
    void setText(const NSString& text);
    NSString placeholder() { return _placeholder; }
    void setPlaceholder(const NSString& placeholder) { _placeholder = placeholder; }
    UIColor textColor() { return _textColor; }
    /// nil means black.
    void setTextColor(const UIColor& color);
    UIFont font() { return _font; }
    /// nil means the system's font at 17 points.
    void setFont(const UIFont& font);
    void setTextAlignment(NSTextAlignment alignment);
    void setReturnKeyType(UIReturnKeyType type);
    void setAutocapitalizationType(UITextAutocapitalizationType kind);
    objc::Object delegate() { return _delegate.get(); }
    void setDelegate(const objc::Object& delegate) { _delegate = delegate; }
    bool isEditing() { return isFirstResponder(); }
    void insertText(const NSString& text) { _editing.insert(text); }
    void deleteBackward() { _editing.deleteBackward(); }
    bool hasText() { return !_editing.isEmpty(); }

    bool canBecomeFirstResponder() { return isEnabled(); }
    bool shouldBecome();
    void didBecome();
    bool shouldResign();
    void didResign();
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void layoutSubviews();
    void drawContent(CGRect rect);

    bool mayChange(NSRange range, const NSString& replacement) override;
    void textChanged() override;
    void textMoved() override;

    const UITextField& self() const { return *this; }
    std::unique_ptr<TextLayout> layout(const NSString& text, bool cut);
    /// Where the text's first line starts; to the left of the bounds when the caret has scrolled it.
    CGPoint textOrigin(const TextLayout& layout);

    TextEditing _editing{*this};
    NSString _placeholder; // nil shows nothing
    UIColor _textColor;
    UIFont _font;
    NSTextAlignment _alignment = NSTextAlignment::Left;
    UIReturnKeyType _returnKeyType = UIReturnKeyType::Default;
    UITextAutocapitalizationType _autocapitalization = UITextAutocapitalizationType::Sentences;
    CGFloat _scrolled = 0; // how far a text wider than the field has moved to the left
    objc::Ref<Caret> _caret;
    objc::Unretained<objc::Object> _delegate; // UIKit does not retain a delegate
};

} // namespace phone
