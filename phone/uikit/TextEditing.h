/// The text being edited, and the caret in it: what text fields and text views share.
#pragma once

#include "phone/uikit/TextInput.h"
#include "platform/foundation/NSString.h"

#include <mutex>

namespace phone {

/// Positions are UTF-16 units, as the platform counts them. What a person perceives as one character is
/// passed, and erased, as one.
class TextEditing {
public:
    /// Whose text it is.
    class Owner {
    public:
        virtual ~Owner() = default;
        /// The person wants to put this text in place of the range.
        virtual bool mayChange(NSRange range, const NSString& replacement) = 0;
        /// The text changed by the person's or a key's doing.
        virtual void textChanged() = 0;
        /// What is shown has changed, for whatever reason: text or caret.
        virtual void textMoved() = 0;
    };

    explicit TextEditing(Owner& owner) : _owner(owner) {}

    /// Never nil. From any thread: also while the main thread changes the text.
    NSString text() const;
    bool isEmpty() const { return _text.length() == 0; }
    NSString textBeforeCaret() const;
    /// A range of length zero is the caret.
    NSRange selection() const { return _selection; }

    /// Replaces everything without asking; nil counts as "". The caret goes to the end.
    void setText(const NSString& text);
    /// Cut to the text, and widened to whole characters.
    void setSelection(NSRange range);
    void placeCaret(objc::UInt position) { setSelection({position, 0}); }

    /// Puts the text in place of the selection without asking, as code does.
    void insert(const NSString& text);
    /// Erases the selection, or else the character before the caret, without asking.
    void deleteBackward();

    /// The same as the person does it, asking the owner first. False when it refused.
    bool type(const NSString& text);
    /// At the start of the text nothing is asked and nothing happens.
    bool erase();
    /// The selection, or else the character behind the caret; at the end of the text nothing happens.
    bool eraseForward();
    /// A selection is left at the end that the caret goes to.
    void moveCaret(CaretMove move);

private:
    NSRange beforeCaret() const;
    NSRange behindCaret() const;
    bool change(NSRange range, const NSString& replacement);
    void replace(NSRange range, const NSString& replacement);
    void put(NSString text);

    Owner& _owner;
    mutable std::mutex _mutex; // guards the text while it is put, and where others read it
    NSString _text = ""_ns;    // only the main thread puts it, and may read it as it stands
    NSRange _selection;
};

} // namespace phone
