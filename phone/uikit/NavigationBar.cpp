#include "phone/uikit/NavigationBar.h"

#include "phone/foundation/Arrays.h"
#include "phone/foundation/Raise.h"
#include "phone/uikit/BarBackground.h"
#include "phone/uikit/NavigationButton.h"
#include "phone/uikit/NavigationItem.h"
#include "phone/uikit/SystemWords.h"
#include "platform/uikit/UILabel.h"

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

constexpr double titleSize = 17;
constexpr double titleGap = 6; // points between the title and a button

/// Whether the bar has made it, for an item without a view of its own.
bool isOwnButton(const UIView& part) { return objc::isKind<UIButton>(part) && NavigationButton::of(part) != nullptr; }

double marginBeside(const UIView& part) {
    return isOwnButton(part) ? NavigationBar::margin : NavigationBar::customMargin;
}

} // namespace

void NavigationBar::define(objc::ClassTable<NavigationBar>& c) {
    c.init<"initWithFrame:", &NavigationBar::initWithFrame>()
        .def<"items", &NavigationBar::items>()
        .def<"setItems:", &NavigationBar::setItems>()
        .def<"setItems:animated:", &NavigationBar::setItemsAnimated>()
        .def<"topItem", &NavigationBar::topItem>()
        .def<"backItem", &NavigationBar::backItem>()
        .def<"pushNavigationItem:animated:", &NavigationBar::pushItem>()
        .def<"popNavigationItemAnimated:", &NavigationBar::popItem>()
        .def<"_itemChanged", &NavigationBar::rebuild>()
        .action<"_back:", &NavigationBar::back>()
        .overrides<"layoutSubviews", &NavigationBar::layoutSubviews>()
        .overrides<"sizeThatFits:", &NavigationBar::sizeThatFits>();
}

NavigationBar::~NavigationBar() {
    for (const UINavigationItem& item : _items) {
        NavigationItem::of(item)->setBar(nullptr);
    }
}

void NavigationBar::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    _background = objc::as<UIView>(objc::make<objc::Ref<BarBackground>, "initWithFrame:">(bounds()));
    addSubview(_background);
}

// The items

NSArray NavigationBar::items() const { return arrayOf(_items); }

void NavigationBar::setItems(const NSArray& items) {
    if (_manager) {
        raise("NSInternalInconsistencyException",
              "Cannot call setItems:animated: directly on a UINavigationBar managed by a controller.");
    }
    show(vectorOf<UINavigationItem>(items));
}

UINavigationItem NavigationBar::itemFromTop(std::size_t index) const {
    return index < _items.size() ? _items[_items.size() - 1 - index] : UINavigationItem();
}

void NavigationBar::pushItem(const UINavigationItem& item, bool) {
    auto all = _items;
    all.push_back(item);
    show(all);
}

UINavigationItem NavigationBar::popItem(bool) {
    const UINavigationItem popped = topItem();
    auto all = _items;
    if (!all.empty()) {
        all.pop_back();
    }
    show(all);
    return popped;
}

void NavigationBar::show(const std::vector<UINavigationItem>& items) {
    const auto before = std::move(_items);
    _items = items;
    for (const UINavigationItem& item : before) {
        if (NavigationItem::of(item)->bar().raw() == raw()) {
            NavigationItem::of(item)->setBar(nullptr);
        }
    }
    for (const UINavigationItem& item : _items) {
        NavigationItem::of(item)->setBar(*this);
    }
    rebuild();
}

void NavigationBar::back(const objc::Object&) {
    if (_manager) {
        _manager.get().send<"_barWentBack">();
    } else {
        send<"popNavigationItemAnimated:", UINavigationItem>(true);
    }
}

// What they look like

UIView NavigationBar::viewOf(const UIBarButtonItem& item) const {
    if (!item) {
        return nullptr;
    }
    const UIView custom = item.customView();
    return custom ? custom : UIView(NavigationButton::with(item));
}

void NavigationBar::rebuild() {
    for (const UIView& part : {_title, _left, _right}) {
        if (part.superview() == *this) {
            part.removeFromSuperview();
        }
    }
    _title = _left = _right = nullptr;
    const NavigationItem* top = NavigationItem::of(topItem());
    if (top == nullptr) {
        return;
    }
    _title = top->titleView();
    if (!_title) {
        const auto label = objc::make<UILabel>();
        label.setText(top->title());
        label.setFont(UIFont::boldSystem(titleSize));
        label.setTextAlignment(NSTextAlignment::Center);
        _title = label;
    }
    addSubview(_title);
    _left = viewOf(top->leftBarButtonItem());
    if (!_left && backItem() && !top->hidesBackButton()) {
        addBackButton(backItem());
    }
    if (_left) {
        addSubview(_left);
    }
    _right = viewOf(top->rightBarButtonItem());
    if (_right) {
        addSubview(_right);
    }
    setNeedsLayout();
}

void NavigationBar::addBackButton(const UINavigationItem& item) {
    const UIBarButtonItem own = NavigationItem::of(item)->backBarButtonItem();
    NSString title = own ? own.title() : item.title();
    if (title.length() == 0) {
        title = backWord();
    }
    _left = NavigationButton::leadingBack(title, *this, objc::selector<"_back:">());
}

void NavigationBar::setBackgroundOverhang(double points) {
    if (_overhang != points) {
        _overhang = points;
        setNeedsLayout();
    }
}

CGSize NavigationBar::sizeThatFits(CGSize size) const { return {size.width, height}; }

void NavigationBar::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize size = bounds().size;
    _background.setFrame({0, -_overhang, size.width, size.height + _overhang});

    auto place = [&](const UIView& part, double x) {
        const CGSize own = part.bounds().size;
        part.setFrame({{x, (size.height - own.height) / 2}, own});
    };
    for (const UIView& part : {_left, _right}) {
        if (isOwnButton(part)) {
            part.sizeToFit(); // a custom view keeps its own size
        }
    }
    double left = margin;
    double right = size.width - margin;
    if (_left) {
        left = marginBeside(_left);
        place(_left, left);
        left += _left.bounds().size.width + titleGap;
    }
    if (_right) {
        right = size.width - marginBeside(_right) - _right.bounds().size.width;
        place(_right, right);
        right -= titleGap;
    }
    if (_title) {
        const bool isLabel = _title != NavigationItem::of(topItem())->titleView();
        CGSize wanted = isLabel ? _title.sizeThatFits({INFINITY, size.height}) : _title.bounds().size;
        wanted.width = std::clamp<double>(std::ceil(wanted.width), 0, std::max(0.0, right - left));
        wanted.height = std::min<double>(wanted.height, size.height);
        const double centred = (size.width - wanted.width) / 2;
        const double x = std::max(left, std::min(centred, right - wanted.width));
        _title.setFrame({x, (size.height - wanted.height) / 2, wanted.width, wanted.height});
    }
}

} // namespace phone
