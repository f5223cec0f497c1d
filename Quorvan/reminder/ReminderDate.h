/// When to be reminded: a switch and a date.
#pragma once

#include "platform/uikit/UIViewController.h"

namespace quorvan {

class ReminderDate : public objc::Defines<ReminderDate, UIViewController> {
public:
    static constexpr auto objc_name = "ReminderDate";
    static void define(objc::ClassTable<ReminderDate>& c);
    ~ReminderDate();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    UIView reminderList();
    void pickerChanged(const objc::Object& sender);
    void back(const objc::Object& sender);
};

} // namespace quorvan
