// The part of View that moves views in and out of the tree.

#include "phone/foundation/Arrays.h"
#include "phone/foundation/Raise.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/GestureRecognizer.h"
#include "phone/uikit/View.h"

#include <algorithm>
#include <atomic>

namespace phone {

std::uint64_t View::nextIdentity() {
    static std::atomic<std::uint64_t> last = 0; // views are also made on other threads
    return ++last;
}

View::~View() {
    Animator::shared().forget(*this);
    for (const UIView& child : _subviews) {
        if (View* peer = of(child)) {
            peer->_superview = nullptr;
        }
    }
    for (const UIGestureRecognizer& recognizer : _recognizers) {
        if (auto* peer = GestureRecognizer::of(recognizer)) {
            peer->setView(nullptr);
        }
    }
}

NSArray View::subviews() const { return arrayOf(_subviews); }

UIWindow View::window() const {
    const View* top = this;
    while (const View* above = of(top->_superview.raw())) {
        top = above;
    }
    return objc::isKind<UIWindow>(*top) ? objc::borrow<UIWindow>(top->raw()) : UIWindow();
}

bool View::isDescendantOfView(const UIView& view) const {
    for (const View* at = this; at != nullptr; at = of(at->_superview.raw())) {
        if (at->raw() == view.raw()) {
            return true;
        }
    }
    return false;
}

UIView View::viewWithTag(objc::Int tag) const {
    if (send<"tag", objc::Int>() == tag) {
        return *this;
    }
    for (const UIView& child : _subviews) {
        if (UIView found = child.send<"viewWithTag:", UIView>(tag)) {
            return found;
        }
    }
    return nullptr;
}

void View::addSubview(const UIView& view) { place(view, _subviews.size()); }

void View::insertSubview(const UIView& view, objc::Int index) {
    const auto last = static_cast<objc::Int>(_subviews.size());
    place(view, static_cast<std::size_t>(std::clamp<objc::Int>(index, 0, last)));
}

void View::insertSubviewBelow(const UIView& view, const UIView& sibling) {
    const auto at = std::find(_subviews.begin(), _subviews.end(), sibling);
    place(view, static_cast<std::size_t>(at - _subviews.begin()));
}

void View::insertSubviewAbove(const UIView& view, const UIView& sibling) {
    const auto at = std::find(_subviews.begin(), _subviews.end(), sibling);
    place(view, static_cast<std::size_t>(at - _subviews.begin()) + (at == _subviews.end() ? 0 : 1));
}

void View::bringSubviewToFront(const UIView& view) {
    if (view.superview() == *this) {
        place(view, _subviews.size());
    }
}

void View::sendSubviewToBack(const UIView& view) {
    if (view.superview() == *this) {
        place(view, 0);
    }
}

void View::place(const UIView& view, std::size_t index) {
    View* child = of(view);
    if (child == nullptr) {
        return;
    }
    if (isDescendantOfView(view)) {
        raise("NSInvalidArgumentException", "a view can be added neither to itself nor to what is inside it");
    }
    const UIView kept = objc::borrow<UIView>(child->raw());
    if (child->_superview.raw() == raw()) {
        const auto now = std::find(_subviews.begin(), _subviews.end(), kept);
        const auto from = static_cast<std::size_t>(now - _subviews.begin());
        _subviews.erase(now);
        _subviews.insert(_subviews.begin() + static_cast<std::ptrdiff_t>(from < index ? index - 1 : index), kept);
        return;
    }
    const UIWindow before = child->window();
    const UIWindow after = window();
    const bool moves = before != after;
    if (moves) {
        tellWillMove(kept, after);
    }
    kept.send<"willMoveToSuperview:">(static_cast<const UIView&>(*this));
    child->detach();
    child->_superview = static_cast<const UIView&>(*this);
    _subviews.insert(_subviews.begin() + static_cast<std::ptrdiff_t>(std::min(index, _subviews.size())), kept);
    if (moves) {
        tellDidMove(kept);
    }
    kept.send<"didMoveToSuperview">();
    send<"didAddSubview:">(kept);
    send<"setNeedsLayout">();
    kept.setNeedsLayout();
}

void View::removeFromSuperview() {
    View* above = of(_superview.raw());
    if (above == nullptr) {
        return;
    }
    const objc::Keep kept(raw());
    const objc::Keep parent(above->raw());
    const bool moves = static_cast<bool>(window());
    if (moves) {
        tellWillMove(*this, nullptr);
    }
    send<"willMoveToSuperview:">(UIView());
    detach();
    if (moves) {
        tellDidMove(*this);
    }
    send<"didMoveToSuperview">();
}

/// Leaves the superview without telling this view.
void View::detach() {
    View* above = of(_superview.raw());
    if (above == nullptr) {
        return;
    }
    const UIView self = objc::borrow<UIView>(raw());
    above->send<"willRemoveSubview:">(self);
    auto& siblings = above->_subviews;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), self), siblings.end());
    _superview = nullptr;
    above->send<"setNeedsLayout">();
}

void View::tellWillMove(const UIView& view, const UIWindow& window) {
    view.send<"willMoveToWindow:">(window);
    if (const View* peer = of(view)) {
        const auto children = peer->_subviews;
        for (const UIView& child : children) {
            tellWillMove(child, window);
        }
    }
}

void View::tellDidMove(const UIView& view) {
    if (View* peer = of(view)) {
        if (!peer->window()) {
            peer->takeFirstResponderAway();
            Animator::shared().interrupt(*peer);
        }
        view.send<"didMoveToWindow">();
        const auto children = peer->_subviews;
        for (const UIView& child : children) {
            tellDidMove(child);
        }
    }
}

/// What is in no window receives no keys; its delegate is told but not asked.
void View::takeFirstResponderAway() {
    if (Responder::first() == *this) {
        Responder::of(raw())->forceResign();
    }
}

void View::willMoveToWindow(const UIWindow& window) {
    const UIViewController owner = controller();
    if (objc::responds<"viewWillMoveToWindow:">(owner)) {
        owner.send<"viewWillMoveToWindow:">(window);
    }
}

void View::didMoveToWindow() {
    const UIViewController owner = controller();
    if (objc::responds<"viewDidMoveToWindow:">(owner)) {
        owner.send<"viewDidMoveToWindow:">(window());
    }
}

} // namespace phone
