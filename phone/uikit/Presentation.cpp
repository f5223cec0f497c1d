#include "phone/uikit/Presentation.h"

#include "phone/device/Log.h"
#include "phone/foundation/Raise.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/ViewController.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace phone::presentation {

namespace {

/// Controllers of one window, each presenting the next; the first is presented by none.
using Chain = std::vector<UIViewController>;

constinit bool underWay = false;

std::vector<std::function<void()>>& waiting() {
    static auto* work = new std::vector<std::function<void()>>;
    return *work;
}

std::function<void()>& observer() {
    static auto* work = new std::function<void()>;
    return *work;
}

ViewController& peer(const UIViewController& controller) { return *ViewController::of(controller); }

std::string className(const UIViewController& controller) { return class_getName(object_getClass(controller.raw())); }

std::string named(const UIViewController& controller) { return "<" + className(controller) + ">"; }

void warn(const std::string& text) { std::fprintf(stderr, "Warning: %s\n", text.c_str()); }

void log(const char* action, const UIViewController& controller, const UIViewController& by) {
    Log::shared().add("navigation", {{"action", action}, {"controller", className(controller)}, {"by", className(by)}});
}

Chain chainThrough(const UIViewController& controller) {
    UIViewController at = controller;
    while (const UIViewController below = at.presentingViewController()) {
        at = below;
    }
    Chain chain;
    for (; at; at = peer(at).presentedHere()) {
        chain.push_back(at);
    }
    return chain;
}

/// What can be seen of the chain: its topmost full-screen controller and what lies over that.
Chain visible(const Chain& chain) {
    auto first = chain.end();
    while (first != chain.begin()) {
        --first;
        if (peer(*first).presentsFullScreen()) {
            break;
        }
    }
    return {first, chain.end()};
}

bool contains(const Chain& chain, const UIViewController& controller) {
    return std::find(chain.begin(), chain.end(), controller) != chain.end();
}

Chain without(const Chain& chain, const Chain& others) {
    Chain rest;
    std::copy_if(chain.begin(), chain.end(), std::back_inserter(rest),
                 [&](const UIViewController& controller) { return !contains(others, controller); });
    return rest;
}

void begin(const Chain& chain, bool appearing, bool animated) {
    for (const UIViewController& controller : chain) {
        controller.send<"beginAppearanceTransition:animated:">(appearing, animated);
    }
}

void end(const Chain& chain) {
    for (const UIViewController& controller : chain) {
        controller.send<"endAppearanceTransition">();
    }
}

void removeViews(const Chain& chain) {
    for (const UIViewController& controller : chain) {
        peer(controller).viewIfLoaded().removeFromSuperview();
    }
}

void start() {
    underWay = true;
    UIApplication::shared().beginIgnoringInteractionEvents();
}

void finish(const objc::Block<void()>& completion) {
    underWay = false;
    UIApplication::shared().endIgnoringInteractionEvents();
    completion();
    while (!underWay && !waiting().empty()) {
        auto work = std::move(waiting().front());
        waiting().erase(waiting().begin());
        work();
    }
    if (!underWay && observer()) {
        observer()();
    }
}

/// Whether the presenter may present now; says on standard error why not.
bool canPresent(const UIViewController& presenter, const UIViewController& presented) {
    const std::string attempt = "Attempt to present " + named(presented) + " on " + named(presenter);
    if (underWay) {
        warn(attempt + " while a presentation is in progress!");
        return false;
    }
    if (const UIViewController already = presenter.presentedViewController()) {
        warn(attempt + " which is already presenting " + named(already));
        return false;
    }
    if (!peer(presenter).viewIfLoaded().window()) {
        warn(attempt + " whose view is not in the window hierarchy!");
        return false;
    }
    return true;
}

} // namespace

void setObserver(std::function<void()> work) { observer() = std::move(work); }

std::vector<UIViewController> visibleFrom(const UIViewController& root) { return visible(chainThrough(root)); }

