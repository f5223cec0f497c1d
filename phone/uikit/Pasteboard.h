/// What was copied.
#pragma once

#include "platform/uikit/UIPasteboard.h"

namespace phone {

/// UIPasteboard: the general one, holding a text or nothing, for the life of the process.
class Pasteboard : public objc::Implements<Pasteboard, UIPasteboard, NSObject> {
public:
    static void define(objc::ClassTable<Pasteboard>& c) {
        c.classMethod<"generalPasteboard", &Pasteboard::general>()
            .get<"string", &Pasteboard::_string>()
            .def<"setString:", &Pasteboard::setString>();
    }

private:
    static UIPasteboard general();
    /// Keeps a copy; nil empties the pasteboard.
    void setString(const NSString& text);

    NSString _string; // nil while nothing was copied
};

} // namespace phone
