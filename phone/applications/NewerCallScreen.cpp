#include "phone/applications/NewerCallScreen.h"

#include "phone/uikit/Interface.h"
#include "phone/uikit/StatusBarStyle.h"
#include "platform/uikit/UIScreen.h"

namespace phone {

void NewerCallScreen::define(objc::ClassTable<NewerCallScreen>& c) {
    c.overrides<"loadView", &NewerCallScreen::loadView>()
        .overrides<"viewDidLoad", &NewerCallScreen::viewDidLoad>()
        .overrides<"shouldAutorotateToInterfaceOrientation:", &NewerCallScreen::shouldAutorotateTo>()
        .overrides<"viewDidAppear:", &NewerCallScreen::viewDidAppear>()
        .overrides<"preferredStatusBarStyle", &NewerCallScreen::preferredStatusBarStyle>();
}

void NewerCallScreen::loadView() {
    setView(objc::as<UIView>(CallView::with(UIScreen::main().bounds(), CallView::Look::Newer)));
}

void NewerCallScreen::viewDidLoad() {
    super<"viewDidLoad">();
    CallView::of(view())->update();
}

/// The call has gone on while the screen was covered.
void NewerCallScreen::viewDidAppear(bool animated) {
    super<"viewDidAppear:">(animated);
    CallView::of(view())->update();
}

objc::Int NewerCallScreen::preferredStatusBarStyle() const { return static_cast<objc::Int>(StatusBarStyle::Light); }

bool NewerCallScreen::shouldAutorotateTo(UIInterfaceOrientation orientation) const {
    return Interface::deviceAllows(orientation);
}

} // namespace phone