bool isUnderWay() { return underWay; }

void whenIdle(std::function<void()> work) {
    if (underWay) {
        waiting().push_back(std::move(work));
    } else {
        work();
    }
}

void present(const UIViewController& sender, const UIViewController& presented, bool animated,
             const objc::Block<void()>& completion) {
    const UIViewController presenter = peer(sender).outermost();
    if (!presented) {
        raise("NSInvalidArgumentException",
              "Application tried to present a nil modal view controller on target " + named(presenter) + ".");
    }
    if (!canPresent(presenter, presented)) {
        return;
    }
    if (presented.presentingViewController() || presented.parentViewController()) {
        raise("NSInvalidArgumentException",
              "Application tried to present modally an active controller " + named(presented) + ".");
    }

    const Chain covered = peer(presented).presentsFullScreen() ? visible(chainThrough(presenter)) : Chain();
    const UIWindow window = peer(presenter).viewIfLoaded().window();
    log("present", presented, presenter);
    start();
    peer(presenter).setPresentedHere(presented);
    peer(presented).setPresentingHere(presenter);
    begin(covered, false, animated);
    if (peer(presented).presentsFullScreen()) {
        Interface::shared().adopt(presented);
    }
    const UIView view = presented.view();
    Interface::shared().fill(view, window); // what appears finds its size
    begin({presented}, true, animated);

    window.addSubview(view);
    view.layoutIfNeeded();
    presented.send<"_preparePresentation">();
    const objc::Block<void()> then = completion;
    const UIViewController shown = presented; // a block would keep the reference, not the controller
    UIView::animate(
        animated ? coverDuration : 0, 0, 0,
        ^{
          shown.send<"_animatePresentation">();
        },
        ^(bool) {
          end({shown});
          removeViews(covered);
          end(covered);
          finish(then);
        });
}

void dismiss(const UIViewController& sender, bool animated, const objc::Block<void()>& completion) {
    const UIViewController target = peer(sender).outermost();
    const UIViewController lower = peer(target).presentedHere() ? target : target.presentingViewController();
    if (!lower) {
        return; // nothing is presented here
    }
    if (underWay) {
        warn("Attempt to dismiss from view controller " + named(lower) +
             " while a presentation or dismiss is in progress!");
        return;
    }

    const Chain chain = chainThrough(lower);
    const auto firstGone = std::next(std::find(chain.begin(), chain.end(), lower));
    const Chain remaining(chain.begin(), firstGone);
    const Chain removed(firstGone, chain.end());
    const Chain going = without(visible(chain), visible(remaining));
    const Chain coming = without(visible(remaining), visible(chain));
    const UIWindow window = chain.back().view().window();
    for (auto gone = chain.rbegin(); *gone != lower; ++gone) {
        log("dismiss", *gone, *std::next(gone));
    }
    start();
    if (!coming.empty()) {
        Interface::shared().adopt(coming.front());
    }
    for (const UIViewController& controller : coming) {
        Interface::shared().fill(controller.view(), window);
    }
    begin(going, false, animated);
    begin(coming, true, animated);

    const UIView lowest = going.empty() ? UIView() : going.front().view();
    for (const UIViewController& controller : coming) {
        window.send<"insertSubview:belowSubview:">(controller.view(), lowest);
        controller.view().layoutIfNeeded();
    }
    const objc::Block<void()> then = completion;
    UIView::animate(
        animated ? coverDuration : 0, 0, 0,
        ^{
          for (const UIViewController& controller : going) {
              controller.send<"_animateDismissal">();
          }
        },
        ^(bool) {
          removeViews(removed);
          end(coming);
          end(going);
          for (const UIViewController& controller : removed) {
              peer(peer(controller).presentingViewController()).setPresentedHere(nullptr);
              peer(controller).setPresentingHere(nullptr);
          }
          finish(then);
        });
}

} // namespace phone::presentation
