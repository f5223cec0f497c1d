#include "Quorvan/common/Screen.h"

#include "Quorvan/common/Resources.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIScreen.h"

namespace quorvan {

namespace {

// A tablet turns most screens without building them anew.
constexpr auto coversTheScreen = UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
constexpr auto keepsItsPlace =
    UIViewAutoresizing(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                       UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin);

} // namespace

UIImageView addBackdrop(const UIView& view, CGRect frame) {
    const auto backdrop = UIImageView::withFrame(frame);
    backdrop.setImage(picture("bg.png"));
    view.addSubview(backdrop);
    return backdrop;
}

void titleScreen(const UIViewController& screen, const NSString& title) {
    screen.setTitle(title);
    screen.navigationController().setNavigationBarHidden(true, false);
}

void startScreen(const UIViewController& screen, const NSString& title) {
    const auto backdrop = addBackdrop(screen.view(), {{0, 0}, UIScreen::main().bounds().size});
    backdrop.setAutoresizingMask(coversTheScreen);
    titleScreen(screen, title);
}

void showPanel(const UIViewController& screen, const UIView& panel) {
    panel.setCenter(screen.view().center());
    panel.setAutoresizingMask(keepsItsPlace);
    screen.view().addSubview(panel);
}

void setEverythingHidden(const UIView& view, bool hidden) {
    for (const auto& subview : view.subviews()) {
        objc::as<UIView>(subview).setHidden(hidden);
    }
}

void removeEverything(const UIView& view) {
    for (const auto& subview : view.subviews()) {
        objc::as<UIView>(subview).removeFromSuperview();
    }
}

} // namespace quorvan
