#include "phone/uikit/FindingAttributes.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/ElementAttributes.h"
#include "phone/uikit/KeyboardKeyView.h"
#include "phone/uikit/PickerWheel.h"
#include "phone/uikit/View.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITextView.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace phone {

namespace {

constexpr std::array<std::string_view, 14> publishedClasses = {
    "UIButton", "UIControl",   "UIDatePicker", "UIImageView", "UILabel",         "UINavigationBar", "UIScrollView",
    "UISwitch", "UITableView", "UITextField",  "UIView",      "UITableViewCell", "UITextView",      "UIWindow"};

const char* kindOf(const UIView& view) {
    Class at = object_getClass(view.raw());
    while (at != nullptr &&
           std::find(publishedClasses.begin(), publishedClasses.end(), class_getName(at)) == publishedClasses.end()) {
        at = class_getSuperclass(at);
    }
    return at != nullptr ? class_getName(at) : "UIView";
}

const char* nameOf(KeyboardKey::Kind kind) {
    switch (kind) {
    case KeyboardKey::Kind::Character:
        return "character";
    case KeyboardKey::Kind::Shift:
        return "shift";
    case KeyboardKey::Kind::Backspace:
        return "delete";
    case KeyboardKey::Kind::Plane:
        return "plane";
    case KeyboardKey::Kind::Space:
        return "space";
    case KeyboardKey::Kind::Return:
        return "return";
    case KeyboardKey::Kind::Hide:
        return "hide";
    }
    return "";
}

/// Whether a person would call the view disabled when it takes no touches. Labels and pictures never do.
bool isForTouches(const UIView& view) {
    return objc::isKind<UIControl>(view) || objc::isKind<UITextView>(view) || objc::isKind<UITableViewCell>(view) ||
           PickerWheel::of(view) != nullptr;
}

} // namespace

Responsiveness writeFindingAttributes(pugi::xml_node& element, const UIView& view, const Responsiveness& around) {
    Responsiveness own = around;
    own.takesTouches = around.takesTouches && view.isUserInteractionEnabled();
    if (isForTouches(view)) {
        own.enabled = around.enabled && own.takesTouches;
        if (objc::isKind<UIControl>(view)) {
            own.enabled = own.enabled && objc::as<UIControl>(view).isEnabled();
        }
    }
    writeAttribute(element, "identity", std::to_string(View::of(view)->identity()));
    writeAttribute(element, "kind", kindOf(view));
    writeAttribute(element, "enabled", own.enabled);
    if (const NSString label = view.accessibilityLabel(); label.length() > 0) {
        writeAttribute(element, "accessibilityLabel", text(label));
    }
    if (const KeyboardKeyView* key = KeyboardKeyView::of(view)) {
        writeAttribute(element, "key", nameOf(key->key().kind));
    }
    return own;
}

} // namespace phone
