#include "phone/uikit/TextInput.h"

#include "phone/uikit/TextField.h"
#include "phone/uikit/TextView.h"

namespace phone {

TextInput* textInput(const UIResponder& responder) {
    if (TextField* field = TextField::of(responder)) {
        return field;
    }
    return TextView::of(responder);
}

} // namespace phone
