#include "Quorvan/common/NewerSystems.h"

namespace quorvan {

void stayLight(const UIView& panel) {
    if (objc::responds<"setOverrideUserInterfaceStyle:">(panel)) {
        panel.setOverrideUserInterfaceStyle(UIUserInterfaceStyle::Light);
    }
}

void coverScreen(const UIViewController& screen) {
    if (objc::responds<"setModalPresentationStyle:">(screen)) {
        screen.setModalPresentationStyle(UIModalPresentationStyle::FullScreen);
    }
}

void keepWheels(const UIDatePicker& picker) {
    if (objc::responds<"setPreferredDatePickerStyle:">(picker)) {
        picker.setPreferredDatePickerStyle(UIDatePickerStyle::Wheels);
    }
}

} // namespace quorvan
