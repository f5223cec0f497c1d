#include "phone/uikit/NavigationButton.h"

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/BarButtonItem.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/NavigationBar.h"

#include <cmath>

namespace phone {

namespace {

constexpr double titleSize = 17;
constexpr double buttonHeight = 30;
constexpr double pressedAlpha = 0.3;
constexpr Color disabledColor{0.8, 0.8, 0.8, 1};

constexpr double chevronWidth = 12;
constexpr double chevronHeight = 20;
constexpr double chevronLine = 3;
constexpr double chevronGap = 6;

} // namespace

void NavigationButton::define(objc::ClassTable<NavigationButton>& c) {
    c.action<"_press:", &NavigationButton::press>()
        .overrides<"pointInside:withEvent:", &NavigationButton::pointInside>()
        .overrides<"layoutSubviews", &NavigationButton::layoutSubviews>()
        .overrides<"tintColorDidChange", &NavigationButton::tintColorDidChange>()
        .overrides<"_drawContent:", &NavigationButton::drawContent>()
        .overrides<"sizeThatFits:", &NavigationButton::sizeThatFits>();
}

NavigationButton::~NavigationButton() {
    if (BarButtonItem* item = BarButtonItem::of(_item); item != nullptr && item->button().raw() == raw()) {
        item->setButton(nullptr);
    }
}

UIButton NavigationButton::with(const UIBarButtonItem& item) {
    const auto button = objc::make<objc::Ref<NavigationButton>>();
    button->_item = item;
    BarButtonItem::of(item)->setButton(objc::as<UIButton>(button));
    objc::as<UIButton>(button).addTarget(button, objc::selector<"_press:">(), UIControlEventTouchUpInside);
    button->refresh();
    return objc::as<UIButton>(button);
}

UIButton NavigationButton::leadingBack(const NSString& title, const objc::Object& target, SEL action) {
    const auto made = objc::make<objc::Ref<NavigationButton>>();
    made->_leadsBack = true;
    const auto button = objc::as<UIButton>(made);
    button.setTitle(title, UIControlStateNormal);
    button.titleLabel().setFont(UIFont::system(titleSize));
    button.addTarget(target, action, UIControlEventTouchUpInside);
    made->setTitleColors();
    return button;
}

void NavigationButton::refresh() {
    setTitle(_item.title(), UIControlStateNormal);
    titleLabel().setFont(_item.style() == BarButtonItem::Done ? UIFont::boldSystem(titleSize)
                                                              : UIFont::system(titleSize));
    setEnabled(_item.isEnabled());
    setTitleColors();
    superview().setNeedsLayout();
}

void NavigationButton::setTitleColors() {
    Color color = colorOf(tintColor());
    setTitleColor(uiColor(color), UIControlStateNormal);
    color.alpha *= pressedAlpha;
    setTitleColor(uiColor(color), UIControlStateHighlighted);
    setTitleColor(uiColor(disabledColor), UIControlStateDisabled);
}

void NavigationButton::tintColorDidChange() {
    super<"tintColorDidChange">();
    setTitleColors();
}

void NavigationButton::press(const objc::Object&) {
    if (BarButtonItem* item = BarButtonItem::of(_item)) {
        const UIBarButtonItem kept = _item;
        item->sendAction();
    }
}

bool NavigationButton::pointInside(CGPoint point, const UIEvent&) {
    const CGRect own = bounds();
    const double above = (NavigationBar::height - buttonHeight) / 2;
    return CGRect(own.origin.x - NavigationBar::margin, own.origin.y - above,
                  own.size.width + 2 * NavigationBar::margin, own.size.height + 2 * above)
        .contains(point);
}

CGSize NavigationButton::sizeThatFits(CGSize) {
    const CGSize title = titleLabel().sizeThatFits({INFINITY, INFINITY});
    return {std::ceil(title.width) + (_leadsBack ? chevronWidth + chevronGap : 0), buttonHeight};
}

void NavigationButton::layoutSubviews() {
    super<"layoutSubviews">();
    if (_leadsBack) {
        const double start = chevronWidth + chevronGap;
        titleLabel().setFrame({start, 0, bounds().size.width - start, bounds().size.height});
    }
}

void NavigationButton::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (!_leadsBack || painter == nullptr) {
        return;
    }
    const double middle = bounds().size.height / 2;
    const double half = chevronHeight / 2;
    painter->polyline({{chevronWidth - chevronLine / 2, middle - half + chevronLine / 2},
                       {chevronLine / 2, middle},
                       {chevronWidth - chevronLine / 2, middle + half - chevronLine / 2}},
                      colorOf(titleColorForState(state())), chevronLine);
}

} // namespace phone
