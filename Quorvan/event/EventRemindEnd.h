/// When a repetition ends: a switch for never, and a date.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

class EventRemindEnd : public objc::Defines<EventRemindEnd, UIViewController> {
public:
    static constexpr auto objc_name = "EventRemindEnd";
    static void define(objc::ClassTable<EventRemindEnd>& c);
    ~EventRemindEnd();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    UIView reminderList();
    void pickerChanged(const objc::Object& sender);
    NSDate takeDate();
    void back(const objc::Object& sender);
    void didReceiveMemoryWarning();
};

} // namespace quorvan
