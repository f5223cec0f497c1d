/// A stack of screens: the top one shows, under a bar that names it and leads back.
#pragma once

#include "phone/uikit/ViewController.h"
#include "platform/uikit/UINavigationController.h"

#include <optional>
#include <vector>

namespace phone {

/// UINavigationController. The stack changes inside the call; the screen that comes is loaded, told and
/// shown at the next layout pass. Touches are ignored while screens slide. What is pushed or popped
/// during a transition is shown after it.
class NavigationController : public objc::Implements<NavigationController, UINavigationController, UIViewController> {
public:
    static void define(objc::ClassTable<NavigationController>& c);
    ~NavigationController();

    void initWithRootViewController(const UIViewController& root);

    NSArray viewControllers() const;
    /// Replaces the whole stack.
    void setViewControllers(const NSArray& controllers, bool animated);
    UIViewController topViewController() const;
    UINavigationBar navigationBar();
    bool isNavigationBarHidden() const { return _barHidden; }
    void setNavigationBarHidden(bool hidden, bool animated);
    /// Raises NSInvalidArgumentException for nil, for a navigation controller and for what is in the stack.
    void push(const UIViewController& controller, bool animated);
    UIViewController pop(bool animated);
    NSArray popToRoot(bool animated);
    /// Raises NSInternalInconsistencyException for a controller that is not in the stack.
    NSArray popTo(const UIViewController& controller, bool animated);

private:
    enum class Direction { Forward, Back };
    struct Pending {
        Direction direction = Direction::Forward;
        bool animated = false;
    };

    void loadView();
    void setViewControllersAtOnce(const NSArray& controllers) { setViewControllers(controllers, false); }
    void setBarHidden(bool hidden) { setNavigationBarHidden(hidden, false); }
    NSArray appearingChildren();
    void endAppearanceTransition();
    /// As the top of the stack answers.
    /// What is presented, or else the top.
    UIViewController visibleViewController() const;

    NSArray cutTo(std::size_t count, bool animated);
    void schedule(Direction direction, bool animated);
    void startDeferredTransitionIfNeeded();
    void startTransition(const Pending& pending);
    void endTransition();
    void showWithoutTransition();
    void discardLeft();
    void updateBar();
    CGRect barFrame() const;
    void layOut();
    void barWentBack();

    std::vector<UIViewController> _stack;
    std::vector<UIViewController> _left; // popped, and children until their transition has ended
    UIViewController _shown;             // whose view is in the container; nil before the first layout
    UIViewController _leaving;           // slides out during a transition
    std::optional<Pending> _pending;     // waits for the next layout pass
    bool _inTransition = false;
    UINavigationBar _bar;
    bool _barHidden = false;
};

} // namespace phone
