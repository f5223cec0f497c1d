/// The views' animations: what changes inside an animation block moves there over time.
#pragma once

#include "platform/uikit/UIView.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace phone {

enum class AnimatedProperty { Center, Bounds, Alpha, Background, Quarters };

/// How one animation block, of either kind, animates.
struct AnimationSettings {
    double duration = 0.2; // seconds
    double delay = 0;
    UIViewAnimationCurve curve = UIViewAnimationCurve::EaseInOut;
    objc::UInt options = 0;          // of UIViewAnimationOptions
    std::optional<std::string> name; // of the begin/commit kind, where it was given one
    bool isBlock = false;            // whether it is of the block kind, which keeps touches off its views

    bool allowsTouches() const { return !isBlock || (options & UIViewAnimationOptionAllowUserInteraction) != 0; }
};

/// One per process. A property's own value is an animation's end at once; what is drawn on the way there
/// is asked for here. Setting a property outside a block while it is animated moves the end.
class Animator {
public:
    using Values = std::array<double, 4>;
    using Completion = std::function<void(bool finished)>;

    static Animator& shared();

    static Values values(CGPoint p) { return {p.x, p.y, 0, 0}; }
    static Values values(CGRect r) { return {r.origin.x, r.origin.y, r.size.width, r.size.height}; }
    static Values values(double number) { return {number, 0, 0, 0}; }
    /// nil counts as transparent.
    static Values values(const UIColor& color);

    // Blocks. They nest; all of them start when the outermost one closes.
    /// The completion is never called before `close` has returned.
    void open(AnimationSettings settings, Completion completion);
    /// The settings of the innermost open block; nullptr outside.
    AnimationSettings* innermost();
    /// What the innermost open block calls at its end, in place of what it was opened with.
    void setCompletion(Completion completion);
    void close();
    bool isEnabled() const { return _enabled; }
    /// While off, blocks change their views at once.
    void setEnabled(bool enabled) { _enabled = enabled; }

    // Views.
    /// A view's property is about to change from this value.
    void willChange(const UIView& view, AnimatedProperty property, const Values& from);
    /// What is shown now of a property whose own value is `end`.
    CGPoint current(const UIView& view, CGPoint end) const;
    CGRect current(const UIView& view, CGRect end) const;
    CGFloat current(const UIView& view, float end) const;
    UIColor current(const UIView& view, const UIColor& end) const;
    double currentQuarters(const UIView& view, int end) const;
    bool isAnimating(const UIView& view) const;
    /// Whether an animation keeps touches off the view, its delay included.
    bool blocksTouches(const UIView& view) const;
    /// Ends the view's animations before their time.
    void interrupt(const UIView& view);
    /// The same, for a view that is going away.
    void forget(const UIView& view) { interrupt(view); }

private:
    struct Group {
        AnimationSettings settings;
        Completion completion;
        std::vector<id> views; // as they were first changed; compared, never sent to
        double start = 0;
        int running = 0;      // properties still moving
        bool finished = true; // false once one of them was replaced or removed
        std::uint64_t timer = 0;
    };
    using GroupPointer = std::shared_ptr<Group>;
    struct Animation {
        id view = nullptr; // not retained: a view that goes away takes its animations with it
        AnimatedProperty property = AnimatedProperty::Center;
        Values from{};
        GroupPointer group;
    };

    const Animation* find(id view, AnimatedProperty property) const;
    Values currentValues(id view, AnimatedProperty property, const Values& end) const;
    void start(const GroupPointer& group);
    void end(const GroupPointer& group);
    void leave(const GroupPointer& group);

    bool _enabled = true;
    std::vector<GroupPointer> _open;
    std::vector<GroupPointer> _closed; // wait for the outermost block to close
    std::vector<Animation> _animations;
};

} // namespace phone
