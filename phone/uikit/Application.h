/// The running application: its windows, its events, and who answers an action meant for nobody in particular.
#pragma once

#include "phone/uikit/Responder.h"
#include "platform/uikit/UIApplication.h"

namespace phone {

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
    void sendEvent(const UIEvent& event);
    /// A nil target: the first that responds in the chain from the first responder, else from the sender.
    /// Whether somebody got the action.
    bool sendAction(SEL action, const objc::Object& target, const objc::Object& sender, const UIEvent& event);

    /// Ends each cycle of the main loop: lays out and draws what asked for it.
    static void layoutWindows();

private:
    int _ignoring = 0;
};

} // namespace phone
