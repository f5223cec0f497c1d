/// The running application: its windows, its events, and who answers an action meant for nobody in particular.
#pragma once

#include "phone/uikit/Responder.h"
#include "platform/uikit/UIApplication.h"

namespace phone {

/// What `warnOfMemory` posts.
inline constexpr const char* memoryWarning = "UIApplicationDidReceiveMemoryWarningNotification";

/// UIApplication, the end of every responder chain.
class Application : public objc::Implements<Application, UIApplication, UIResponder> {
public:
    static void define(objc::ClassTable<Application>& c) {
        c.classMethod<"sharedApplication", &Application::sharedApplication>()
            .def<"windows", &Application::windows>()
            .def<"keyWindow", &Application::keyWindow>()
            .def<"statusBarOrientation", &Application::statusBarOrientation>()
            .def<"statusBarFrame", &Application::statusBarFrame>()
            .def<"beginIgnoringInteractionEvents", &Application::beginIgnoring>()
            .def<"endIgnoringInteractionEvents", &Application::endIgnoring>()
            .def<"isIgnoringInteractionEvents", &Application::isIgnoring>()
            .def<"delegate", &Application::delegate>()
            .def<"setDelegate:", &Application::setDelegate>()
            .def<"sendEvent:", &Application::sendEvent>()
            .def<"sendAction:to:from:forEvent:", &Application::sendAction>();
    }

    static UIApplication sharedApplication();
    NSArray windows() const;
    UIWindow keyWindow() const;
    UIInterfaceOrientation statusBarOrientation() const;
    /// In the coordinates of the screen held upright.
    CGRect statusBarFrame() const;
    /// A touch under way is cancelled.
    void beginIgnoring();
    void endIgnoring();
    bool isIgnoring() const { return _ignoring > 0; }
    objc::Object delegate() const { return _delegate.get(); }
    void setDelegate(const objc::Object& delegate) { _delegate = delegate; }
    void sendEvent(const UIEvent& event);
    /// A nil target: the first that responds in the chain from the first responder, else from the sender.
    /// Whether somebody got the action.
    bool sendAction(SEL action, const objc::Object& target, const objc::Object& sender, const UIEvent& event);

    /// Ends each cycle of the main loop: lays out and draws what asked for it.
    /// The system is short of memory: the delegate is told, then whoever observes it, every controller among them.
    void warnOfMemory() const;

    /// Ends each cycle of the main loop: lays out what asked for it.
    static void layoutWindows();

private:
    int _ignoring = 0;
    objc::Unretained<objc::Object> _delegate; // UIKit does not retain a delegate
};

} // namespace phone
