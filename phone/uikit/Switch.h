/// A switch with two positions.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UISwitch.h"

namespace phone {

/// UISwitch. A touch turns it, and so does dragging the thumb across; both send ValueChanged when the
/// finger leaves, code never does.
class Switch : public objc::Implements<Switch, UISwitch, UIControl> {
public:
    /// In points; a frame that says otherwise moves the switch only.
    static constexpr CGSize size{51, 31};

    static void define(objc::ClassTable<Switch>& c);

private:
    void initWithFrame(CGRect frame);
    void setFrame(CGRect frame);
    void setBounds(CGRect bounds);
    CGSize sizeThatFits(CGSize) { return size; }

    void setOn(bool on);
    void setOnAnimated(bool on, bool animated);

    bool beginTracking(const UITouch& touch, const UIEvent& event);
    bool continueTracking(const UITouch& touch, const UIEvent& event);
    void endTracking(const UITouch& touch, const UIEvent& event);
    void cancelTracking(const UIEvent& event);
    void stateChanged();

    /// Brings the thumb and the colours where `_shownOn` and `_held` want them.
    void show(bool animated);
    void place();

    bool _on = false;
    bool _shownOn = false; // where the thumb is; differs from `_on` only under a finger
    bool _held = false;    // a finger is on it: the thumb is wider
    bool _dragged = false; // that finger has moved the thumb
    CGFloat _fingerAtStart = 0;
    UIView _inside; // holds the four below, back to front
    UIView _track;  // the colour of the on position
    UIView _well;   // the white of the off position
    UIView _shadow; // of the thumb
    UIView _thumb;
};

} // namespace phone
