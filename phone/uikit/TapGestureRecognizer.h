/// Recognises one or several taps in the same place.
#pragma once

#include "phone/uikit/GestureRecognizer.h"

namespace phone {

/// UITapGestureRecognizer.
class TapGestureRecognizer
    : public objc::Implements<TapGestureRecognizer, UITapGestureRecognizer, UIGestureRecognizer> {
public:
    static void define(objc::ClassTable<TapGestureRecognizer>& c) {
        c.get<"numberOfTapsRequired", &TapGestureRecognizer::_tapsRequired>()
            .set<"setNumberOfTapsRequired:", &TapGestureRecognizer::_tapsRequired>()
            .overrides<"touchesBegan:withEvent:", &TapGestureRecognizer::touchesBegan>()
            .overrides<"touchesMoved:withEvent:", &TapGestureRecognizer::touchesMoved>()
            .overrides<"touchesEnded:withEvent:", &TapGestureRecognizer::touchesEnded>();
    }

private:
    void touchesBegan(const NSSet& touches, const UIEvent& event);
    void touchesMoved(const NSSet& touches, const UIEvent& event);
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    bool belongsToControl(const UITouch& touch) const;

    objc::UInt _tapsRequired = 1;
    objc::UInt _taps = 0; // so far, of the row of taps under way
    double _lastTap = 0;  // when the finger went up, on the animation clock
    double _began = 0;
    CGPoint _start; // in the window's points
};

} // namespace phone
