#include "Quorvan/common/ChooserFrame.h"

#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "platform/uikit/UIButton.h"

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

ChooserFrame::ChooserFrame(const UIViewController& chooser, CGSize size, const NSString& title)
    : _title(title), _panel(makePanel(size)), _bar(makeBar(size.width)), _back(makeBack(chooser)) {
    _bar.topItem().setTitle(_title); // deliberate, though the bar has no item yet and nothing hears it
}

void ChooserFrame::addBar() {
    const auto back = UIBarButtonItem::withCustomView(_back);
    _bar.topItem().setLeftBarButtonItem(back); // as above
    const auto item = UINavigationItem::withTitle(_title);
    item.setLeftBarButtonItem(back);
    _bar.setItems(NSArray::of(item));
    _panel.addSubview(_bar);
}

UIView ChooserFrame::finish(CGFloat separator) {
    roundCorners(_panel);
    addSeparator(_panel, {0, barHeight, _panel.frame().size.width, separator});
    return _panel;
}

} // namespace quorvan
