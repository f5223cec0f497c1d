#include "phone/uikit/Button.h"

#include "phone/uikit/Color.h"

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

/// What the platform's buttons write in, in points.
constexpr CGFloat systemTitleSize = 15;
constexpr CGFloat customTitleSize = 18;
/// How much of a part stays while the finger is on a button that has no look of its own for that.
constexpr CGFloat dimmedTitle = 0.2;
constexpr CGFloat dimmedPicture = 0.5;

constexpr double disabledGrey = 0.56;

} // namespace

void Button::define(objc::ClassTable<Button>& c) {
    c.classMethod<"buttonWithType:", &Button::withType>()
        .get<"buttonType", &Button::_type>()
        .def<"titleForState:", &Button::titleForState>()
        .def<"setTitle:forState:", &Button::setTitle>()
        .def<"titleColorForState:", &Button::titleColorForState>()
        .def<"setTitleColor:forState:", &Button::setTitleColor>()
        .def<"imageForState:", &Button::imageForState>()
        .def<"setImage:forState:", &Button::setImage>()
        .def<"backgroundImageForState:", &Button::backgroundImageForState>()
        .def<"setBackgroundImage:forState:", &Button::setBackgroundImage>()
        .def<"currentTitle", &Button::currentTitle>()
        .def<"currentTitleColor", &Button::currentTitleColor>()
        .def<"currentImage", &Button::currentImage>()
        .def<"currentBackgroundImage", &Button::currentBackgroundImage>()
        .def<"titleLabel", &Button::titleLabel>()
        .def<"imageView", &Button::imageView>()
        .get<"contentEdgeInsets", &Button::_contentInsets>()
        .def<"setContentEdgeInsets:", &Button::setContentEdgeInsets>()
        .overrides<"_stateChanged", &Button::stateChanged>()
        .overrides<"tintColorDidChange", &Button::tintColorDidChange>()
        .overrides<"layoutSubviews", &Button::layoutSubviews>()
        .overrides<"sizeThatFits:", &Button::sizeThatFits>();
}

UIButton Button::withType(UIButtonType type) {
    const auto button = objc::make<UIButton>();
    of(button)->_type = type;
    return button;
}

// What the states show

template <auto Part>
auto Button::shown(UIControlState state) const -> std::remove_cvref_t<decltype(Look().*Part)> {
    for (const objc::UInt wanted : {objc::UInt(state), objc::UInt(UIControlStateNormal)}) {
        const auto look = _looks.find(wanted);
        if (look != _looks.end() && look->second.*Part) {
            return look->second.*Part;
        }
    }
    return nullptr;
}

void Button::setTitle(const NSString& title, UIControlState state) {
    _looks[state].title = title.send<"copy", NSString>();
    refresh();
}

UIColor Button::titleColorForState(UIControlState state) {
    if (const UIColor own = shown<&Look::titleColor>(state)) {
        return own;
    }
    if (_type == UIButtonType::Custom) {
        return UIColor::white();
    }
    return (state & UIControlStateDisabled) != 0 ? uiColor({disabledGrey, disabledGrey, disabledGrey, 1}) : tintColor();
}

void Button::setTitleColor(const UIColor& color, UIControlState state) {
    _looks[state].titleColor = color;
    refresh();
}

void Button::setImage(const UIImage& image, UIControlState state) {
    _looks[state].image = image;
    refresh();
}

void Button::setBackgroundImage(const UIImage& image, UIControlState state) {
    _looks[state].background = image;
    refresh();
}

void Button::stateChanged() {
    super<"_stateChanged">();
    refresh();
}

void Button::tintColorDidChange() {
    super<"tintColorDidChange">();
    refresh();
}

// The parts

UILabel Button::titleLabel() {
    if (!_titleLabel) {
        _titleLabel = objc::make<UILabel>();
        _titleLabel.setFont(UIFont::system(_type == UIButtonType::Custom ? customTitleSize : systemTitleSize));
        addSubview(_titleLabel);
    }
    return _titleLabel;
}

UIImageView Button::imageView() {
    if (!_imageView) {
        _imageView = objc::make<UIImageView>();
        insertSubview(_imageView, _backgroundView ? 1 : 0);
    }
    return _imageView;
}

bool Button::isDimmed() const {
    if (!isHighlighted()) {
        return false;
    }
    const auto own = _looks.find(state());
    const bool hasOwnLook =
        own != _looks.end() && (own->second.titleColor || own->second.image || own->second.background);
    return !hasOwnLook;
}

void Button::refresh() {
    if (const UIImage background = currentBackgroundImage(); background || _backgroundView) {
        if (!_backgroundView) {
            _backgroundView = UIImageView::withFrame(bounds());
            insertSubview(_backgroundView, 0);
        }
        _backgroundView.setImage(background);
        _backgroundView.setAlpha(isDimmed() ? dimmedPicture : 1);
    }
    if (const UIImage image = currentImage(); image || _imageView) {
        imageView().setImage(image);
        _imageView.setAlpha(isDimmed() || !isEnabled() ? dimmedPicture : 1);
    }
    if (const NSString title = currentTitle(); title || _titleLabel) {
        titleLabel().setText(title);
        _titleLabel.setTextColor(titleColorForState(state()));
        _titleLabel.setAlpha(isDimmed() && _type != UIButtonType::Custom ? dimmedTitle : 1);
    }
    setNeedsLayout();
}

// Layout

void Button::setContentEdgeInsets(const UIEdgeInsets& insets) {
    _contentInsets = insets;
    setNeedsLayout();
}

CGSize Button::contentSize() {
    const CGSize picture = _imageView ? _imageView.image().size() : CGSize();
    const CGSize title = _titleLabel ? _titleLabel.sizeThatFits({INFINITY, INFINITY}) : CGSize();
    return {picture.width + title.width, std::max(picture.height, title.height)};
}

CGSize Button::sizeThatFits(CGSize) {
    const CGSize content = contentSize();
    return {content.width + _contentInsets.left + _contentInsets.right,
            content.height + _contentInsets.top + _contentInsets.bottom};
}

void Button::layoutSubviews() {
    super<"layoutSubviews">();
    _backgroundView.setFrame(bounds());

    const CGRect all = bounds();
    const CGRect area{all.origin.x + _contentInsets.left, all.origin.y + _contentInsets.top,
                      std::max<CGFloat>(0, all.size.width - _contentInsets.left - _contentInsets.right),
                      std::max<CGFloat>(0, all.size.height - _contentInsets.top - _contentInsets.bottom)};
    const CGSize content = contentSize();
    const CGFloat spare = std::max<CGFloat>(0, area.size.width - content.width);
    const auto alignment = contentHorizontalAlignment();
    CGFloat x = area.origin.x;
    if (alignment == UIControlContentHorizontalAlignment::Right) {
        x += spare;
    } else if (alignment == UIControlContentHorizontalAlignment::Center) {
        x += spare / 2;
    }
    auto centred = [&](CGFloat height) { return area.origin.y + (area.size.height - height) / 2; };
    if (_imageView) {
        CGSize size = _imageView.image().size();
        size = {std::min(size.width, area.size.width), std::min(size.height, area.size.height)};
        _imageView.setFrame({{x, centred(size.height)}, size});
        x += size.width;
    }
    if (_titleLabel) {
        CGSize size = _titleLabel.sizeThatFits({INFINITY, INFINITY});
        const CGFloat room = std::max<CGFloat>(0, area.maxX() - x);
        size.width = alignment == UIControlContentHorizontalAlignment::Fill ? room : std::min(size.width, room);
        _titleLabel.setFrame({{x, centred(size.height)}, size});
    }
}

} // namespace phone
