#include "phone/uikit/ViewAnimations.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/View.h"
#include "platform/foundation/NSNumber.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace phone {

namespace {

using Changes = objc::Block<void()>;
using Finished = objc::Block<void(bool)>;

constexpr int curveShift = 16; // where the curve stands among the options
constexpr objc::UInt curveMask = 3;

/// Closes the block also when an exception leaves it.
class OpenAnimation {
public:
    OpenAnimation(AnimationSettings settings, Animator::Completion completion) {
        Animator::shared().open(std::move(settings), std::move(completion));
    }
    ~OpenAnimation() { Animator::shared().close(); }
    OpenAnimation(const OpenAnimation&) = delete;
    OpenAnimation& operator=(const OpenAnimation&) = delete;
};

void animateWithOptions(double duration, double delay, objc::UInt options, const Changes& changes,
                        const Finished& completion) {
    AnimationSettings settings;
    settings.duration = std::max(duration, 0.0);
    settings.delay = std::max(delay, 0.0);
    settings.options = options;
    settings.curve = static_cast<UIViewAnimationCurve>((options >> curveShift) & curveMask);
    settings.isBlock = true;
    OpenAnimation open(std::move(settings), [completion](bool finished) { completion(finished); });
    changes();
}

void animateWithCompletion(double duration, const Changes& changes, const Finished& completion) {
    animateWithOptions(duration, 0, 0, changes, completion);
}

void animate(double duration, const Changes& changes) { animateWithOptions(duration, 0, 0, changes, nullptr); }

void performWithoutAnimation(const Changes& changes) {
    Animator& animator = Animator::shared();
    struct Restore {
        bool enabled = Animator::shared().isEnabled();
        ~Restore() { Animator::shared().setEnabled(enabled); }
    } restore;
    animator.setEnabled(false);
    changes();
}

// The older kind. What tells of its end: a delegate and the message it gets.

struct OlderAnimation {
    NSString name;
    void* context = nullptr;
    objc::Object delegate;
    SEL didStop = nullptr;
};

/// Those that are open, innermost last.
std::vector<OlderAnimation>& olderAnimations() {
    static auto* open = new std::vector<OlderAnimation>;
    return *open;
}

/// Sends as many of name, finished and context as the message takes.
void tellStop(const OlderAnimation& animation, bool finished) {
    if (!animation.delegate || animation.didStop == nullptr) {
        return;
    }
    const std::string_view selector = sel_getName(animation.didStop);
    const auto taken = std::count(selector.begin(), selector.end(), ':');
    const NSNumber number = NSNumber::withBool(finished);
    id receiver = animation.delegate.raw();
    if (taken == 0) {
        objc::detail::call<void>(receiver, animation.didStop);
    } else if (taken == 1) {
        objc::detail::call<void>(receiver, animation.didStop, animation.name.raw());
    } else if (taken == 2) {
        objc::detail::call<void>(receiver, animation.didStop, animation.name.raw(), number.raw());
    } else {
        objc::detail::call<void>(receiver, animation.didStop, animation.name.raw(), number.raw(), animation.context);
    }
}

void beginAnimations(const NSString& name, void* context) {
    AnimationSettings settings;
    if (name) {
        settings.name = text(name);
    }
    olderAnimations().push_back({name, context, nullptr, nullptr});
    Animator::shared().open(std::move(settings), nullptr);
}

void commitAnimations() {
    auto& open = olderAnimations();
    if (open.empty()) {
        return;
    }
    const OlderAnimation animation = open.back();
    open.pop_back();
    Animator::shared().setCompletion([animation](bool finished) { tellStop(animation, finished); });
    Animator::shared().close();
}

/// The settings that the setters of the older kind change; outside begin and commit they change nothing.
AnimationSettings* olderSettings() {
    AnimationSettings* innermost = Animator::shared().innermost();
    return innermost != nullptr && !innermost->isBlock ? innermost : nullptr;
}

void setAnimationDuration(double seconds) {
    if (AnimationSettings* settings = olderSettings()) {
        settings->duration = std::max(seconds, 0.0);
    }
}

void setAnimationDelay(double seconds) {
    if (AnimationSettings* settings = olderSettings()) {
        settings->delay = std::max(seconds, 0.0);
    }
}

void setAnimationCurve(UIViewAnimationCurve curve) {
    if (AnimationSettings* settings = olderSettings()) {
        settings->curve = curve;
    }
}

void setAnimationBeginsFromCurrentState(bool begins) {
    if (AnimationSettings* settings = olderSettings()) {
        settings->options = begins ? settings->options | UIViewAnimationOptionBeginFromCurrentState
                                   : settings->options & ~objc::UInt{UIViewAnimationOptionBeginFromCurrentState};
    }
}

void setAnimationDelegate(const objc::Object& delegate) {
    if (!olderAnimations().empty()) {
        olderAnimations().back().delegate = delegate;
    }
}

void setAnimationDidStopSelector(SEL selector) {
    if (!olderAnimations().empty()) {
        olderAnimations().back().didStop = selector;
    }
}

bool areAnimationsEnabled() { return Animator::shared().isEnabled(); }

void setAnimationsEnabled(bool enabled) { Animator::shared().setEnabled(enabled); }

} // namespace

void defineViewAnimations(objc::ClassTable<View>& c) {
    c.classMethod<"animateWithDuration:delay:options:animations:completion:", &animateWithOptions>()
        .classMethod<"animateWithDuration:animations:completion:", &animateWithCompletion>()
        .classMethod<"animateWithDuration:animations:", &animate>()
        .classMethod<"performWithoutAnimation:", &performWithoutAnimation>()
        .classMethod<"beginAnimations:context:", &beginAnimations>()
        .classMethod<"commitAnimations", &commitAnimations>()
        .classMethod<"setAnimationDuration:", &setAnimationDuration>()
        .classMethod<"setAnimationDelay:", &setAnimationDelay>()
        .classMethod<"setAnimationCurve:", &setAnimationCurve>()
        .classMethod<"setAnimationBeginsFromCurrentState:", &setAnimationBeginsFromCurrentState>()
        .classMethod<"setAnimationDelegate:", &setAnimationDelegate>()
        .classMethod<"setAnimationDidStopSelector:", &setAnimationDidStopSelector>()
        .classMethod<"areAnimationsEnabled", &areAnimationsEnabled>()
        .classMethod<"setAnimationsEnabled:", &setAnimationsEnabled>();
}

} // namespace phone
