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

void Exports::add(const InstalledLibrary& library, const Symbols& symbols) {
    Offer& offer = _libraries[std::string(library.path)];
    offer.version = library.compatible;
    offer.symbols.insert(symbols.begin(), symbols.end());
}

std::optional<Version> Exports::version(std::string_view library) const {
    const auto offer = _libraries.find(library);
    return offer == _libraries.end() ? std::nullopt : std::optional(offer->second.version);
}

const void* Exports::find(std::string_view library, std::string_view name) const {
    const auto offer = _libraries.find(library);
    if (offer == _libraries.end()) {
        return nullptr;
    }
    const auto symbol = offer->second.symbols.find(name);
    return symbol == offer->second.symbols.end() ? nullptr : symbol->second;
}

const void* Exports::findAnywhere(std::string_view name) const {
    for (const auto& [library, offer] : _libraries) {
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
        exports.add(substrate, {{"_MSHookMessageEx", code(&MSHookMessageEx)}});
        exports.add(foundation, {{"_NSGregorianCalendar", &NSGregorianCalendar}});
        exports.add(eventKit, {});
        exports.add(coreGraphics, {{"_CGContextAddLineToPoint", code(&CGContextAddLineToPoint)},
                                   {"_CGContextMoveToPoint", code(&CGContextMoveToPoint)},
                                   {"_CGContextSetLineWidth", code(&CGContextSetLineWidth)},
                                   {"_CGContextSetStrokeColorWithColor", code(&CGContextSetStrokeColorWithColor)},
                                   {"_CGContextStrokePath", code(&CGContextStrokePath)}});
        exports.add(uiKit, {{"_UIGraphicsGetCurrentContext", code(&UIGraphicsGetCurrentContext)},
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
