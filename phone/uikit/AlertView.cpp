#include "phone/uikit/AlertView.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Layer.h"
#include "platform/uikit/UIButton.h"

namespace phone {

namespace {

constexpr CGFloat cornerRadius = 7;
constexpr double whiteness = 0.92;  // over the blurred screen
constexpr double blurRadius = 15;   // points
constexpr CGFloat margin = 15;      // at the sides of the texts
constexpr CGFloat textMargin = 19;  // above and below them
constexpr CGFloat textDistance = 4; // between title and message
constexpr CGFloat hairline = 0.5;
constexpr CGFloat titleSize = 17;
constexpr CGFloat messageSize = 14;
constexpr CGFloat buttonTitleSize = 17;

UIFont buttonFont(bool isProposed) {
    return isProposed ? UIFont::boldSystem(buttonTitleSize) : UIFont::system(buttonTitleSize);
}

CGFloat widthOf(const std::string& title) {
    const auto label = objc::make<UILabel>();
    label.setFont(buttonFont(true));
    label.setText(string(title));
    return label.sizeThatFits({AlertView::width, AlertView::buttonHeight}).width;
}

bool fitSideBySide(const std::vector<std::string>& titles) {
    const CGFloat room = AlertView::width / 2 - margin;
    return titles.size() == 2 && widthOf(titles[0]) <= room && widthOf(titles[1]) <= room;
}

} // namespace

void AlertView::define(objc::ClassTable<AlertView>& c) {
    c.overrides<"didMoveToSuperview", &AlertView::didMoveToSuperview>()
        .action<"_buttonTouched:", &AlertView::buttonTouched>();
}

UIView AlertView::with(const Question& question) {
    const auto view = objc::Ref<AlertView>::make();
    view->build(question);
    return objc::as<UIView>(view);
}

void AlertView::build(const Question& question) {
    setBackgroundColor(UIColor::rgba(1, 1, 1, whiteness));
    Layer::of(layer())->setBlurBelow(blurRadius);
    layer().setCornerRadius(cornerRadius);
    layer().setMasksToBounds(true);
    setAutoresizingMask(
        static_cast<UIViewAutoresizing>(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                                        UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin));

    CGFloat y = addText(question.title, UIFont::boldSystem(titleSize), textMargin);
    if (!question.message.empty()) {
        y = addText(question.message, UIFont::system(messageSize), y + textDistance);
    }
    y += textMargin;
    const int count = static_cast<int>(question.buttons.size());
    const bool sideBySide = fitSideBySide(question.buttons);
    for (int i = 0; i < count; ++i) {
        const bool isLast = i == count - 1;
        const CGFloat half = width / 2;
        const CGRect frame =
            sideBySide ? CGRect(i * half, y, half, buttonHeight) : CGRect(0, y + i * buttonHeight, width, buttonHeight);
        addButton(question.buttons[static_cast<std::size_t>(i)], i, isLast, frame);
        if (!sideBySide) {
            addHairline({0, frame.origin.y, width, hairline});
        }
    }
    if (sideBySide) {
        addHairline({0, y, width, hairline});
        addHairline({width / 2, y, hairline, buttonHeight});
    }
    setBounds({0, 0, width, y + buttonHeight * (sideBySide ? 1 : count)});
}

CGFloat AlertView::addText(const std::string& words, const UIFont& font, CGFloat top) {
    const auto label = objc::make<UILabel>();
    label.setText(string(words));
    label.setFont(font);
    label.setTextAlignment(NSTextAlignment::Center);
    label.setNumberOfLines(0);
    const CGFloat room = width - 2 * margin;
    label.setFrame({margin, top, room, label.sizeThatFits({room, 0}).height});
    addSubview(label);
    return label.frame().maxY();
}

void AlertView::addButton(const std::string& title, int number, bool isProposed, CGRect frame) {
    const auto button = UIButton::withType(UIButtonType::System);
    button.setTitle(string(title), UIControlStateNormal);
    button.titleLabel().setFont(buttonFont(isProposed));
    button.setFrame(frame);
    button.setTag(number);
    button.addTarget(*this, objc::selector<"_buttonTouched:">(), UIControlEventTouchUpInside);
    addSubview(button);
}

void AlertView::addHairline(CGRect frame) {
    const auto line = UIView::withFrame(frame);
    line.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
    line.setUserInteractionEnabled(false);
    addSubview(line);
}

void AlertView::didMoveToSuperview() {
    super<"didMoveToSuperview">();
    setCenter(superview().bounds().center());
}

void AlertView::buttonTouched(const objc::Object& sender) {
    Alerts::shared().answer(static_cast<int>(objc::as<UIButton>(sender).tag()));
}

} // namespace phone
