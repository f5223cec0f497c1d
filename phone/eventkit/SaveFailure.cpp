#include "phone/eventkit/SaveFailure.h"

#include "phone/foundation/Text.h"
#include "platform/foundation/NSDictionary.h"

extern "C" {
extern const id NSLocalizedDescriptionKey; // of Foundation
}

namespace phone::eventkit {

namespace {

constexpr objc::Int noAccess = 1013;

} // namespace

SaveFailure SaveFailure::with(EKErrorCode code, const std::string& text) {
    return {"EKErrorDomain", static_cast<objc::Int>(code), text};
}

SaveFailure SaveFailure::withoutAccess(const char* kind) {
    return {"EKCADErrorDomain", noAccess, std::string("Access to ") + kind + " has not been granted"};
}

id SaveFailure::error() const {
    const auto info = objc::make<NSMutableDictionary>();
    info.set(string(text), objc::borrow<NSString>(NSLocalizedDescriptionKey));
    const auto made = objc::make<NSError, "initWithDomain:code:userInfo:">(string(domain), code, info);
    return objc::detail::call<id>(objc::Object(made).relinquish(), objc::selector<"autorelease">());
}

bool report(const std::optional<SaveFailure>& failure, id* error) {
    if (error != nullptr) {
        *error = failure ? failure->error() : nullptr;
    }
    return !failure;
}

} // namespace phone::eventkit
