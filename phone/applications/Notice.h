/// A note in the middle of the screen that waits for OK.
#pragma once

#include "platform/uikit/UIActivity.h"

namespace phone {

/// Lies over what is there, darkened. OK ends its activity, not completed.
class Notice : public objc::Defines<Notice, UIViewController> {
public:
    static constexpr auto objc_name = "ServiceNotice";

    static void define(objc::ClassTable<Notice>& c);
    static UIViewController with(const NSString& title, const NSString& text, const UIActivity& activity);

private:
    void viewDidLoad();
    void viewDidLayoutSubviews();
    void preparePresentation();
    void animatePresentation();
    void animateDismissal();
    void confirm(const objc::Object& sender);

    NSString _heading;
    NSString _text;
    UIActivity _activity;
    UIView _box;
};

} // namespace phone
