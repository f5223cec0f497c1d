/// The way of a touch: from a point of the screen to the window, the view and the recognisers it is for.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIWindow.h"

#include <vector>

namespace phone {

class GestureRecognizer;

/// One per process; there is one finger. Every touch of the phone goes through here.
class TouchDelivery {
public:
    /// Taps further apart (seconds) or farther away (points) do not count as one row of taps.
    static constexpr double longestPauseBetweenTaps = 0.35;
    static constexpr double farthestTap = 45;

    static TouchDelivery& shared();

    /// The finger, in points of the screen held upright. A finger that goes down while the application
    /// takes no events, or where nothing takes touches, is not seen until it goes down again.
    void began(CGPoint point);
    void moved(CGPoint point);
    void ended();
    /// Something took the touch away: whoever follows it is told that it is cancelled.
    void cancel();

    /// Hands the event to the recognisers and the view, as `UIWindow` does in `sendEvent:`.
    void deliver(const UIEvent& event);

    /// Asked by a recogniser that is about to recognise: whether it wins the touch. If so the others
    /// fail and the view's touches are cancelled.
    bool claim(GestureRecognizer& recognizer);

    /// The topmost window that takes a touch at a point of the screen; nil when none does.
    static UIWindow windowAt(CGPoint point);
    /// The view in it that a touch there reaches; nil where none does.
    static UIView viewAt(CGPoint point);

private:
    void send();
    void gatherRecognizers(UIView from);
    template <objc::FixedString Message>
    void sendToRecognizers(const NSSet& touches, const UIEvent& event);
    void cancelInView();
    void finish();

    UITouch _touch; // nil while no finger is seen
    UIEvent _event;
    std::vector<UIGestureRecognizer> _recognizers; // the innermost view's first
    UIGestureRecognizer _winner;
    bool _viewFollows = false; // whether the view still gets the touch
    bool _ending = false;

    objc::UInt _taps = 0;
    double _lastTap = 0;
    CGPoint _lastTapAt;
};

} // namespace phone
