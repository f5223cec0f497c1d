/// The call screen of the older phone application.
#pragma once

#include "phone/applications/CallView.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIViewController.h"

namespace phone {

class OlderCallScreen : public objc::Defines<OlderCallScreen, UIViewController> {
public:
    static constexpr auto objc_name = "InCallController";
    static void define(objc::ClassTable<OlderCallScreen>& c);

private:
    void loadView();
    void viewDidLoad();
    bool shouldAutorotateTo(UIInterfaceOrientation orientation) const;
    void viewDidAppear(bool animated);
    objc::Int preferredStatusBarStyle() const;
};

} // namespace phone
