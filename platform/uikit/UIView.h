/// UIView, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSString.h"
#include "platform/uikit/CALayer.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIResponder.h"

class UIWindow;
class UIGestureRecognizer;
class UIEvent;

/// `UIViewAnimationCurve`
enum class UIViewAnimationCurve : objc::Int { EaseInOut = 0, EaseIn = 1, EaseOut = 2, Linear = 3 };

/// `UIViewAnimationOptions`, a set of bits.
enum UIViewAnimationOptions : objc::UInt {
    UIViewAnimationOptionLayoutSubviews = 1,
    UIViewAnimationOptionAllowUserInteraction = 2,
    UIViewAnimationOptionBeginFromCurrentState = 4,
    UIViewAnimationOptionCurveEaseInOut = 0 << 16,
    UIViewAnimationOptionCurveEaseIn = 1 << 16,
    UIViewAnimationOptionCurveEaseOut = 2 << 16,
    UIViewAnimationOptionCurveLinear = 3 << 16,
};

/// `UIViewAutoresizing`, a set of bits.
enum UIViewAutoresizing : objc::UInt {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleRightMargin = 4,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
    UIViewAutoresizingFlexibleBottomMargin = 32,
};

/// `UIViewContentMode`
enum class UIViewContentMode : objc::Int {
    ScaleToFill = 0,
    ScaleAspectFit = 1,
    ScaleAspectFill = 2,
    Redraw = 3,
    Center = 4,
    Top = 5,
    Bottom = 6,
    Left = 7,
    Right = 8,
    TopLeft = 9,
    TopRight = 10,
    BottomLeft = 11,
    BottomRight = 12,
};

/// `UIUserInterfaceStyle`
enum class UIUserInterfaceStyle : objc::Int { Unspecified = 0, Light = 1, Dark = 2 };

class UIView : public UIResponder {
public:
    static constexpr auto objc_name = "UIView";
    using UIResponder::UIResponder;
    static UIView withFrame(CGRect frame) { return objc::make<UIView, "initWithFrame:">(frame); }

    /// In the superview's points.
    CGRect frame() const { return send<"frame", CGRect>(); }
    void setFrame(CGRect frame) const { send<"setFrame:">(frame); }
    CGRect bounds() const { return send<"bounds", CGRect>(); }
    void setBounds(CGRect bounds) const { send<"setBounds:">(bounds); }
    CGPoint center() const { return send<"center", CGPoint>(); }
    void setCenter(CGPoint center) const { send<"setCenter:">(center); }
    /// A nil view means the window.
    CGPoint convertPointToView(CGPoint point, const UIView& view) const {
        return send<"convertPoint:toView:", CGPoint>(point, view);
    }
    CGPoint convertPointFromView(CGPoint point, const UIView& view) const {
        return send<"convertPoint:fromView:", CGPoint>(point, view);
    }
    CGRect convertRectToView(CGRect rect, const UIView& view) const {
        return send<"convertRect:toView:", CGRect>(rect, view);
    }
    CGSize sizeThatFits(CGSize size) const { return send<"sizeThatFits:", CGSize>(size); }
    void sizeToFit() const { send<"sizeToFit">(); }
    UIViewAutoresizing autoresizingMask() const { return send<"autoresizingMask", UIViewAutoresizing>(); }
    void setAutoresizingMask(UIViewAutoresizing mask) const { send<"setAutoresizingMask:">(mask); }

    UIView superview() const { return send<"superview", UIView>(); }
    /// Back to front.
    NSArray subviews() const { return send<"subviews", NSArray>(); }
    UIWindow window() const;
    bool isDescendantOfView(const UIView& view) const { return send<"isDescendantOfView:", bool>(view); }
    void addSubview(const UIView& view) const { send<"addSubview:">(view); }
    void insertSubview(const UIView& view, objc::Int index) const { send<"insertSubview:atIndex:">(view, index); }
    void bringSubviewToFront(const UIView& view) const { send<"bringSubviewToFront:">(view); }
    void sendSubviewToBack(const UIView& view) const { send<"sendSubviewToBack:">(view); }
    void removeFromSuperview() const { send<"removeFromSuperview">(); }

