#include "phone/foundation/Raise.h"

#include "phone/foundation/Text.h"
#include "platform/objc/Exception.h"

#include <cstdlib>

namespace phone {

namespace {

struct NSException : NSObject {
    static constexpr auto objc_name = "NSException";
    using NSObject::NSObject;
    static NSException make(const NSString& name, const NSString& reason) {
        return objc::sendClass<NSException, "exceptionWithName:reason:userInfo:", NSException>(name, reason, nullptr);
    }
    NSString name() const { return send<"name", NSString>(); }
    NSString reason() const { return send<"reason", NSString>(); }
};

} // namespace

void raise(const std::string& name, const std::string& reason) {
    NSException::make(string(name), string(reason)).send<"raise">();
    std::abort(); // where there is no Foundation to raise anything
}

std::optional<PlatformException> caughtException() {
    const objc::Object caught = objc::caughtObject();
    if (!objc::isKind<NSException>(caught)) {
        return std::nullopt;
    }
    const auto exception = objc::as<NSException>(caught);
    return PlatformException{.name = text(exception.name()), .reason = text(exception.reason())};
}

} // namespace phone
