/// One rectangle on the screen: its place, its children, how it looks, and whether it takes touches.
#pragma once

#include "phone/uikit/KeptDrawing.h"
#include "phone/uikit/Placement.h"
#include "phone/uikit/Responder.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIWindow.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace phone {

/// How a view looks at this moment of the animation clock; the view's own values are an animation's ends.
struct Presentation {
    CGPoint center;
    CGRect bounds;
    CGFloat alpha = 1;
    UIColor background;  // nil when there is none
    double quarters = 0; // by which it is turned, clockwise
};

/// UIView. Frame, bounds and centre are kept as they are given, fractions included; what is no number raises
/// CALayerInvalidGeometry. The only transforms are whole quarters of a turn, for who fills a window with a view.
class View : public objc::Implements<View, UIView, UIResponder> {
public:
    static void define(objc::ClassTable<View>& c);
    ~View();

    void init();
    void initWithFrame(CGRect frame);

    // Geometry.
    CGRect frame() const;
    void setFrame(CGRect frame);
    CGRect bounds() const { return _bounds; }
    void setBounds(CGRect bounds);
    CGPoint center() const { return _center; }
    void setCenter(CGPoint center);
    /// The view is turned around its centre by this many quarters, clockwise; an animation goes the short way.
    void setQuarters(int quarters);
    int quarters() const { return _quarters; }
    /// Of its points in the superview's.
    Placement placement() const;
    CGPoint convertPointToView(CGPoint point, const UIView& view) const;
    CGPoint convertPointFromView(CGPoint point, const UIView& view) const;
    CGRect convertRectToView(CGRect rect, const UIView& view) const;
    CGRect convertRectFromView(CGRect rect, const UIView& view) const;
    CGSize sizeThatFits(CGSize) { return _bounds.size; }
    void sizeToFit();

    // The tree.
    UIView superview() const { return _superview.get(); }
    NSArray subviews() const;
    /// Back to front; a copy is needed where the loop may change the tree.
    const std::vector<UIView>& children() const { return _subviews; }
    UIWindow window() const;
    bool isDescendantOfView(const UIView& view) const;
    UIView viewWithTag(objc::Int tag) const;
    void addSubview(const UIView& view);
    void insertSubview(const UIView& view, objc::Int index);
    void insertSubviewBelow(const UIView& view, const UIView& sibling);
    void insertSubviewAbove(const UIView& view, const UIView& sibling);
    void bringSubviewToFront(const UIView& view);
    void sendSubviewToBack(const UIView& view);
    void removeFromSuperview();

    // Look.
    CALayer layer() const { return _layer; }
    UIColor backgroundColor() const { return _background; }
    void setBackgroundColor(const UIColor& color);
    UIColor tintColor() const;
    void setTintColor(const UIColor& color);
    CGFloat alpha() const { return _alpha; }
    void setAlpha(CGFloat alpha);
    bool isHidden() const { return _hidden; }
    bool clipsToBounds() const;
    void setClipsToBounds(bool clips);
    Presentation presentation() const;

    // Drawing.
    void setNeedsDisplay();
    /// Has this view and everything in it that is not hidden draw, where that is due.
    void displayTree();

    // Touches.
    UIView hitTest(CGPoint point, const UIEvent& event);
    bool pointInside(CGPoint point, const UIEvent& event) const;
    void addGestureRecognizer(const UIGestureRecognizer& recognizer);
    void removeGestureRecognizer(const UIGestureRecognizer& recognizer);
    NSArray gestureRecognizers() const;
    bool endEditing(bool force);

    // Layout.
    void setNeedsLayout() { _needsLayout = true; }
    void layoutIfNeeded();
    /// Lays out this view, where it asks for it, and everything in it.
    void layoutTree();

    /// The controller whose root view this is: the next responder, told of layout and of the window.
    /// Not retained.
    void setController(const UIViewController& controller) { _controller = controller; }
    UIViewController controller() const { return _controller.get(); }

    UIResponder nextResponder() const;

    /// A number that no other view of this process has or will have.
    std::uint64_t identity() const { return _identity; }

private:
    friend class Window;

    void initGeometry(CGRect frame);
    CGSize across(CGSize size) const;
    void noticeResize(CGSize before);
    void autoresize(CGSize before, CGSize now);
    /// Onto the current painter, with the bounds as they look now.
    void drawContent(CGRect bounds);
    void place(const UIView& view, std::size_t index);
    void detach();
    void willMoveToWindow(const UIWindow& window);
    void didMoveToWindow();
    static void tellWillMove(const UIView& view, const UIWindow& window);
    static void tellDidMove(const UIView& view);
    void tintChanged();
    void takeFirstResponderAway();
    static std::uint64_t nextIdentity();
    /// For the messages that exist to be overridden.
    void ignore() {}
    void ignoreView(const UIView&) {}
    void ignoreRect(CGRect) {}

    const std::uint64_t _identity = nextIdentity();
    CGPoint _center;
    CGRect _bounds;
    int _quarters = 0;
    objc::Unretained<UIView> _superview;
    std::vector<UIView> _subviews;
    CALayer _layer;
    UIColor _background; // nil when there is none
    UIColor _tint;       // nil: the superview's
    float _alpha = 1;    // the platform's width, which decides what counts as invisible
    bool _hidden = false;
    bool _opaque = true;
    bool _interactive = true;
    bool _autoresizesSubviews = true;
    bool _needsLayout = true;
    objc::Int _tag = 0;
    UIViewContentMode _contentMode = UIViewContentMode::ScaleToFill;
    std::unique_ptr<KeptDrawing> _drawing; // null where the class has no drawRect: of its own
    UIViewAutoresizing _autoresizingMask = UIViewAutoresizingNone;
    NSString _accessibilityIdentifier;
    NSString _accessibilityLabel;
    std::vector<UIGestureRecognizer> _recognizers;
    objc::Unretained<UIViewController> _controller;
};

} // namespace phone
