/// What is delivered while the finger is on the screen: its one touch.
#pragma once

#include "platform/uikit/UIEvent.h"

namespace phone {

/// UIEvent of touches; there is one finger.
class Event : public objc::Implements<Event, UIEvent, NSObject> {
public:
    static void define(objc::ClassTable<Event>& c) {
        c.def<"allTouches", &Event::allTouches>().def<"type", &Event::type>().get<"timestamp", &Event::_timestamp>();
    }

    void setTouch(const UITouch& touch) { _touch = touch; }
    void setTimestamp(double seconds) { _timestamp = seconds; }
    UITouch touch() const { return _touch; }
    NSSet allTouches() const { return _touch ? NSSet::of(_touch) : NSSet(); }
    /// `UIEventTypeTouches`
    objc::Int type() const { return 0; }

private:
    UITouch _touch;
    double _timestamp = 0; // of the animation clock
};

} // namespace phone
