#include "phone/uikit/BarButtonItem.h"

#include "phone/uikit/NavigationButton.h"
#include "platform/uikit/UIApplication.h"

namespace phone {

void BarButtonItem::define(objc::ClassTable<BarButtonItem>& c) {
    c.init<"initWithTitle:style:target:action:", &BarButtonItem::initWithTitle>()
        .init<"initWithCustomView:", &BarButtonItem::initWithCustomView>()
        .get<"title", &BarButtonItem::_title>()
        .def<"setTitle:", &BarButtonItem::setTitle>()
        .get<"style", &BarButtonItem::_style>()
        .def<"setStyle:", &BarButtonItem::setStyle>()
        .get<"target", &BarButtonItem::_target>()
        .set<"setTarget:", &BarButtonItem::_target>()
        .get<"action", &BarButtonItem::_action>()
        .set<"setAction:", &BarButtonItem::_action>()
        .get<"customView", &BarButtonItem::_customView>()
        .get<"isEnabled", &BarButtonItem::_enabled>()
        .def<"setEnabled:", &BarButtonItem::setEnabled>();
}

void BarButtonItem::initWithTitle(const NSString& title, objc::Int style, const objc::Unretained<objc::Object>& target,
                                  SEL action) {
    super<"init">();
    _title = title;
    _style = style;
    _target = target;
    _action = action;
}

void BarButtonItem::initWithCustomView(const UIView& view) {
    super<"init">();
    _customView = view;
}

void BarButtonItem::setTitle(const NSString& title) {
    _title = title;
    show();
}

void BarButtonItem::setStyle(objc::Int style) {
    _style = style;
    show();
}

void BarButtonItem::setEnabled(bool enabled) {
    _enabled = enabled;
    show();
}

void BarButtonItem::show() {
    if (NavigationButton* shown = NavigationButton::of(_button.raw())) {
        shown->refresh();
    }
}

void BarButtonItem::sendAction() {
    if (_action != nullptr) {
        UIApplication::shared().sendAction(_action, _target.get(), *this, nullptr);
    }
}

} // namespace phone
