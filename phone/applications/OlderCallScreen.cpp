#include "phone/applications/OlderCallScreen.h"

#include "phone/uikit/Interface.h"
#include "phone/uikit/StatusBarStyle.h"
#include "platform/uikit/UIScreen.h"

namespace phone {

void OlderCallScreen::define(objc::ClassTable<OlderCallScreen>& c) {
    c.overrides<"loadView", &OlderCallScreen::loadView>()
        .overrides<"viewDidLoad", &OlderCallScreen::viewDidLoad>()
        .overrides<"shouldAutorotateToInterfaceOrientation:", &OlderCallScreen::shouldAutorotateTo>()
        .overrides<"viewDidAppear:", &OlderCallScreen::viewDidAppear>()
        .overrides<"preferredStatusBarStyle", &OlderCallScreen::preferredStatusBarStyle>();
}

void OlderCallScreen::loadView() {
    setView(objc::as<UIView>(CallView::with(UIScreen::main().bounds(), CallView::Look::Older)));
}

void OlderCallScreen::viewDidLoad() {
    super<"viewDidLoad">();
    CallView::of(view())->update();
}

/// The call has gone on while the screen was covered.
void OlderCallScreen::viewDidAppear(bool animated) {
    super<"viewDidAppear:">(animated);
    CallView::of(view())->update();
}

objc::Int OlderCallScreen::preferredStatusBarStyle() const { return static_cast<objc::Int>(StatusBarStyle::Light); }

bool OlderCallScreen::shouldAutorotateTo(UIInterfaceOrientation orientation) const {
    return Interface::deviceAllows(orientation);
}

} // namespace phone
