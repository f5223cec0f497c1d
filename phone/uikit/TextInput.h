/// What the keyboard writes into: a text field or a text view that is the first responder.
#pragma once

#include "platform/foundation/NSString.h"
#include "platform/uikit/UIResponder.h"
#include "platform/uikit/UITextInput.h"

namespace phone {

/// Where an arrow or its like sends the caret: by one character, or all the way.
enum class CaretMove { Back, Forth, Start, End };

/// The keys' side of a text input. All of it asks the delegate as the platform does.
class TextInput {
public:
    virtual ~TextInput() = default;
    /// One character, or a text that is pasted.
    virtual void enter(const NSString& text) = 0;
    virtual void eraseBackward() = 0;
    /// As the delete key of a connected keyboard does: what is behind the caret.
    virtual void eraseForward() = 0;
    /// As a connected keyboard's arrows do; a selection is left at the end that the arrow points to.
    virtual void moveCaret(CaretMove move) = 0;
    virtual void pressReturn() = 0;
    virtual UIReturnKeyType returnKey() const = 0;
    virtual UITextAutocapitalizationType autocapitalization() const = 0;
    virtual NSString textBeforeCaret() const = 0;
};

/// The text input that this responder is; nullptr for any other responder and for nil.
TextInput* textInput(const UIResponder& responder);

} // namespace phone
