#include "phone/uikit/Animator.h"

#include "phone/coregraphics/CGColor.h"
#include "phone/device/Log.h"
#include "phone/device/RunLoop.h"
#include "phone/uikit/AnimationCurve.h"

#include <algorithm>
#include <utility>

namespace phone {

namespace {

constexpr objc::UInt repeats = 8; // UIViewAnimationOptionRepeat
constexpr objc::UInt autoreverses = 16;
constexpr objc::UInt overridesInheritedDuration = 32;
constexpr objc::UInt overridesInheritedCurve = 64;

double lengthOf(const AnimationSettings& settings) {
    return settings.duration * ((settings.options & autoreverses) != 0 ? 2 : 1);
}

/// How far an animation is, from 0 to 1, this many seconds after its delay has passed.
double progress(const AnimationSettings& settings, double seconds) {
    if (seconds <= 0) {
        return 0;
    }
    if (settings.duration <= 0) {
        return 1;
    }
    double rounds = seconds / settings.duration;
    if ((settings.options & repeats) != 0) {
        const double period = (settings.options & autoreverses) != 0 ? 2 : 1;
        rounds -= period * static_cast<double>(static_cast<long>(rounds / period));
    }
    const bool back = (settings.options & autoreverses) != 0 && rounds > 1;
    return eased(settings.curve, std::clamp(back ? 2 - rounds : rounds, 0.0, 1.0));
}

} // namespace

Animator& Animator::shared() {
    static auto* animator = new Animator; // views may go away until the very end
    return *animator;
}

Animator::Values Animator::values(const UIColor& color) {
    const CGColorRef reference = color.CGColor();
    const Color c = reference == nullptr ? Color{0, 0, 0, 0} : reference->color;
    return {c.red, c.green, c.blue, c.alpha};
}

void Animator::open(AnimationSettings settings, Completion completion) {
    if (settings.isBlock && !_open.empty() && _open.back()->settings.isBlock) {
        const AnimationSettings& outer = _open.back()->settings;
        if ((settings.options & overridesInheritedDuration) == 0) {
            settings.duration = outer.duration;
        }
        if ((settings.options & overridesInheritedCurve) == 0) {
            settings.curve = outer.curve;
        }
    }
    auto group = std::make_shared<Group>();
    group->settings = std::move(settings);
    group->completion = std::move(completion);
    _open.push_back(std::move(group));
}

AnimationSettings* Animator::innermost() { return _open.empty() ? nullptr : &_open.back()->settings; }

void Animator::setCompletion(Completion completion) {
    if (!_open.empty()) {
        _open.back()->completion = std::move(completion);
    }
}

void Animator::close() {
    if (_open.empty()) {
        return;
    }
    if ((_open.back()->settings.options & UIViewAnimationOptionLayoutSubviews) != 0) {
        const auto changed = _open.back()->views; // laying out adds to them
        for (id view : changed) {
            objc::borrow<UIView>(view).layoutIfNeeded();
        }
    }
    _closed.push_back(std::move(_open.back()));
    _open.pop_back();
    if (_open.empty()) {
        for (const GroupPointer& group : std::exchange(_closed, {})) {
            start(group);
        }
    }
}

void Animator::start(const GroupPointer& group) {
    RunLoop& loop = RunLoop::main();
    const AnimationSettings& settings = group->settings;
    group->start = loop.now();
    for (id view : group->views) {
        Log::shared().add("animation", {{"name", settings.name ? nlohmann::json(*settings.name) : nlohmann::json()},
                                        {"duration", settings.duration},
                                        {"delay", settings.delay},
                                        {"curve", static_cast<int>(settings.curve)},
                                        {"options", settings.options},
                                        {"view", class_getName(object_getClass(view))}});
    }
    if (group->running == 0) {
        loop.perform([group] {
            if (group->completion) {
                group->completion(group->finished);
            }
        });
    } else if ((settings.options & repeats) == 0) {
        group->timer = loop.after(settings.delay + lengthOf(settings), [this, group] { end(group); });
    }
}

void Animator::end(const GroupPointer& group) {
    std::erase_if(_animations, [&](const Animation& animation) { return animation.group == group; });
    group->running = 0;
    if (group->completion) {
        group->completion(group->finished);
    }
}

/// One of the group's properties stopped before its time.
void Animator::leave(const GroupPointer& group) {
    group->finished = false;
    if (--group->running > 0) {
        return;
    }
    const bool waitsForItsStart = std::find(_open.begin(), _open.end(), group) != _open.end() ||
                                  std::find(_closed.begin(), _closed.end(), group) != _closed.end();
    if (waitsForItsStart) {
        return;
    }
    RunLoop::main().cancel(group->timer);
    RunLoop::main().perform([group] {
        if (group->completion) {
            group->completion(false);
        }
    });
}

void Animator::willChange(const UIView& view, AnimatedProperty property, const Values& from) {
    if (!_enabled || _open.empty()) {
        return;
    }
    const GroupPointer group = _open.back();
    if (group->settings.duration <= 0 && group->settings.delay <= 0) {
        return;
    }
    Animation next{view.raw(), property, from, group};
    if (const Animation* before = find(view.raw(), property)) {
        if (before->group == group) {
            return;
        }
        if ((group->settings.options & UIViewAnimationOptionBeginFromCurrentState) != 0) {
            next.from = currentValues(view.raw(), property, from);
        }
        const GroupPointer replaced = before->group;
        _animations.erase(_animations.begin() + (before - _animations.data()));
        leave(replaced);
    }
    if (std::find(group->views.begin(), group->views.end(), view.raw()) == group->views.end()) {
        group->views.push_back(view.raw());
    }
    ++group->running;
    _animations.push_back(std::move(next));
}

void Animator::interrupt(const UIView& view) {
    for (auto at = _animations.begin(); at != _animations.end();) {
        if (at->view == view.raw()) {
            const GroupPointer group = at->group;
            at = _animations.erase(at);
            std::erase(group->views, view.raw());
            leave(group);
        } else {
            ++at;
        }
    }
}

const Animator::Animation* Animator::find(id view, AnimatedProperty property) const {
    const auto found = std::find_if(_animations.begin(), _animations.end(), [&](const Animation& animation) {
        return animation.view == view && animation.property == property;
    });
    return found == _animations.end() ? nullptr : &*found;
}

Animator::Values Animator::currentValues(id view, AnimatedProperty property, const Values& end) const {
    const Animation* animation = find(view, property);
    if (animation == nullptr) {
        return end;
    }
    const Group& group = *animation->group;
    const double done = progress(group.settings, RunLoop::main().now() - group.start - group.settings.delay);
    Values now{};
    for (std::size_t i = 0; i < now.size(); ++i) {
        now[i] = animation->from[i] + (end[i] - animation->from[i]) * done;
    }
    return now;
}

CGPoint Animator::current(const UIView& view, CGPoint end) const {
    const Values now = currentValues(view.raw(), AnimatedProperty::Center, values(end));
    return {now[0], now[1]};
}

CGRect Animator::current(const UIView& view, CGRect end) const {
    const Values now = currentValues(view.raw(), AnimatedProperty::Bounds, values(end));
    return {now[0], now[1], now[2], now[3]};
}

CGFloat Animator::current(const UIView& view, float end) const {
    return currentValues(view.raw(), AnimatedProperty::Alpha, values(static_cast<double>(end)))[0];
}

double Animator::currentQuarters(const UIView& view, int end) const {
    return currentValues(view.raw(), AnimatedProperty::Quarters, values(static_cast<double>(end)))[0];
}

UIColor Animator::current(const UIView& view, const UIColor& end) const {
    if (find(view.raw(), AnimatedProperty::Background) == nullptr) {
        return end;
    }
    const Values now = currentValues(view.raw(), AnimatedProperty::Background, values(end));
    return UIColor::rgba(now[0], now[1], now[2], now[3]);
}

bool Animator::isAnimating(const UIView& view) const {
    return std::any_of(_animations.begin(), _animations.end(),
                       [&](const Animation& animation) { return animation.view == view.raw(); });
}

bool Animator::blocksTouches(const UIView& view) const {
    return std::any_of(_animations.begin(), _animations.end(), [&](const Animation& animation) {
        return animation.view == view.raw() && !animation.group->settings.allowsTouches();
    });
}

} // namespace phone
