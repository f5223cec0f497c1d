#include "phone/uikit/Touch.h"

namespace phone {

void Touch::begin(const UIWindow& window, const UIView& view, CGPoint point, objc::UInt taps, double now) {
    _window = window;
    _view = view;
    _location = point;
    _previous = point;
    _tapCount = taps;
    _timestamp = now;
}

void Touch::move(CGPoint point, double now) {
    _previous = _location;
    _location = point;
    _timestamp = now;
}

CGPoint Touch::locationInView(const UIView& view) const {
    return view ? view.convertPointFromView(_location, _window) : _location;
}

CGPoint Touch::previousLocationInView(const UIView& view) const {
    return view ? view.convertPointFromView(_previous, _window) : _previous;
}

} // namespace phone
