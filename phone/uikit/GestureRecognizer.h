/// Watches the touches in a view and below it, and says when they make up a gesture.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"

#include <vector>

namespace phone {

/// UIGestureRecognizer. A subclass overrides `touchesBegan:withEvent:` and its kin, which come here
/// whether or not the view gets them too, and sets its state with `setState:`:
///   Failed           it takes no further part until the finger is up;
///   Began, Changed   a gesture that lasts, Ended or Cancelled when it is over;
///   Ended            also at once from Possible, for a gesture of one moment such as a tap.
/// The first recogniser to leave Possible for Began or Ended wins the touch: the others fail, the view's
/// touches are cancelled (where `cancelsTouchesInView`), its targets get their actions. `reset` comes
/// when the finger is up and the state is Possible again.
class GestureRecognizer : public objc::Implements<GestureRecognizer, UIGestureRecognizer, NSObject> {
public:
    static void define(objc::ClassTable<GestureRecognizer>& c) {
        c.init<"init", &GestureRecognizer::init>()
            .init<"initWithTarget:action:", &GestureRecognizer::initWithTarget>()
            .get<"view", &GestureRecognizer::_view>()
            .def<"addTarget:action:", &GestureRecognizer::addTarget>()
            .def<"removeTarget:action:", &GestureRecognizer::removeTarget>()
            .def<"isEnabled", &GestureRecognizer::isEnabled>()
            .def<"setEnabled:", &GestureRecognizer::setEnabled>()
            .get<"cancelsTouchesInView", &GestureRecognizer::_cancelsTouchesInView>()
            .set<"setCancelsTouchesInView:", &GestureRecognizer::_cancelsTouchesInView>()
            .def<"state", &GestureRecognizer::state>()
            .def<"setState:", &GestureRecognizer::setState>()
            .def<"locationInView:", &GestureRecognizer::locationInView>()
            .def<"numberOfTouches", &GestureRecognizer::numberOfTouches>()
            .def<"reset", &GestureRecognizer::reset>()
            .def<"touchesBegan:withEvent:", &GestureRecognizer::ignoreTouches>()
            .def<"touchesMoved:withEvent:", &GestureRecognizer::ignoreTouches>()
            .def<"touchesEnded:withEvent:", &GestureRecognizer::ignoreTouches>()
            .def<"touchesCancelled:withEvent:", &GestureRecognizer::ignoreTouches>();
    }

    void init() { objc::detail::call<id>(raw(), objc::selector<"initWithTarget:action:">(), id(), SEL()); }
    void initWithTarget(const objc::Object& target, SEL action);

    UIView view() const { return _view.get(); }
    /// The view retains its recognisers, not they it.
    void setView(const UIView& view) { _view = view; }
    bool isEnabled() const { return _enabled; }
    /// Switching off cancels a gesture under way.
    void setEnabled(bool enabled);
    bool cancelsTouchesInView() const { return _cancelsTouchesInView; }
    UIGestureRecognizerState state() const { return _state; }
    void setState(UIGestureRecognizerState state);
    /// Where the finger is or was last; nil means the window's points.
    CGPoint locationInView(const UIView& view) const;
    objc::UInt numberOfTouches() const;

    void addTarget(const objc::Object& target, SEL action);
    /// A nil target or a null action stands for all.
    void removeTarget(const objc::Object& target, SEL action);

    /// Watches this touch from now on.
    void follow(const UITouch& touch) { _touch = touch; }
    /// Another recogniser has won.
    void fail();
    /// The finger is up: ready for the next one.
    void finish();
    bool isActive() const {
        return _state == UIGestureRecognizerState::Began || _state == UIGestureRecognizerState::Changed;
    }

private:
    struct Target {
        objc::Unretained<objc::Object> object;
        SEL action;
    };

    void sendActions();
    void reset() {}
    void ignoreTouches(const NSSet&, const UIEvent&) {}

    UIGestureRecognizerState _state = UIGestureRecognizerState::Possible;
    bool _enabled = true;
    bool _cancelsTouchesInView = true;
    objc::Unretained<UIView> _view;
    UITouch _touch; // nil while no finger is followed
    std::vector<Target> _targets;
};

} // namespace phone
