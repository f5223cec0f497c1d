#include "phone/uikit/MainScreen.h"

#include "phone/uikit/StatusBar.h"

namespace phone {

UIScreen MainScreen::mainScreen() {
    static constinit objc::Global<UIScreen> screen;
    if (!screen) {
        screen = objc::make<UIScreen>();
    }
    return screen;
}

CGRect MainScreen::applicationFrame() const {
    const CGRect all = bounds();
    return {0, statusBarHeight, all.size.width, all.size.height - statusBarHeight};
}

} // namespace phone
