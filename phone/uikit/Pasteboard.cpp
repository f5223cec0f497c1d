#include "phone/uikit/Pasteboard.h"

namespace phone {

UIPasteboard Pasteboard::general() {
    static constinit objc::Global<UIPasteboard> pasteboard;
    if (!pasteboard) {
        pasteboard = objc::make<UIPasteboard>();
    }
    return pasteboard;
}

void Pasteboard::setString(const NSString& text) { _string = text.send<"copy", NSString>(); }

} // namespace phone
