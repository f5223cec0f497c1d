#include "phone/applications/Notice.h"

#include "phone/applications/Words.h"
#include "phone/uikit/ViewController.h"
#include "platform/uikit/UIButton.h"

namespace phone {

namespace {

constexpr CGSize boxSize{270, 130}; // points
constexpr double cornerRadius = 7;
constexpr double margin = 15;
constexpr double buttonHeight = 44;
constexpr double hairline = 0.5;
constexpr double dimming = 0.4;

UILabel addLabel(const UIView& box, const NSString& text, const UIFont& font, CGRect frame) {
    const auto label = UILabel::withFrame(frame);
    label.setText(text);
    label.setFont(font);
    label.setTextAlignment(NSTextAlignment::Center);
    label.setNumberOfLines(0);
    box.addSubview(label);
    return label;
}

} // namespace

void Notice::define(objc::ClassTable<Notice>& c) {
    c.overrides<"viewDidLoad", &Notice::viewDidLoad>()
        .overrides<"viewDidLayoutSubviews", &Notice::viewDidLayoutSubviews>()
        .overrides<"_preparePresentation", &Notice::preparePresentation>()
        .overrides<"_animatePresentation", &Notice::animatePresentation>()
        .overrides<"_animateDismissal", &Notice::animateDismissal>()
        .action<"_confirm:", &Notice::confirm>();
}

UIViewController Notice::with(const NSString& title, const NSString& text, const UIActivity& activity) {
    const auto notice = objc::Ref<Notice>::make();
    notice->_heading = title;
    notice->_text = text;
    notice->_activity = activity;
    notice.send<"setModalPresentationStyle:">(ModalPresentationStyle::Custom);
    return objc::as<UIViewController>(notice);
}

void Notice::viewDidLoad() {
    super<"viewDidLoad">();
    view().setBackgroundColor(UIColor::rgba(0, 0, 0, dimming));
    _box = UIView::withFrame({{}, boxSize});
    _box.setBackgroundColor(UIColor::rgba(1, 1, 1, 0.97));
    _box.layer().setCornerRadius(cornerRadius);
    _box.layer().setMasksToBounds(true);
    const double width = boxSize.width - 2 * margin;
    addLabel(_box, _heading, UIFont::boldSystem(17), {margin, 14, width, 22});
    addLabel(_box, _text, UIFont::system(13), {margin, 38, width, 40});

    const double buttonTop = boxSize.height - buttonHeight;
    const auto line = UIView::withFrame({0, buttonTop, boxSize.width, hairline});
    line.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
    _box.addSubview(line);
    const auto button = UIButton::withType(UIButtonType::System);
    button.setTitle(word(Word::Ok), UIControlStateNormal);
    button.titleLabel().setFont(UIFont::boldSystem(17));
    button.setFrame({0, buttonTop, boxSize.width, buttonHeight});
    button.addTarget(*this, objc::selector<"_confirm:">(), UIControlEventTouchUpInside);
    _box.addSubview(button);
    view().addSubview(_box);
}

void Notice::viewDidLayoutSubviews() {
    super<"viewDidLayoutSubviews">();
    _box.setCenter(view().bounds().center());
}

void Notice::preparePresentation() { view().setAlpha(0); }

void Notice::animatePresentation() { view().setAlpha(1); }

void Notice::animateDismissal() { view().setAlpha(0); }

void Notice::confirm(const objc::Object&) { _activity.activityDidFinish(false); }

} // namespace phone
