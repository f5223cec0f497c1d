#include "Quorvan/common/WaysBack.h"

#include "Quorvan/common/ScreenState.h"
#include "platform/uikit/UINavigationController.h"

namespace quorvan {

void popToCompose(const UIViewController& chooser, Reload rows) {
    if (rows == Reload::BeforeThePop) {
        accountName->reloadData();
    }
    chooser.navigationController().popToRoot(true);
    if (rows == Reload::AfterThePop) {
        accountName->reloadData();
    }
}

void popToSecond(const UIViewController& chooser) {
    const UINavigationController navigation = chooser.navigationController();
    navigation.popTo(navigation.viewControllers().at<UIViewController>(1), true);
}

} // namespace quorvan
