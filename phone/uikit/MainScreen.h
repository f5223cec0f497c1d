/// The device's one screen.
#pragma once

#include "phone/device/Settings.h"
#include "platform/uikit/UIScreen.h"

namespace phone {

/// UIScreen. Up to 7 the bounds are those of the device held upright, however it is held; from 8 on they turn.
class MainScreen : public objc::Implements<MainScreen, UIScreen, NSObject> {
public:
    static void define(objc::ClassTable<MainScreen>& c) {
        c.classMethod<"mainScreen", &MainScreen::mainScreen>()
            .def<"bounds", &MainScreen::bounds>()
            .def<"applicationFrame", &MainScreen::applicationFrame>()
            .def<"scale", &MainScreen::scale>();
    }

    static UIScreen mainScreen();
    CGRect bounds() const;
    /// What the status bar leaves free.
    CGRect applicationFrame() const;
    CGFloat scale() const { return settings().device.scale; }
};

} // namespace phone