    CALayer layer() const { return send<"layer", CALayer>(); }
    UIColor backgroundColor() const { return send<"backgroundColor", UIColor>(); }
    void setBackgroundColor(const UIColor& color) const { send<"setBackgroundColor:">(color); }
    UIColor tintColor() const { return send<"tintColor", UIColor>(); }
    void setTintColor(const UIColor& color) const { send<"setTintColor:">(color); }
    /// For the view and what lies inside, whatever the person has chosen. Answered from 13 on.
    void setOverrideUserInterfaceStyle(UIUserInterfaceStyle style) const {
        send<"setOverrideUserInterfaceStyle:">(style);
    }
    CGFloat alpha() const { return send<"alpha", CGFloat>(); }
    void setAlpha(CGFloat alpha) const { send<"setAlpha:">(alpha); }
    bool isHidden() const { return send<"isHidden", bool>(); }
    void setHidden(bool hidden) const { send<"setHidden:">(hidden); }
    bool clipsToBounds() const { return send<"clipsToBounds", bool>(); }
    void setClipsToBounds(bool clips) const { send<"setClipsToBounds:">(clips); }
    UIViewContentMode contentMode() const { return send<"contentMode", UIViewContentMode>(); }
    void setContentMode(UIViewContentMode mode) const { send<"setContentMode:">(mode); }
    bool isUserInteractionEnabled() const { return send<"isUserInteractionEnabled", bool>(); }
    void setUserInteractionEnabled(bool enabled) const { send<"setUserInteractionEnabled:">(enabled); }
    objc::Int tag() const { return send<"tag", objc::Int>(); }
    void setTag(objc::Int tag) const { send<"setTag:">(tag); }
    /// "" and nil mean none.
    NSString accessibilityIdentifier() const { return send<"accessibilityIdentifier", NSString>(); }
    void setAccessibilityIdentifier(const NSString& name) const { send<"setAccessibilityIdentifier:">(name); }
    NSString accessibilityLabel() const { return send<"accessibilityLabel", NSString>(); }
    void setAccessibilityLabel(const NSString& label) const { send<"setAccessibilityLabel:">(label); }

    void addGestureRecognizer(const UIGestureRecognizer& recognizer) const;
    NSArray gestureRecognizers() const { return send<"gestureRecognizers", NSArray>(); }
    /// The frontmost view that takes a touch at the point; nil when none does.
    UIView hitTest(CGPoint point, const UIEvent& event) const;
    bool endEditing(bool force) const { return send<"endEditing:", bool>(force); }
    void setNeedsDisplay() const { send<"setNeedsDisplay">(); }
    void setNeedsLayout() const { send<"setNeedsLayout">(); }
    void layoutIfNeeded() const { send<"layoutIfNeeded">(); }

    /// Animates what the first block changes. Seconds; the completion gets whether the animation ran to its end.
    static void animate(double duration, double delay, objc::UInt options, void (^animations)(),
                        void (^completion)(bool finished)) {
        objc::sendClass<UIView, "animateWithDuration:delay:options:animations:completion:">(duration, delay, options,
                                                                                            animations, completion);
    }
    /// The older kind: what is set until `commitAnimations` is animated. A nil name is allowed.
    static void beginAnimations(const NSString& name) {
        objc::sendClass<UIView, "beginAnimations:context:">(name, static_cast<void*>(nullptr));
    }
    static void setAnimationDuration(double seconds) { objc::sendClass<UIView, "setAnimationDuration:">(seconds); }
    static void setAnimationCurve(UIViewAnimationCurve curve) { objc::sendClass<UIView, "setAnimationCurve:">(curve); }
    static void commitAnimations() { objc::sendClass<UIView, "commitAnimations">(); }
};
