/// What a person presses: turns touches into events, and events into messages to targets.
#pragma once

#include "platform/uikit/UIControl.h"

#include <vector>

namespace phone {

/// UIControl. A touch that is down inside and lifted no further than 70 points away counts as lifted
/// inside. Touches end here: they do not go on along the responder chain.
class Control : public objc::Implements<Control, UIControl, UIView> {
public:
    static void define(objc::ClassTable<Control>& c);

    bool isTracking() const { return _tracking; }
    bool isTouchInside() const { return _touchInside; }
    /// Whether some target waits for one of these events.
    bool hasActions(UIControlEvents events) const;
    /// `event` is nil for what code, not a touch, has set off.
    void sendActions(UIControlEvents events, const UIEvent& event);

private:
    /// A message to a target, sent at any of the events.
    struct Action {
        objc::Unretained<objc::Object> target; // nil: along the responder chain
        SEL selector;
        objc::UInt events;
    };

    UIControlState state() const;
    bool isEnabled() { return _enabled; }
    void setEnabled(bool enabled);
    bool isSelected() { return _selected; }
    void setSelected(bool selected);
    bool isHighlighted() { return _highlighted; }
    void setHighlighted(bool highlighted);
    void setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment);
    void change(bool& field, bool value);

    void addTarget(const objc::Object& target, SEL action, UIControlEvents events);
    /// A nil target or action stands for all.
    void removeTarget(const objc::Object& target, SEL action, UIControlEvents events);
    void sendActionsForControlEvents(UIControlEvents events) { sendActions(events, nullptr); }
    void sendAction(SEL action, const objc::Object& target, const UIEvent& event);
    UIControlEvents allControlEvents() const;

    // For subclasses that follow the finger; the answer says whether to go on.
    bool beginTracking(const UITouch&, const UIEvent&) { return true; }
    bool continueTracking(const UITouch&, const UIEvent&) { return true; }
    void endTracking(const UITouch&, const UIEvent&) {}
    void cancelTracking(const UIEvent&) {}
    /// Something that the state shows has changed.
    void stateChanged();

    void touchesBegan(const NSSet& touches, const UIEvent& event);
    void touchesMoved(const NSSet& touches, const UIEvent& event);
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void touchesCancelled(const NSSet& touches, const UIEvent& event);
    bool isInside(const UITouch& touch) const;
    void endTouch();

    bool _enabled = true;
    bool _selected = false;
    bool _highlighted = false;
    bool _tracking = false;
    bool _touchInside = false;
    UIControlContentHorizontalAlignment _horizontal = UIControlContentHorizontalAlignment::Center;
    std::vector<Action> _actions;
};

} // namespace phone
