/// What the phone application shows while there is no call.
#pragma once

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIViewController.h"

namespace phone {

class IdleScreen : public objc::Defines<IdleScreen, UIViewController> {
public:
    static constexpr auto objc_name = "PhoneIdleController";
    static void define(objc::ClassTable<IdleScreen>& c);

private:
    void viewDidLoad();
    void viewWillLayoutSubviews();

    UILabel _title;
    UILabel _note;
};

} // namespace phone
