/// One screen and its view: when the view is made, when it comes and goes, and what is shown on top of it.
#pragma once

#include "phone/uikit/Responder.h"
#include "platform/foundation/NSNotification.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIPopoverPresentationController.h"
#include "platform/uikit/UIViewController.h"

#include <vector>

namespace phone {

/// UIViewController. Who puts a controller's view on the screen brackets that with the platform's
/// `beginAppearanceTransition:animated:` and `endAppearanceTransition`; a view that simply enters or
/// leaves a window is bracketed here. Both send the four callbacks, by messages, to the controller and
/// to the children that it shows; each is sent once a transition and logged.
class ViewController : public objc::Implements<ViewController, UIViewController, UIResponder> {
public:
    enum class Appearance { Disappeared, Appearing, Appeared, Disappearing };

    static void define(objc::ClassTable<ViewController>& c);
    ~ViewController();

    void init();
    void initWithNibName(const NSString& nib, const NSObject& bundle);

    // The view.
    /// Makes the view by `loadView`, followed by `viewDidLoad`, when there is none yet. nil where `loadView` set none.
    UIView view();
    void setView(const UIView& view);
    bool isViewLoaded() const { return static_cast<bool>(_view); }
    UIView viewIfLoaded() const { return _view; }
    UIResponder nextResponder() const;

    // What its container shows of it.
    NSString title() const { return _title; }
    void setTitle(const NSString& title);
    UINavigationItem navigationItem();

    // The tree of controllers.
    UIViewController parentViewController() const { return _parent.get(); }
    /// First added first.
    const std::vector<UIViewController>& children() const { return _children; }
    NSArray childViewControllers() const;
    void addChildViewController(const UIViewController& child);
    void removeFromParentViewController();
    UINavigationController navigationController() const;
    /// The outermost container.
    UIViewController outermost() const;

    // What lies on top: see Presentation.
    UIViewController presentedViewController() const;
    UIViewController presentingViewController() const;
    /// The links themselves, of this controller alone; only for who presents.
    UIViewController presentedHere() const { return _presented; }
    void setPresentedHere(const UIViewController& controller) { _presented = controller; }
    void setPresentingHere(const UIViewController& controller) { _presenting = controller; }
    /// nil unless the controller is presented as a popover.
    UIPopoverPresentationController popoverPresentationController();
    /// Else what lies beneath stays where it is, and is not told.
    bool presentsFullScreen() const { return _presentationStyle == UIModalPresentationStyle::FullScreen; }

    // Coming and going.
    Appearance appearance() const { return _appearance; }
    void beginAppearanceTransition(bool appearing, bool animated);
    void endAppearanceTransition();

private:
    void loadView();
    void memoryIsShort(const NSNotification&) { send<"didReceiveMemoryWarning">(); }
    /// For the messages that exist to be overridden.
    void ignore() {}
    void ignoreFlag(bool) {}
    void ignoreController(const UIViewController&) {}
    void ignoreRotation(UIInterfaceOrientation, double) {}
    void ignoreRotationEnd(UIInterfaceOrientation) {}

    UIViewController presentingHere() const { return _presenting.get(); }
    void present(const UIViewController& controller, bool animated, const objc::Block<void()>& completion);
    void dismiss(bool animated, const objc::Block<void()>& completion);
    void preparePresentation();
    void animatePresentation();
    void animateDismissal();
    CGRect restingFrame() const;

    template <objc::FixedString Callback>
    void tell();
    NSArray appearingChildren() const;
    bool isTransitioning() const;
    bool isBeingPresented() const { return _presenting && _appearance == Appearance::Appearing; }
    bool isBeingDismissed() const { return _presenting && _appearance == Appearance::Disappearing; }
    void viewWillMoveToWindow(const UIWindow& window);
    void viewDidMoveToWindow(const UIWindow& window);

    bool shouldAutorotateToInterfaceOrientation(UIInterfaceOrientation orientation) const;
    bool shouldAutorotate() const { return true; }
    objc::UInt supportedInterfaceOrientations() const;
    UIInterfaceOrientation interfaceOrientation() const;
    objc::Int preferredStatusBarStyle() const { return 0; }
    bool prefersStatusBarHidden() const { return false; }

    NSString _nibName;
    UIView _view; // nil until asked for
    NSString _title;
    UINavigationItem _navigationItem; // nil until asked for
    objc::Unretained<UIViewController> _parent;
    std::vector<UIViewController> _children;
    UIViewController _presented;
    objc::Unretained<UIViewController> _presenting;
    UIModalTransitionStyle _transitionStyle = UIModalTransitionStyle::CoverVertical;
    UIModalPresentationStyle _presentationStyle = UIModalPresentationStyle::FullScreen;
    UIPopoverPresentationController _popover; // nil until asked for
    Appearance _appearance = Appearance::Disappeared;
    bool _animated = false;      // of the transition under way
    bool _begunByWindow = false; // the transition under way is the view's own move
};

} // namespace phone
