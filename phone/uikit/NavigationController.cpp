#include "phone/uikit/NavigationController.h"

#include "phone/device/Log.h"
#include "phone/foundation/Arrays.h"
#include "phone/foundation/Raise.h"
#include "phone/uikit/LayoutContainerView.h"
#include "phone/uikit/NavigationBar.h"
#include "phone/uikit/StatusBar.h"
#include "platform/uikit/UIScreen.h"

#include <algorithm>
#include <string>

namespace phone {

namespace {

constexpr double slideDuration = 0.35; // seconds, of a push or pop
constexpr double barDuration = 0.2;    // seconds, of the bar's coming or going
constexpr double parallax = 0.3;       // how much of its width the lower screen moves

std::string className(const objc::Object& object) { return class_getName(object_getClass(object.raw())); }

ViewController& peer(const UIViewController& controller) { return *ViewController::of(controller); }

void log(const char* action, const UIViewController& controller, const UIViewController& by) {
    Log::shared().add("navigation", {{"action", action}, {"controller", className(controller)}, {"by", className(by)}});
}

CGRect shifted(CGRect frame, double x) {
    return {frame.origin.x + x, frame.origin.y, frame.size.width, frame.size.height};
}

} // namespace

void NavigationController::define(objc::ClassTable<NavigationController>& c) {
    c.init<"initWithRootViewController:", &NavigationController::initWithRootViewController>()
        .overrides<"loadView", &NavigationController::loadView>()
        .def<"viewControllers", &NavigationController::viewControllers>()
        .def<"setViewControllers:", &NavigationController::setViewControllersAtOnce>()
        .def<"setViewControllers:animated:", &NavigationController::setViewControllers>()
        .def<"topViewController", &NavigationController::topViewController>()
        .def<"visibleViewController", &NavigationController::visibleViewController>()
        .def<"navigationBar", &NavigationController::navigationBar>()
        .def<"isNavigationBarHidden", &NavigationController::isNavigationBarHidden>()
        .def<"setNavigationBarHidden:", &NavigationController::setBarHidden>()
        .def<"setNavigationBarHidden:animated:", &NavigationController::setNavigationBarHidden>()
        .def<"pushViewController:animated:", &NavigationController::push>()
        .def<"popViewControllerAnimated:", &NavigationController::pop>()
        .def<"popToRootViewControllerAnimated:", &NavigationController::popToRoot>()
        .def<"popToViewController:animated:", &NavigationController::popTo>()
        .overrides<"_appearingChildren", &NavigationController::appearingChildren>()
        .overrides<"endAppearanceTransition", &NavigationController::endAppearanceTransition>()
        .def<"_startDeferredTransitionIfNeeded", &NavigationController::startDeferredTransitionIfNeeded>()
        .def<"_layOutContainer", &NavigationController::layOut>()
        .def<"_barWentBack", &NavigationController::barWentBack>();
}

NavigationController::~NavigationController() {
    if (NavigationBar* bar = NavigationBar::of(_bar)) {
        bar->setManager(nullptr);
    }
}

void NavigationController::initWithRootViewController(const UIViewController& root) {
    super<"init">();
    if (root) {
        send<"pushViewController:animated:">(root, false);
    }
}

// The stack

NSArray NavigationController::viewControllers() const { return arrayOf(_stack); }

UIViewController NavigationController::topViewController() const {
    return _stack.empty() ? UIViewController() : _stack.back();
}

UIViewController NavigationController::visibleViewController() const {
    const UIViewController presented = peer(*this).presentedViewController();
    return presented ? presented : topViewController();
}

void NavigationController::push(const UIViewController& controller, bool animated) {
    if (!controller) {
        raise("NSInvalidArgumentException",
              "Application tried to push a nil view controller on target <" + className(*this) + ">.");
    }
    if (objc::isKind<UINavigationController>(controller)) {
        raise("NSInvalidArgumentException", "Pushing a navigation controller is not supported");
    }
    if (std::find(_stack.begin(), _stack.end(), controller) != _stack.end()) {
        raise("NSInvalidArgumentException",
              "<" + className(*this) + "> is pushing the same view controller instance (<" + className(controller) +
                  ">) more than once which is not supported and is most likely an error in the application");
    }
    log("push", controller, *this);
    send<"addChildViewController:">(controller);
    _stack.push_back(controller);
    schedule(Direction::Forward, animated);
}

UIViewController NavigationController::pop(bool animated) {
    if (_stack.size() < 2) {
        return nullptr;
    }
    return cutTo(_stack.size() - 1, animated).last<UIViewController>();
}

NSArray NavigationController::popToRoot(bool animated) { return cutTo(1, animated); }

NSArray NavigationController::popTo(const UIViewController& controller, bool animated) {
    const auto found = std::find(_stack.begin(), _stack.end(), controller);
    if (found == _stack.end()) {
        raise("NSInternalInconsistencyException", "Tried to pop to a view controller that doesn't exist.");
    }
    return cutTo(static_cast<std::size_t>(found - _stack.begin()) + 1, animated);
}

NSArray NavigationController::cutTo(std::size_t count, bool animated) {
    std::vector<UIViewController> popped;
    while (_stack.size() > count) {
        popped.insert(popped.begin(), _stack.back());
        log("pop", _stack.back(), *this);
        _left.push_back(_stack.back());
        _stack.pop_back();
    }
    if (!popped.empty()) {
        schedule(Direction::Back, animated);
    }
    return arrayOf(popped);
}

void NavigationController::setViewControllers(const NSArray& controllers, bool animated) {
    const UIViewController before = topViewController();
    const auto old = std::move(_stack);
    _stack.clear();
    for (const auto& object : controllers) {
        const auto controller = objc::as<UIViewController>(object);
        send<"addChildViewController:">(controller);
        _stack.push_back(controller);
    }
    std::copy_if(old.begin(), old.end(), std::back_inserter(_left), [&](const UIViewController& controller) {
        return std::find(_stack.begin(), _stack.end(), controller) == _stack.end();
    });
    if (topViewController() == before) {
        discardLeft();
        updateBar();
        return;
    }
    const bool back = std::find(old.begin(), old.end(), topViewController()) != old.end();
    log(back ? "pop" : "push", topViewController(), *this);
    schedule(back ? Direction::Back : Direction::Forward, animated);
}

// Showing the top of the stack

void NavigationController::schedule(Direction direction, bool animated) {
    _pending = Pending{direction, animated};
    peer(*this).viewIfLoaded().setNeedsLayout();
}

void NavigationController::startDeferredTransitionIfNeeded() {
    if (!_pending || _inTransition) {
        return;
    }
    switch (peer(*this).appearance()) {
    case ViewController::Appearance::Appeared: {
        const Pending pending = *_pending;
        _pending.reset();
        startTransition(pending);
        return;
    }
    case ViewController::Appearance::Disappeared:
        showWithoutTransition();
        return;
    case ViewController::Appearance::Appearing:
    case ViewController::Appearance::Disappearing:
        return; // the own transition comes first
    }
}

void NavigationController::startTransition(const Pending& pending) {
    const UIViewController coming = topViewController();
    if (coming == _shown) {
        discardLeft();
        updateBar();
        return;
    }
    _inTransition = true;
    _leaving = _shown;
    _shown = coming;
    UIApplication::shared().beginIgnoringInteractionEvents();
    const UIView container = view();
    const UIView in = coming.view();
    const CGRect frame = container.bounds();
    in.setFrame(frame); // what appears is laid out where it will rest, wherever the last slide left it
    _leaving.send<"beginAppearanceTransition:animated:">(false, pending.animated);
    coming.send<"beginAppearanceTransition:animated:">(true, pending.animated);

    const UIView out = _leaving.view();
    const bool forward = pending.direction == Direction::Forward;
    const double width = frame.size.width;
    if (forward) {
        container.send<"insertSubview:belowSubview:">(in, navigationBar());
    } else {
        container.insertSubview(in, 0);
    }
    updateBar();
    in.layoutIfNeeded();
    in.setFrame(shifted(frame, forward ? width : -parallax * width));
    const UINavigationController controller = *this;
    UIView::animate(
        pending.animated ? slideDuration : 0, 0, 0,
        ^{
          in.setFrame(frame);
          out.setFrame(shifted(frame, forward ? -parallax * width : width));
        },
        ^(bool) {
          of(controller)->endTransition();
        });
}

void NavigationController::endTransition() {
    const UIViewController gone = std::move(_leaving);
    _leaving = nullptr;
    _inTransition = false;
    peer(_shown).viewIfLoaded().setFrame(view().bounds());
    if (gone) {
        gone.view().removeFromSuperview();
        gone.send<"endAppearanceTransition">();
    }
    _shown.send<"endAppearanceTransition">();
    UIApplication::shared().endIgnoringInteractionEvents();
    discardLeft();
    if (_pending) {
        view().setNeedsLayout();
    }
}

/// As long as the container itself is not on the screen nobody is told of a change.
void NavigationController::showWithoutTransition() {
    _pending.reset();
    const UIViewController coming = topViewController();
    if (coming != _shown) {
        const UIViewController before = _shown;
        _shown = coming;
        if (before) {
            peer(before).viewIfLoaded().removeFromSuperview();
        }
        if (coming) {
            const UIView in = coming.view();
            in.setFrame(view().bounds());
            view().insertSubview(in, 0);
        }
    }
    discardLeft();
    updateBar();
}

void NavigationController::discardLeft() {
    const auto left = std::move(_left);
    _left.clear();
    for (const UIViewController& controller : left) {
        if (std::find(_stack.begin(), _stack.end(), controller) == _stack.end()) {
            controller.send<"removeFromParentViewController">();
        }
    }
}

NSArray NavigationController::appearingChildren() {
    if (peer(*this).appearance() == ViewController::Appearance::Appearing && !_inTransition) {
        showWithoutTransition();
    }
    return _shown ? NSArray::of(_shown) : NSArray::of();
}

void NavigationController::endAppearanceTransition() {
    super<"endAppearanceTransition">();
    if (_pending) {
        peer(*this).viewIfLoaded().setNeedsLayout();
    }
}

// The container and its bar

void NavigationController::loadView() {
    const auto container = objc::make<objc::Ref<LayoutContainerView>, "initWithFrame:">(UIScreen::main().bounds());
    const auto root = objc::as<UIView>(container);
    root.setAutoresizingMask(UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    root.setBackgroundColor(UIColor::white());
    root.setClipsToBounds(true);
    root.addSubview(navigationBar());
    send<"setView:">(root);
}

UINavigationBar NavigationController::navigationBar() {
    if (!_bar) {
        _bar = UINavigationBar::withFrame(barFrame());
        _bar.setHidden(_barHidden);
        NavigationBar::of(_bar)->setManager(*this);
    }
    return _bar;
}

CGRect NavigationController::barFrame() const {
    const CGRect screen = peer(*this).viewIfLoaded() ? peer(*this).viewIfLoaded().bounds() : UIScreen::main().bounds();
    return {0, statusBarHeight, screen.size.width, NavigationBar::height};
}

void NavigationController::setNavigationBarHidden(bool hidden, bool animated) {
    if (hidden == _barHidden) {
        return;
    }
    _barHidden = hidden;
    const UINavigationBar bar = navigationBar();
    const CGRect resting = barFrame();
    const CGRect above = {resting.origin.x, -resting.size.height, resting.size.width, resting.size.height};
    if (!animated) {
        bar.setFrame(resting);
        bar.setHidden(hidden);
        return;
    }
    if (!hidden) {
        bar.setFrame(above);
        bar.setHidden(false);
    }
    const UINavigationController controller = *this;
    UIView::animate(
        barDuration, 0, 0,
        ^{
          bar.setFrame(hidden ? above : resting);
        },
        ^(bool) {
          bar.setHidden(controller.isNavigationBarHidden());
        });
}

void NavigationController::updateBar() {
    std::vector<UINavigationItem> items;
    for (const UIViewController& controller : _stack) {
        items.push_back(controller.navigationItem());
    }
    NavigationBar::of(navigationBar())->show(items);
}

void NavigationController::layOut() {
    const UIView container = view();
    if (!_inTransition && _shown) {
        _shown.view().setFrame(container.bounds());
    }
    const CGRect bar = barFrame();
    if (!_barHidden) {
        navigationBar().setFrame(bar);
    }
    NavigationBar::of(navigationBar())->setBackgroundOverhang(bar.origin.y);
    send<"_startDeferredTransitionIfNeeded">();
}

void NavigationController::barWentBack() { send<"popViewControllerAnimated:", UIViewController>(true); }

} // namespace phone
