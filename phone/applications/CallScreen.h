/// The call screens of the two phone applications. They differ in their classes' names and their looks: to a
/// library that hooks them that is everything.
#pragma once

#include "phone/applications/CallView.h"
#include "phone/uikit/StatusBarStyle.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewController.h"

namespace phone {

/// T names its `look`.
template <class T>
class CallScreen : public objc::Defines<T, UIViewController> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template overrides<"loadView", &T::loadView>()
            .template overrides<"viewDidLoad", &T::viewDidLoad>()
            .template overrides<"viewDidAppear:", &T::viewDidAppear>()
            .template overrides<"preferredStatusBarStyle", &T::preferredStatusBarStyle>();
    }

    void loadView() { this->setView(objc::as<UIView>(CallView::with(UIScreen::main().bounds(), T::look))); }

    void viewDidLoad() {
        this->template super<"viewDidLoad">();
        update();
    }

    /// The call has gone on while the screen was covered.
    void viewDidAppear(bool animated) {
        this->template super<"viewDidAppear:">(animated);
        update();
    }

    objc::Int preferredStatusBarStyle() const { return static_cast<objc::Int>(StatusBarStyle::Light); }

private:
    void update() const { CallView::of(this->view())->update(); }
};

class NewerCallScreen : public CallScreen<NewerCallScreen> {
public:
    static constexpr auto objc_name = "PHCallViewController";
    static constexpr auto look = CallView::Look::Newer;
};

class OlderCallScreen : public CallScreen<OlderCallScreen> {
public:
    static constexpr auto objc_name = "InCallController";
    static constexpr auto look = CallView::Look::Older;
};

} // namespace phone
