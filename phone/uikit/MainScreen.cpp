#include "phone/uikit/MainScreen.h"

#include "phone/uikit/Interface.h"
#include "phone/uikit/StatusBar.h"

namespace phone {

UIScreen MainScreen::mainScreen() {
    static constinit objc::Global<UIScreen> screen;
    if (!screen) {
        screen = objc::make<UIScreen>();
    }
    return screen;
}

CGRect MainScreen::bounds() const { return Interface::shared().told({{}, Interface::shared().size()}); }

CGRect MainScreen::applicationFrame() const {
    const Interface& interface = Interface::shared();
    const CGSize read = interface.size();
    return interface.told({0, statusBarHeight, read.width, read.height - statusBarHeight});
}

} // namespace phone
