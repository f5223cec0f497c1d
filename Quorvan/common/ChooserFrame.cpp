#include "Quorvan/common/ChooserFrame.h"

#include "Quorvan/common/NewerSystems.h"
#include "Quorvan/common/Resources.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UILabel.h"

namespace quorvan {

namespace {

UIButton backButton(const UIViewController& chooser, CGRect frame) {
    const auto button = UIButton::withType(UIButtonType::Custom);
    button.setFrame(frame);
    button.addTarget(chooser, objc::selector<"back:">(), UIControlEventTouchUpInside);
    return button;
}

/// The arrow and the word, sized by the arrow's picture: without the picture nothing can be tapped.
UIView makeBack(const UIViewController& chooser) {
    const UIImage arrow = picture("back.png");
    const CGFloat width = arrow.size().width;
    const CGFloat height = arrow.size().height;

    const auto arrowButton = backButton(chooser, {-8, 1, width / 2, height / 2});
    arrowButton.setBackgroundImage(arrow.stretchable(7, 0), UIControlStateNormal);

    const auto wordButton = backButton(chooser, {width / 2 - 5, 2, 75, height / 2});
    wordButton.setTitle(localized("Back"), UIControlStateNormal);
    wordButton.setContentHorizontalAlignment(UIControlContentHorizontalAlignment::Left);
    wordButton.setTitleColor(UIColor::rgba(0, 121 / 255.0, 1, 1), UIControlStateNormal);
    wordButton.setTitleColor(UIColor::rgba(0, 64 / 255.0, 136 / 255.0, 1), UIControlStateHighlighted);

    const auto back = UIView::withFrame({0, 0, (width + 100) / 2 + 30, height / 2});
    back.addSubview(arrowButton);
    back.addSubview(wordButton);
    return back;
}

} // namespace

ChooserFrame::ChooserFrame(const UIViewController& chooser, CGRect frame, const NSString& titleKey,
                           const NSString& firstKey)
    : _panel(makePanel(frame.size, frame.origin)), _bar(makeBar(frame.size.width)), _title(localized(titleKey)) {
    _bar.topItem().setTitle(firstKey ? localized(firstKey) : _title); // docs/kept.md: a bar is told twice
    _back = makeBack(chooser);
}

void ChooserFrame::addSwitch(const UISwitch& onOff, const NSString& word, CGFloat lineTop) {
    _panel.addSubview(onOff);
    const auto label = UILabel::withFrame({15, 51, 160, 27});
    label.setText(word);
    _panel.addSubview(label);
    addSeparator(_panel, {0, lineTop, _panel.frame().size.width, 0.5});
}

void ChooserFrame::addBar() {
    const auto back = UIBarButtonItem::withCustomView(_back);
    _bar.topItem().setLeftBarButtonItem(back); // docs/kept.md: a bar is told twice
    const auto item = UINavigationItem::withTitle(_title);
    item.setLeftBarButtonItem(back);
    _bar.setItems(NSArray::of(item));
    _panel.addSubview(_bar);
}

CGRect ChooserFrame::belowBar() const {
    const CGSize size = _panel.frame().size;
    return {0, barHeight, size.width, size.height - barHeight};
}

UIView ChooserFrame::finish(CGFloat separator) {
    roundCorners(_panel);
    addSeparator(_panel, {0, barHeight, _panel.frame().size.width, separator});
    return _panel;
}

UISwitch makeSwitch() { return UISwitch::withFrame({227, 49, 77, 27}); }

UIDatePicker makePicker(const UIViewController& chooser, CGRect frame) {
    const auto picker = UIDatePicker::withFrame(frame);
    keepWheels(picker);
    picker.setFrame(frame); // docs/kept.md: frames set twice
    picker.addTarget(chooser, objc::selector<"pickerChanged:">(), UIControlEventValueChanged);
    return picker;
}

} // namespace quorvan
