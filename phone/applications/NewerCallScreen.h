/// The call screen of the newer phone application.
#pragma once

#include "phone/applications/CallView.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"

namespace phone {

class NewerCallScreen : public objc::Defines<NewerCallScreen, UIViewController> {
public:
    static constexpr auto objc_name = "PHCallViewController";
    static void define(objc::ClassTable<NewerCallScreen>& c);

private:
    void loadView();
    void viewDidLoad();
    bool shouldAutorotateTo(UIInterfaceOrientation orientation) const;
    void viewDidAppear(bool animated);
    objc::Int preferredStatusBarStyle() const;
};

} // namespace phone
