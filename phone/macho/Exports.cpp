#include "phone/macho/Exports.h"

#include "phone/macho/DeviceRuntime.h"
#include "platform/coregraphics/CGContext.h"
#include "platform/foundation/NSCalendar.h"
#include "platform/substrate/Substrate.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIKeyboard.h"

namespace phone::macho {

namespace {

template <class Function>
const void* code(Function* function) {
    return reinterpret_cast<const void*>(function);
}

} // namespace

void Exports::add(std::string_view library, const Symbols& symbols) {
    _libraries[std::string(library)].insert(symbols.begin(), symbols.end());
}

bool Exports::has(std::string_view library) const { return _libraries.contains(library); }

const void* Exports::find(std::string_view library, std::string_view name) const {
    const auto symbols = _libraries.find(library);
    if (symbols == _libraries.end()) {
        return nullptr;
    }
    const auto symbol = symbols->second.find(name);
    return symbol == symbols->second.end() ? nullptr : symbol->second;
}

const void* Exports::findAnywhere(std::string_view name) const {
    for (const auto& [library, symbols] : _libraries) {
        if (const void* address = find(library, name)) {
            return address;
        }
    }
    return nullptr;
}

const Exports& Exports::ofThePhone() {
    static const Exports phone = [] {
        Exports exports;
        exportRuntime(exports);
        exports.add("/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate",
                    {{"_MSHookMessageEx", code(&MSHookMessageEx)}});
        exports.add("/System/Library/Frameworks/Foundation.framework/Foundation",
                    {{"_NSGregorianCalendar", &NSGregorianCalendar}});
        exports.add("/System/Library/Frameworks/EventKit.framework/EventKit", {});
        exports.add("/System/Library/Frameworks/CoreGraphics.framework/CoreGraphics",
                    {{"_CGContextAddLineToPoint", code(&CGContextAddLineToPoint)},
                     {"_CGContextMoveToPoint", code(&CGContextMoveToPoint)},
                     {"_CGContextSetLineWidth", code(&CGContextSetLineWidth)},
                     {"_CGContextSetStrokeColorWithColor", code(&CGContextSetStrokeColorWithColor)},
                     {"_CGContextStrokePath", code(&CGContextStrokePath)}});
        exports.add("/System/Library/Frameworks/UIKit.framework/UIKit",
                    {{"_UIGraphicsGetCurrentContext", code(&UIGraphicsGetCurrentContext)},
                     {"_UIActivityTypeAddToReadingList", &UIActivityTypeAddToReadingList},
                     {"_UIActivityTypeAirDrop", &UIActivityTypeAirDrop},
                     {"_UIActivityTypeAssignToContact", &UIActivityTypeAssignToContact},
                     {"_UIActivityTypeCopyToPasteboard", &UIActivityTypeCopyToPasteboard},
                     {"_UIActivityTypeMail", &UIActivityTypeMail},
                     {"_UIActivityTypeMessage", &UIActivityTypeMessage},
                     {"_UIActivityTypePostToFacebook", &UIActivityTypePostToFacebook},
                     {"_UIActivityTypePostToTwitter", &UIActivityTypePostToTwitter},
                     {"_UIActivityTypePostToWeibo", &UIActivityTypePostToWeibo},
                     {"_UIActivityTypePrint", &UIActivityTypePrint},
                     {"_UIActivityTypeSaveToCameraRoll", &UIActivityTypeSaveToCameraRoll},
                     {"_UIKeyboardAnimationCurveUserInfoKey", &UIKeyboardAnimationCurveUserInfoKey},
                     {"_UIKeyboardAnimationDurationUserInfoKey", &UIKeyboardAnimationDurationUserInfoKey},
                     {"_UIKeyboardDidHideNotification", &UIKeyboardDidHideNotification},
                     {"_UIKeyboardDidShowNotification", &UIKeyboardDidShowNotification},
                     {"_UIKeyboardFrameBeginUserInfoKey", &UIKeyboardFrameBeginUserInfoKey},
                     {"_UIKeyboardFrameEndUserInfoKey", &UIKeyboardFrameEndUserInfoKey},
                     {"_UIKeyboardWillHideNotification", &UIKeyboardWillHideNotification},
                     {"_UIKeyboardWillShowNotification", &UIKeyboardWillShowNotification}});
        return exports;
    }();
    return phone;
}

} // namespace phone::macho
