/// UIApplication, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIWindow.h"

/// `UIInterfaceOrientation`
enum class UIInterfaceOrientation : objc::Int {
    Portrait = 1,
    PortraitUpsideDown = 2,
    LandscapeRight = 3,
    LandscapeLeft = 4,
};

class UIApplication : public UIResponder {
public:
    static constexpr auto objc_name = "UIApplication";
    using UIResponder::UIResponder;
    static UIApplication shared() { return objc::sendClass<UIApplication, "sharedApplication", UIApplication>(); }

    NSArray windows() const { return send<"windows", NSArray>(); }
    UIWindow keyWindow() const { return send<"keyWindow", UIWindow>(); }
    UIInterfaceOrientation statusBarOrientation() const {
        return send<"statusBarOrientation", UIInterfaceOrientation>();
    }
    CGRect statusBarFrame() const { return send<"statusBarFrame", CGRect>(); }
    /// Between begin and end no touch is delivered. Calls nest.
    void beginIgnoringInteractionEvents() const { send<"beginIgnoringInteractionEvents">(); }
    void endIgnoringInteractionEvents() const { send<"endIgnoringInteractionEvents">(); }
    bool isIgnoringInteractionEvents() const { return send<"isIgnoringInteractionEvents", bool>(); }
    /// Hands the event to the window of its touches.
    void sendEvent(const UIEvent& event) const { send<"sendEvent:">(event); }
    bool sendAction(SEL action, const objc::Object& target, const objc::Object& sender,
                    const objc::Object& event) const {
        return send<"sendAction:to:from:forEvent:", bool>(action, target, sender, event);
    }
};
