#include "phone/uikit/TableViewCell.h"

#include "phone/device/Settings.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/TableParts.h"
#include "phone/uikit/TableView.h"

#include <algorithm>
#include <utility>

namespace phone {

namespace {

constexpr CGFloat defaultWidth = 320;
constexpr CGFloat textSize = 18;
/// Between a picture and the text, between the content and the accessory, and at the text's end before it.
constexpr CGFloat pictureGap = 15;
constexpr CGFloat accessoryGap = 10;
constexpr CGFloat textEnd = 2;
/// How long a deselected row takes to fade, in seconds.
constexpr double fadeSeconds = 0.3;

constexpr Color selectedColor{217 / 255.0, 217 / 255.0, 217 / 255.0, 1};

} // namespace

void TableViewCell::define(objc::ClassTable<TableViewCell>& c) {
    c.init<"initWithFrame:", &TableViewCell::initWithFrame>()
        .init<"initWithStyle:reuseIdentifier:", &TableViewCell::initWithStyle>()
        .def<"reuseIdentifier", &TableViewCell::reuseIdentifier>()
        .def<"contentView", &TableViewCell::contentView>()
        .def<"textLabel", &TableViewCell::textLabel>()
        .def<"imageView", &TableViewCell::imageView>()
        .def<"accessoryType", &TableViewCell::accessoryType>()
        .def<"setAccessoryType:", &TableViewCell::setAccessoryType>()
        .def<"accessoryView", &TableViewCell::accessoryView>()
        .def<"setAccessoryView:", &TableViewCell::setAccessoryView>()
        .def<"selectedBackgroundView", &TableViewCell::selectedBackgroundView>()
        .def<"setSelectedBackgroundView:", &TableViewCell::setSelectedBackgroundView>()
        .def<"isSelected", &TableViewCell::isSelected>()
        .def<"setSelected:", &TableViewCell::setSelected>()
        .def<"setSelected:animated:", &TableViewCell::setSelectedAnimated>()
        .def<"isHighlighted", &TableViewCell::isHighlighted>()
        .def<"setHighlighted:", &TableViewCell::setHighlightedPlain>()
        .def<"setHighlighted:animated:", &TableViewCell::setHighlighted>()
        .def<"prepareForReuse", &TableViewCell::prepareForReuse>()
        .overrides<"layoutSubviews", &TableViewCell::layoutSubviews>();
}

void TableViewCell::initWithFrame(CGRect frame) {
    initWithStyle(0, nullptr);
    setFrame(frame);
}

void TableViewCell::initWithStyle(objc::Int, const NSString& identifier) {
    super<"initWithFrame:">(CGRect(0, 0, defaultWidth, TableView::defaultRowHeight));
    _identifier = identifier.send<"copy", NSString>();
    setBackgroundColor(UIColor::white());
    if (settings().system.number < 8) {
        _scroll = objc::as<UIView>(objc::Ref<TableCellScrollView>::make());
        objc::as<UIScrollView>(_scroll).setScrollEnabled(false);
        addSubview(_scroll);
    }
    _content = objc::as<UIView>(objc::Ref<TableCellContentView>::make());
    _separator = objc::as<UIView>(objc::Ref<TableCellSeparator>::make());
    _separator.setBackgroundColor(separatorColor());
    _separator.setUserInteractionEnabled(false);
    inside().addSubview(_content);
    inside().addSubview(_separator);
}

// Content

UILabel TableViewCell::textLabel() {
    if (!_textLabel) {
        _textLabel = objc::make<UILabel>();
        _textLabel.setFont(UIFont::system(textSize));
        _content.addSubview(_textLabel);
        setNeedsLayout();
    }
    return _textLabel;
}

UIImageView TableViewCell::imageView() {
    if (!_imageView) {
        _imageView = objc::make<UIImageView>();
        _content.addSubview(_imageView);
        setNeedsLayout();
    }
    return _imageView;
}

void TableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
    if (type == _accessoryType) {
        return;
    }
    _accessoryType = type;
    _mark.removeFromSuperview();
    _mark = TableCellMark::make(type);
    if (_mark && !_accessoryView) {
        inside().addSubview(_mark);
    }
    setNeedsLayout();
}

void TableViewCell::setAccessoryView(const UIView& view) {
    if (view == _accessoryView) {
        return;
    }
    if (_accessoryView.superview() == inside()) { // another cell may have taken it
        _accessoryView.removeFromSuperview();
    }
    _accessoryView = view;
    if (_accessoryView) {
        _mark.removeFromSuperview();
        inside().addSubview(_accessoryView);
    } else if (_mark) {
        inside().addSubview(_mark);
    }
    setNeedsLayout();
}

void TableViewCell::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize size = bounds().size;
    _scroll.setFrame({{}, size});
    _selectedBackground.setFrame({{}, size});
    const CGFloat height = std::max<CGFloat>(0, size.height - TableView::hairline);
    _separator.setFrame({TableView::margin, height, size.width - TableView::margin, TableView::hairline});

    CGFloat contentEnd = size.width;
    CGFloat textMargin = TableView::margin;
    if (const UIView view = accessory(); view && view.superview() == inside()) {
        const CGSize own = view.bounds().size;
        const CGFloat x = size.width - TableView::margin - own.width;
        view.setFrame({{x, (size.height - own.height) / 2}, own});
        contentEnd = std::max<CGFloat>(0, x - accessoryGap);
        textMargin = textEnd;
    }
    _content.setFrame({0, 0, contentEnd, height});

    CGFloat x = TableView::margin;
    if (_imageView && _imageView.image()) {
        const CGSize picture = _imageView.image().size();
        _imageView.setFrame({{x, (height - picture.height) / 2}, picture});
        x += picture.width + pictureGap;
    }
    _textLabel.setFrame({x, 0, std::max<CGFloat>(0, contentEnd - x - textMargin), height});
}

// Selection

void TableViewCell::setSelectedBackgroundView(const UIView& view) {
    _selectedBackground.removeFromSuperview();
    _selectedBackground = view;
    showSelection(false);
}

void TableViewCell::setSelectedAnimated(bool selected, bool animated) {
    _selected = selected;
    showSelection(animated);
}

void TableViewCell::setHighlighted(bool highlighted, bool animated) {
    _highlighted = highlighted;
    showSelection(animated);
}

void TableViewCell::showSelection(bool animated) {
    const bool shown = _selected || _highlighted;
    if (!_selectedBackground) {
        if (!shown) {
            return;
        }
        _selectedBackground = objc::as<UIView>(objc::Ref<TableCellSelectedBackground>::make());
        _selectedBackground.setBackgroundColor(uiColor(selectedColor));
        _selectedBackground.setUserInteractionEnabled(false);
        _selectedBackground.setAlpha(0);
    }
    if (_selectedBackground.superview() != *this) {
        _selectedBackground.setFrame(bounds());
        insertSubview(_selectedBackground, 0);
    }
    AnimationSettings settings;
    settings.duration = animated && !shown ? fadeSeconds : 0;
    Animator::shared().open(std::move(settings), nullptr);
    _selectedBackground.setAlpha(shown ? 1 : 0);
    Animator::shared().close();
}

} // namespace phone
