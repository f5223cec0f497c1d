#include "phone/applications/PhoneApplication.h"

#include "phone/applications/CallScreen.h"
#include "phone/applications/CallView.h"
#include "phone/applications/IdleScreen.h"
#include "phone/applications/ShareTargets.h"
#include "phone/device/Settings.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/Presentation.h"
#include "platform/uikit/UIApplication.h"

namespace phone {

namespace {

/// How long the end of a call stands on the screen, in seconds.
constexpr double farewell = 1.5;

bool isNewer() { return settings().application.name == "newer"; }

UIViewController makeCallScreen() {
    return isNewer() ? objc::as<UIViewController>(objc::Ref<NewerCallScreen>::make())
                     : objc::as<UIViewController>(objc::Ref<OlderCallScreen>::make());
}

/// The application's window, its idle screen, and the call screen as long as there is a call.
class PhoneApplication {
public:
    void start() {
        _idle = objc::as<UIViewController>(objc::Ref<IdleScreen>::make());
        _window = UIWindow::withFrame(Interface::screen());
        _window.setBackgroundColor(UIColor::black());
        _window.setRootViewController(_idle);
        _window.makeKeyAndVisible();
        CallService::shared().setObserver([this] { callChanged(); });
        presentation::setObserver([this] { leaveSoon(); });
    }

private:
    void callChanged() {
        const CallService::Phase phase = CallService::shared().phase();
        if (phase == CallService::Phase::Ringing && !_callScreen) {
            _callScreen = makeCallScreen();
            _window.setRootViewController(_callScreen);
        }
        if (_callScreen) {
            CallView::of(_callScreen.view())->update();
        }
        if (phase == CallService::Phase::Ended) {
            leaveSoon();
        }
    }

    /// What lies over the call screen may be text that somebody still writes: it ends by itself.
    bool isCovered() const { return presentation::isUnderWay() || _callScreen.presentedViewController(); }

    void leaveSoon() {
        if (CallService::shared().phase() != CallService::Phase::Ended || isCovered()) {
            return;
        }
        RunLoop::main().cancel(_leaving);
        _leaving = RunLoop::main().after(farewell, [this] { leave(); });
    }

    void leave() {
        if (CallService::shared().phase() != CallService::Phase::Ended || isCovered()) {
            return;
        }
        _window.setRootViewController(_idle);
        _callScreen = nullptr;
        CallService::shared().clear();
    }

    UIWindow _window;
    UIViewController _idle;
    UIViewController _callScreen; // nil while there is no call
    RunLoop::TimerId _leaving = 0;
};

} // namespace

void registerApplicationClasses() {
    CallButton::definedClass();
    Keypad::definedClass();
    CallView::definedClass();
    IdleScreen::definedClass();
    // One process is one application: the other's class does not exist in it.
    if (isNewer()) {
        NewerCallScreen::definedClass();
    } else {
        OlderCallScreen::definedClass();
    }
    registerShareTargets();
}

void startApplication() {
    static auto* application = new PhoneApplication; // lives as long as its process
    application->start();
}

} // namespace phone
