#include "phone/uikit/NavigationItem.h"

namespace phone {

void NavigationItem::define(objc::ClassTable<NavigationItem>& c) {
    c.init<"initWithTitle:", &NavigationItem::initWithTitle>()
        .get<"title", &NavigationItem::_title>()
        .def<"setTitle:", &NavigationItem::setTitle>()
        .get<"titleView", &NavigationItem::_titleView>()
        .def<"setTitleView:", &NavigationItem::setTitleView>()
        .get<"leftBarButtonItem", &NavigationItem::_left>()
        .def<"setLeftBarButtonItem:", &NavigationItem::setLeft>()
        .def<"setLeftBarButtonItem:animated:", &NavigationItem::setLeftAnimated>()
        .get<"rightBarButtonItem", &NavigationItem::_right>()
        .def<"setRightBarButtonItem:", &NavigationItem::setRight>()
        .def<"setRightBarButtonItem:animated:", &NavigationItem::setRightAnimated>()
        .get<"backBarButtonItem", &NavigationItem::_back>()
        .def<"setBackBarButtonItem:", &NavigationItem::setBack>()
        .get<"hidesBackButton", &NavigationItem::_hidesBack>()
        .def<"setHidesBackButton:", &NavigationItem::setHidesBack>();
}

void NavigationItem::initWithTitle(const NSString& title) {
    super<"init">();
    _title = title;
}

void NavigationItem::setTitle(const NSString& title) {
    _title = title;
    changed();
}

void NavigationItem::setTitleView(const UIView& view) {
    _titleView = view;
    changed();
}

void NavigationItem::setLeft(const UIBarButtonItem& item) {
    _left = item;
    changed();
}

void NavigationItem::setRight(const UIBarButtonItem& item) {
    _right = item;
    changed();
}

void NavigationItem::setBack(const UIBarButtonItem& item) {
    _back = item;
    changed();
}

void NavigationItem::setHidesBack(bool hides) {
    _hidesBack = hides;
    changed();
}

void NavigationItem::changed() { _bar.get().send<"_itemChanged">(); }

} // namespace phone
