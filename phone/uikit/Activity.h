/// One thing that can be done from the share sheet.
#pragma once

#include "platform/uikit/UIActivity.h"

namespace phone {

/// `UIActivityCategory`
enum class ActivityCategory : objc::Int { Action = 0, Share = 1 };

/// UIActivity.
class Activity : public objc::Implements<Activity, UIActivity, NSObject> {
public:
    static void define(objc::ClassTable<Activity>& c);

    /// The sheet that runs the activity and is told of its end by `_activity:finished:`; nil while none
    /// does. Not retained: the sheet takes itself out.
    void setSheet(const UIActivityViewController& sheet) { _sheet = sheet; }

    /// Whether the activity's class answers `activityViewController` or `performActivity` itself: one that
    /// inherits both has nothing to do yet.
    static bool doesSomething(const UIActivity& activity);

private:
    static ActivityCategory category() { return ActivityCategory::Action; }
    NSString activityType() const { return nullptr; }
    NSString activityTitle() const { return nullptr; }
    UIImage activityImage() const { return nullptr; }
    bool canPerform(const NSArray&) const { return false; }
    void prepare(const NSArray&) {}
    UIViewController activityViewController() const { return nullptr; }
    void performActivity() {}
    void activityDidFinish(bool completed);

    objc::Unretained<UIActivityViewController> _sheet;
};

} // namespace phone
