/// UIActivity and UIActivityViewController, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIViewController.h"

class UIActivity : public NSObject {
public:
    static constexpr auto objc_name = "UIActivity";
    using NSObject::NSObject;

    NSString activityType() const { return send<"activityType", NSString>(); }
    NSString activityTitle() const { return send<"activityTitle", NSString>(); }
    UIImage activityImage() const { return send<"activityImage", UIImage>(); }
    bool canPerform(const NSArray& items) const { return send<"canPerformWithActivityItems:", bool>(items); }
    void prepare(const NSArray& items) const { send<"prepareWithActivityItems:">(items); }
    UIViewController activityViewController() const { return send<"activityViewController", UIViewController>(); }
    void performActivity() const { send<"performActivity">(); }
    /// Ends the activity: its controller and the sheet go away.
    void activityDidFinish(bool completed) const { send<"activityDidFinish:">(completed); }
};

class UIActivityViewController : public UIViewController {
public:
    static constexpr auto objc_name = "UIActivityViewController";
    using UIViewController::UIViewController;
    static UIActivityViewController with(const NSArray& items, const NSArray& activities) {
        return objc::make<UIActivityViewController, "initWithActivityItems:applicationActivities:">(items, activities);
    }

    NSArray excludedActivityTypes() const { return send<"excludedActivityTypes", NSArray>(); }
    void setExcludedActivityTypes(const NSArray& types) const { send<"setExcludedActivityTypes:">(types); }
    /// Gets the type chosen, nil when cancelled, and whether the activity was completed.
    void setCompletionHandler(void (^handler)(id type, bool completed)) const {
        send<"setCompletionHandler:">(handler);
    }
};

/// The platform's own activity types: objects that it exports as C constants. The weak ones came with platform 7;
/// before it their addresses are null.
extern "C" {
extern const id UIActivityTypePrint;
extern const id UIActivityTypeCopyToPasteboard;
extern const id UIActivityTypeAssignToContact;
extern const id UIActivityTypeSaveToCameraRoll;
extern const id UIActivityTypePostToFacebook;
extern const id UIActivityTypePostToTwitter;
extern const id UIActivityTypePostToWeibo;
extern const id UIActivityTypeMessage;
extern const id UIActivityTypeMail;
extern const id UIActivityTypeAirDrop __attribute__((weak));
extern const id UIActivityTypeAddToReadingList __attribute__((weak));
}
