/// Controllers shown on top of controllers: how one comes, how it goes, and who is told.
#pragma once

#include "platform/uikit/UIViewController.h"

#include <functional>
#include <vector>

namespace phone::presentation {

/// How long the cover-vertical transition takes, in seconds.
inline constexpr double coverDuration = 0.4;

/// `presentViewController:animated:completion:`. Raises NSInvalidArgumentException for a nil controller and
/// for one that is presented already. While a transition is under way, or when the presenter is in no
/// window or presents already, it warns on standard error and does nothing; the completion then never runs.
void present(const UIViewController& presenter, const UIViewController& presented, bool animated,
             const objc::Block<void()>& completion);

/// `dismissViewControllerAnimated:completion:`: removes everything above the controller, or, when nothing
/// is, the controller itself. While a transition is under way it warns and does nothing.
void dismiss(const UIViewController& controller, bool animated, const objc::Block<void()>& completion);

/// Runs the work as soon as no transition is under way: at once when none is.
void whenIdle(std::function<void()> work);

/// Called after each transition, when its completion has run. Replaces the one before.
void setObserver(std::function<void()> observer);

/// What can be seen of a window with this root, lowest first: the topmost controller that fills the screen, and
/// what lies over that.
std::vector<UIViewController> visibleFrom(const UIViewController& root);

/// Whether something is on its way onto the screen or off it.
bool isUnderWay();

} // namespace phone::presentation
