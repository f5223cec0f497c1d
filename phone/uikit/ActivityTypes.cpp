// The users of these constants see them as `const`. Here they are variables, because a string object exists
// only once the runtime does; so this file does not include the header that declares them.

#include "phone/uikit/ActivityTypes.h"

#include "platform/foundation/NSString.h"

extern "C" {
id UIActivityTypePrint = nullptr;
id UIActivityTypeCopyToPasteboard = nullptr;
id UIActivityTypeAssignToContact = nullptr;
id UIActivityTypeSaveToCameraRoll = nullptr;
id UIActivityTypePostToFacebook = nullptr;
id UIActivityTypePostToTwitter = nullptr;
id UIActivityTypePostToWeibo = nullptr;
id UIActivityTypeMessage = nullptr;
id UIActivityTypeMail = nullptr;
id UIActivityTypeAirDrop = nullptr;
id UIActivityTypeAddToReadingList = nullptr;
}

namespace phone {

void setActivityTypes() {
    auto set = [](id& constant, const char* text) {
        if (constant == nullptr) {
            constant = NSString::utf8(text).relinquish(); // a constant lives for ever
        }
    };
    set(UIActivityTypePrint, "com.apple.UIKit.activity.Print");
    set(UIActivityTypeCopyToPasteboard, "com.apple.UIKit.activity.CopyToPasteboard");
    set(UIActivityTypeAssignToContact, "com.apple.UIKit.activity.AssignToContact");
    set(UIActivityTypeSaveToCameraRoll, "com.apple.UIKit.activity.SaveToCameraRoll");
    set(UIActivityTypePostToFacebook, "com.apple.UIKit.activity.PostToFacebook");
    set(UIActivityTypePostToTwitter, "com.apple.UIKit.activity.PostToTwitter");
    set(UIActivityTypePostToWeibo, "com.apple.UIKit.activity.PostToWeibo");
    set(UIActivityTypeMessage, "com.apple.UIKit.activity.Message");
    set(UIActivityTypeMail, "com.apple.UIKit.activity.Mail");
    set(UIActivityTypeAirDrop, "com.apple.UIKit.activity.AirDrop");
    set(UIActivityTypeAddToReadingList, "com.apple.UIKit.activity.AddToReadingList");
}

} // namespace phone
