#include "phone/applications/IdleScreen.h"

#include "phone/applications/Words.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/SystemWords.h"

namespace phone {

namespace {

constexpr Color grey{0.56, 0.56, 0.58, 1};

UILabel centred(double size) {
    const auto label = objc::make<UILabel>();
    label.setFont(UIFont::system(size));
    label.setTextAlignment(NSTextAlignment::Center);
    return label;
}

} // namespace

void IdleScreen::define(objc::ClassTable<IdleScreen>& c) {
    c.overrides<"viewDidLoad", &IdleScreen::viewDidLoad>()
        .overrides<"viewWillLayoutSubviews", &IdleScreen::viewWillLayoutSubviews>();
}

void IdleScreen::viewDidLoad() {
    super<"viewDidLoad">();
    view().setBackgroundColor(UIColor::white());
    _title = centred(28);
    _title.setText(applicationName());
    _note = centred(17);
    _note.setText(word(Word::NoCall));
    _note.setTextColor(uiColor(grey));
    view().addSubview(_title);
    view().addSubview(_note);
}

void IdleScreen::viewWillLayoutSubviews() {
    super<"viewWillLayoutSubviews">();
    const CGSize size = view().bounds().size;
    _title.setFrame({0, size.height * 0.4, size.width, 36});
    _note.setFrame({0, size.height * 0.4 + 40, size.width, 24});
}

} // namespace phone
