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

UINavigationItem addComposeBar(const UIView& panel, const objc::Object& screen, const NSString& title) {
    const auto bar = makeBar(panel.frame().size.width);
    const auto cancelItem = UIBarButtonItem::withTitle(localized("Cancel"), 1, screen, objc::selector<"cancel:">());
    const auto doneItem = UIBarButtonItem::withTitle(localized("Done"), 1, screen, objc::selector<"done:">());
    // Nobody hears this as long as a new bar has no item. On a system that gives it one, that item reads the same.
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

void roundCorners(const UIView& panel) {
    panel.layer().setCornerRadius(5);
    panel.layer().setMasksToBounds(true);
}

void addSeparator(const UIView& panel, CGRect frame) {
    const UIView line = objc::make<objc::Ref<LineCreator>, "initWithFrame:">(frame);
    line.setBackgroundColor(grey());
    panel.addSubview(line);
}

} // namespace quorvan
