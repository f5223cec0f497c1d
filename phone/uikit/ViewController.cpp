#include "phone/uikit/ViewController.h"

#include "phone/device/Log.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Arrays.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Application.h"
#include "phone/uikit/Orientations.h"
#include "phone/uikit/Presentation.h"
#include "phone/uikit/View.h"
#include "platform/uikit/UIScreen.h"

#include <algorithm>

namespace phone {

void ViewController::define(objc::ClassTable<ViewController>& c) {
    c.init<"init", &ViewController::init>()
        .init<"initWithNibName:bundle:", &ViewController::initWithNibName>()
        .get<"nibName", &ViewController::_nibName>()
        .def<"loadView", &ViewController::loadView>()
        .def<"viewDidLoad", &ViewController::ignore>()
        .def<"view", &ViewController::view>()
        .def<"setView:", &ViewController::setView>()
        .def<"isViewLoaded", &ViewController::isViewLoaded>()
        .def<"viewWillLayoutSubviews", &ViewController::ignore>()
        .def<"viewDidLayoutSubviews", &ViewController::ignore>()
        .def<"didReceiveMemoryWarning", &ViewController::ignore>()
        .def<"_memoryIsShort:", &ViewController::memoryIsShort>()
        .overrides<"nextResponder", &ViewController::nextResponder>();
    c.get<"title", &ViewController::_title>()
        .def<"setTitle:", &ViewController::setTitle>()
        .def<"navigationItem", &ViewController::navigationItem>()
        .def<"navigationController", &ViewController::navigationController>()
        .def<"parentViewController", &ViewController::parentViewController>()
        .def<"childViewControllers", &ViewController::childViewControllers>()
        .def<"addChildViewController:", &ViewController::addChildViewController>()
        .def<"removeFromParentViewController", &ViewController::removeFromParentViewController>()
        .def<"willMoveToParentViewController:", &ViewController::ignoreController>()
        .def<"didMoveToParentViewController:", &ViewController::ignoreController>();
    c.def<"presentViewController:animated:completion:", &ViewController::present>()
        .def<"dismissViewControllerAnimated:completion:", &ViewController::dismiss>()
        .def<"presentedViewController", &ViewController::presentedViewController>()
        .def<"presentingViewController", &ViewController::presentingViewController>()
        .get<"modalTransitionStyle", &ViewController::_transitionStyle>()
        .set<"setModalTransitionStyle:", &ViewController::_transitionStyle>()
        .get<"modalPresentationStyle", &ViewController::_presentationStyle>()
        .set<"setModalPresentationStyle:", &ViewController::_presentationStyle>()
        .def<"isBeingPresented", &ViewController::isBeingPresented>()
        .def<"isBeingDismissed", &ViewController::isBeingDismissed>()
        .def<"_preparePresentation", &ViewController::preparePresentation>()
        .def<"_animatePresentation", &ViewController::animatePresentation>()
        .def<"_animateDismissal", &ViewController::animateDismissal>();
    if (settings().system.number >= 8) {
        c.def<"popoverPresentationController", &ViewController::popoverPresentationController>();
    }
    c.def<"viewWillAppear:", &ViewController::ignoreFlag>()
        .def<"viewDidAppear:", &ViewController::ignoreFlag>()
        .def<"viewWillDisappear:", &ViewController::ignoreFlag>()
        .def<"viewDidDisappear:", &ViewController::ignoreFlag>()
        .def<"beginAppearanceTransition:animated:", &ViewController::beginAppearanceTransition>()
        .def<"endAppearanceTransition", &ViewController::endAppearanceTransition>()
        .def<"_appearingChildren", &ViewController::appearingChildren>()
        .def<"viewWillMoveToWindow:", &ViewController::viewWillMoveToWindow>()
        .def<"viewDidMoveToWindow:", &ViewController::viewDidMoveToWindow>();
    c.def<"shouldAutorotateToInterfaceOrientation:", &ViewController::shouldAutorotateToInterfaceOrientation>()
        .def<"shouldAutorotate", &ViewController::shouldAutorotate>()
        .def<"supportedInterfaceOrientations", &ViewController::supportedInterfaceOrientations>()
        .def<"interfaceOrientation", &ViewController::interfaceOrientation>()
        .def<"willRotateToInterfaceOrientation:duration:", &ViewController::ignoreRotation>()
        .def<"willAnimateRotationToInterfaceOrientation:duration:", &ViewController::ignoreRotation>()
        .def<"didRotateFromInterfaceOrientation:", &ViewController::ignoreRotationEnd>()
        .def<"preferredStatusBarStyle", &ViewController::preferredStatusBarStyle>()
        .def<"prefersStatusBarHidden", &ViewController::prefersStatusBarHidden>();
}

ViewController::~ViewController() {
    NSNotificationCenter::defaultCenter().removeObserver(*this);
    if (View* view = View::of(_view)) {
        view->setController(nullptr);
    }
    for (const UIViewController& child : _children) {
        of(child)->_parent = nullptr;
    }
    if (ViewController* presented = of(_presented)) {
        presented->_presenting = nullptr;
    }
}

void ViewController::init() {
    // Sent to the object itself: overriding the designated initialiser is enough for a subclass.
    redirect<"initWithNibName:bundle:">(NSString(), NSObject());
}

void ViewController::initWithNibName(const NSString& nib, const NSObject&) {
    super<"init">();
    _nibName = nib;
    NSNotificationCenter::defaultCenter().addObserver(*this, objc::selector<"_memoryIsShort:">(), string(memoryWarning),
                                                      nullptr);
}

// The view

UIView ViewController::view() {
    if (!_view) {
        send<"loadView">();
        send<"viewDidLoad">(); // also where that has set no view
    }
    return _view;
}

void ViewController::loadView() {
    const auto made = UIView::withFrame(UIScreen::main().bounds());
    made.setAutoresizingMask(UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    send<"setView:">(made);
}

void ViewController::setView(const UIView& view) {
    if (View* before = View::of(_view)) {
        before->setController(nullptr);
    }
    _view = view;
    if (View* now = View::of(_view)) {
        now->setController(*this);
    }
}

UIResponder ViewController::nextResponder() const { return _view.superview(); }

// What its container shows of it

void ViewController::setTitle(const NSString& title) {
    _title = title;
    _navigationItem.setTitle(title);
}

UINavigationItem ViewController::navigationItem() {
    if (!_navigationItem) {
        _navigationItem = UINavigationItem::withTitle(_title);
    }
    return _navigationItem;
}

// The tree of controllers

NSArray ViewController::childViewControllers() const { return arrayOf(_children); }

void ViewController::addChildViewController(const UIViewController& child) {
    ViewController* peer = of(child);
    if (peer == nullptr || peer->_parent.raw() == raw()) {
        return;
    }
    const objc::Keep kept(child.raw());
    child.send<"removeFromParentViewController">();
    child.send<"willMoveToParentViewController:">(*this);
    _children.push_back(child);
    peer->_parent = *this;
}

void ViewController::removeFromParentViewController() {
    ViewController* parent = of(_parent.get());
    if (parent == nullptr) {
        return;
    }
    const objc::Keep kept(raw());
    _parent = nullptr;
    std::erase(parent->_children, UIViewController(*this));
    send<"didMoveToParentViewController:">(UIViewController());
}

UINavigationController ViewController::navigationController() const {
    for (UIViewController at = parentViewController(); at; at = at.parentViewController()) {
        if (objc::isKind<UINavigationController>(at)) {
            return objc::as<UINavigationController>(at);
        }
    }
    return nullptr;
}

UIViewController ViewController::outermost() const {
    UIViewController at = *this;
    while (const UIViewController above = at.parentViewController()) {
        at = above;
    }
    return at;
}

// What lies on top

UIViewController ViewController::presentedViewController() const { return of(outermost())->_presented; }

UIViewController ViewController::presentingViewController() const { return of(outermost())->presentingHere(); }

void ViewController::present(const UIViewController& controller, bool animated, const objc::Block<void()>& completion) {
    presentation::present(*this, controller, animated, completion);
}

void ViewController::dismiss(bool animated, const objc::Block<void()>& completion) {
    presentation::dismiss(*this, animated, completion);
}

UIPopoverPresentationController ViewController::popoverPresentationController() {
    if (!_popover && _presentationStyle == UIModalPresentationStyle::Popover) {
        _popover = objc::make<UIPopoverPresentationController>();
    }
    return _presentationStyle == UIModalPresentationStyle::Popover ? _popover : nullptr;
}

CGRect ViewController::restingFrame() const { return _view.superview().bounds(); }

void ViewController::preparePresentation() { animateDismissal(); }

void ViewController::animatePresentation() { _view.setFrame(restingFrame()); }

/// Cover vertical: below the screen, as the view itself stands on it.
void ViewController::animateDismissal() {
    const CGPoint down = turned({0, _view.bounds().size.height}, View::of(_view)->quarters());
    const CGRect resting = restingFrame();
    _view.setFrame({{resting.origin.x + down.x, resting.origin.y + down.y}, resting.size});
}

// Coming and going

template <objc::FixedString Callback>
void ViewController::tell() {
    Log::shared().add("appearance", {{"class", class_getName(object_getClass(raw()))}, {"callback", Callback.text}});
    send<Callback>(_animated);
}

bool ViewController::isTransitioning() const {
    return _appearance == Appearance::Appearing || _appearance == Appearance::Disappearing;
}

void ViewController::beginAppearanceTransition(bool appearing, bool animated) {
    const bool shown = _appearance == Appearance::Appearing || _appearance == Appearance::Appeared;
    if (appearing == shown) {
        return;
    }
    const objc::Keep kept(raw());
    _animated = animated;
    if (appearing) {
        send<"view", UIView>(); // the callbacks find the view loaded
    }
    _appearance = appearing ? Appearance::Appearing : Appearance::Disappearing;
    if (appearing) {
        tell<"viewWillAppear:">();
    } else {
        tell<"viewWillDisappear:">();
    }
    const auto shownChildren = send<"_appearingChildren", NSArray>();
    for (const auto& child : shownChildren) {
        child.send<"beginAppearanceTransition:animated:">(appearing, animated);
    }
}

void ViewController::endAppearanceTransition() {
    if (!isTransitioning()) {
        return;
    }
    const objc::Keep kept(raw());
    _begunByWindow = false;
    if (_appearance == Appearance::Appearing) {
        _appearance = Appearance::Appeared;
        tell<"viewDidAppear:">();
    } else {
        _appearance = Appearance::Disappeared;
        tell<"viewDidDisappear:">();
    }
    const auto children = _children;
    for (const UIViewController& child : children) {
        child.send<"endAppearanceTransition">();
    }
}

NSArray ViewController::appearingChildren() const {
    const auto shown = objc::make<NSMutableArray>();
    for (const UIViewController& child : _children) {
        if (of(child)->_view && of(child)->_view.isDescendantOfView(_view)) {
            shown.add(child);
        }
    }
    return shown;
}

void ViewController::viewWillMoveToWindow(const UIWindow& window) {
    if (isTransitioning()) {
        return; // whoever moves the view brackets the move
    }
    const bool appearing = static_cast<bool>(window);
    if (appearing != (_appearance == Appearance::Appeared)) {
        _begunByWindow = true;
        send<"beginAppearanceTransition:animated:">(appearing, false);
    }
}

void ViewController::viewDidMoveToWindow(const UIWindow&) {
    if (_begunByWindow) {
        send<"endAppearanceTransition">();
    }
}

// Orientation

/// Nobody asks this class, but a subclass may ask its super.
bool ViewController::shouldAutorotateToInterfaceOrientation(UIInterfaceOrientation orientation) const {
    return orientation == UIInterfaceOrientation::Portrait;
}

objc::UInt ViewController::supportedInterfaceOrientations() const { return orientationsByDefault().bits(); }

UIInterfaceOrientation ViewController::interfaceOrientation() const {
    return UIApplication::shared().statusBarOrientation();
}

} // namespace phone
