#include "Quorvan/common/Motion.h"

namespace quorvan {

namespace {

void fade(const UIView& panel, CGFloat alpha, void (^completion)(bool)) {
    UIView::animate(
        0.3, 0, UIViewAnimationOptionAllowUserInteraction,
        ^{
          panel.setAlpha(alpha);
        },
        completion);
}

} // namespace

void fadeIn(const UIView& panel) { fade(panel, 1, nullptr); }

void fadeOut(const UIView& panel, const UIActivity& activity) {
    const UIActivity ended = activity; // which the completion keeps: the screen may be gone by then
    fade(panel, 0, ^(bool) {
      ended.activityDidFinish(true);
    });
}

CGPoint centerAboveKeyboard(const UIView& view, CGFloat keyboardHeight) {
    const CGRect frame = view.frame();
    return CGRect(frame.origin, {frame.size.width, frame.size.height - keyboardHeight}).center();
}

void glide(const char* name, void (^change)()) {
    UIView::beginAnimations(NSString::utf8(name));
    UIView::setAnimationCurve(UIViewAnimationCurve::EaseIn);
    UIView::setAnimationDuration(0.27);
    change();
    UIView::commitAnimations();
}

void glide(const char* name, const UIView& view, CGPoint center) {
    glide(name, ^{
      view.setCenter(center);
    });
}

} // namespace quorvan
