#include "Quorvan/common/Panel.h"

#include "Quorvan/common/NewerSystems.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/note/LineCreator.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIScreen.h"

namespace quorvan {

bool isTablet() {
    const auto device = UIDevice::current();
    return objc::responds<"userInterfaceIdiom">(device) && device.userInterfaceIdiom() == 1;
}

CGFloat hairline() { return isTablet() ? 1 : 0.5; }

UIColor grey() { return UIColor::rgba(192 / 255.0, 192 / 255.0, 192 / 255.0, 1); }

CGSize notePanelSize() { return isTablet() ? CGSize{538, 250} : CGSize{panelWidth, 225}; }

CGPoint quarterOrigin(CGFloat panelHeight) {
    return {panelOrigin.x, (UIScreen::main().bounds().size.height - panelHeight) / 4};
}

UIView makePanel(CGSize size, CGPoint origin) {
    const auto panel = UIView::withFrame({origin, size});
    panel.setBackgroundColor(UIColor::white());
    stayLight(panel);
    return panel;
}

UINavigationBar makeBar(CGFloat width) { return UINavigationBar::withFrame({0, 0, width, barHeight}); }

void roundCorners(const UIView& panel) {
    panel.layer().setCornerRadius(5);
    panel.layer().setMasksToBounds(true);
}

void addSeparator(const UIView& panel, CGRect frame) {
    const UIView line = objc::make<objc::Ref<LineCreator>, "initWithFrame:">(frame);
    line.setBackgroundColor(grey());
    panel.addSubview(line);
}

UIImageView addBackdrop(const UIView& screen, CGRect frame) {
    const auto backdrop = UIImageView::withFrame(frame);
    backdrop.setImage(picture("bg.png"));
    screen.addSubview(backdrop);
    return backdrop;
}

UINavigationItem addComposeBar(const UIView& panel, const objc::Object& screen, const NSString& title) {
    const auto bar = makeBar(panel.frame().size.width);
    const auto cancelItem = UIBarButtonItem::withTitle(localized("Cancel"), 1, screen, objc::selector<"cancel:">());
    const auto doneItem = UIBarButtonItem::withTitle(localized("Done"), 1, screen, objc::selector<"done:">());
    // Deliberate, though the bar has no item yet and nothing hears it.
    bar.topItem().setTitle(title);
    bar.topItem().setLeftBarButtonItem(cancelItem);
    bar.topItem().setRightBarButtonItem(doneItem);
    const auto item = UINavigationItem::withTitle(title);
    item.setRightBarButtonItem(doneItem);
    item.setLeftBarButtonItem(cancelItem);
    bar.setItems(NSArray::of(item));
    panel.addSubview(bar);
    return item;
}

void setEverythingHidden(const UIView& screen, bool hidden) {
    for (const auto& subview : screen.subviews()) {
        objc::as<UIView>(subview).setHidden(hidden);
    }
}

CGPoint centerAboveKeyboard(const UIView& screen, CGFloat keyboardHeight) {
    const CGRect frame = screen.frame();
    return CGRect(frame.origin, {frame.size.width, frame.size.height - keyboardHeight}).center();
}

void removeEverything(const UIView& screen) {
    for (const auto& subview : screen.subviews()) {
        objc::as<UIView>(subview).removeFromSuperview();
    }
}

void fade(const UIView& panel, CGFloat alpha, void (^completion)()) {
    UIView::animate(
        0.3, 0, UIViewAnimationOptionAllowUserInteraction,
        ^{
          panel.setAlpha(alpha);
        },
        ^(bool) {
          if (completion != nullptr) {
              completion();
          }
        });
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
