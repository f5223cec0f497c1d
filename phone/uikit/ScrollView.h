/// A window onto content larger than itself, moved by dragging.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIScrollView.h"

namespace phone {

/// UIScrollView. The offset is the origin of the bounds. Content follows the finger and stays where the
/// finger leaves it: there is no fling and no bounce.
class ScrollView : public objc::Implements<ScrollView, UIScrollView, UIView> {
public:
    static void define(objc::ClassTable<ScrollView>& c);

    bool isDragging() const { return _dragging; }

    // The finger, as the scroll view's recogniser reports it, turned as the scroll view is.
    void beginDragging(CGPoint finger);
    void drag(CGPoint finger);
    void endDragging();
    /// Whether the content is larger than the view in the direction.
    bool canDrag(bool vertically) const;

private:
    void initWithFrame(CGRect frame);
    CGPoint contentOffset();
    void setContentOffset(CGPoint offset);
    void setContentOffsetAnimated(CGPoint offset, bool animated);
    CGSize contentSize() { return _contentSize; }
    void setContentSize(CGSize size);
    UIEdgeInsets contentInset() { return _inset; }
    void setContentInset(const UIEdgeInsets& inset);
    void setScrollEnabled(bool enabled);
    objc::Object delegate() { return _delegate.get(); }
    void setDelegate(const objc::Object& delegate) { _delegate = delegate; }
    void setBounds(CGRect bounds);

    CGPoint clamped(CGPoint offset) const;
    /// Brings the offset back to the content after either has shrunk.
    void keepInside();

    CGSize _contentSize;
    UIEdgeInsets _inset;
    bool _scrollEnabled = true;
    bool _dragging = false;
    CGPoint _fingerAtStart;
    CGPoint _offsetAtStart;
    UIGestureRecognizer _drag;
    objc::Unretained<objc::Object> _delegate; // UIKit does not retain a delegate
};

} // namespace phone
