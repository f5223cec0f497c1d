#include "phone/device/Settings.h"
#include "phone/uikit/Activity.h"
#include "phone/uikit/ActivityIcon.h"
#include "phone/uikit/ActivityTile.h"
#include "phone/uikit/ActivityTypes.h"
#include "phone/uikit/ActivityViewController.h"
#include "phone/uikit/BarBackground.h"
#include "phone/uikit/BarButtonItem.h"
#include "phone/uikit/LayoutContainerView.h"
#include "phone/uikit/NavigationBar.h"
#include "phone/uikit/NavigationButton.h"
#include "phone/uikit/NavigationController.h"
#include "phone/uikit/NavigationItem.h"
#include "phone/uikit/PopoverArrow.h"
#include "phone/uikit/PopoverPresentationController.h"
#include "phone/uikit/Register.h"

namespace phone {

void registerControllerClasses() {
    if (settings().system.number >= 8) {
        PopoverPresentationController::definedClass();
    }
    PopoverArrow::definedClass();
    ViewController::definedClass();
    LayoutContainerView::definedClass();
    BarBackground::definedClass();
    BarButtonItem::definedClass();
    NavigationButton::definedClass();
    NavigationItem::definedClass();
    NavigationBar::definedClass();
    NavigationController::definedClass();
    Activity::definedClass();
    ActivityIcon::definedClass();
    ActivityTile::definedClass();
    ActivityViewController::definedClass();
    setActivityTypes();
}

} // namespace phone
