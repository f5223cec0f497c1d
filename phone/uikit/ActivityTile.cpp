#include "phone/uikit/ActivityTile.h"

#include "phone/uikit/Activity.h"
#include "phone/uikit/ActivityIcon.h"

namespace phone {

namespace {

constexpr double iconTop = 12;
constexpr double titleTop = iconTop + ActivityIcon::side + 5;
constexpr double titleHeight = 14;
constexpr double titleSize = 11;
constexpr double greyedAlpha = 0.4;
constexpr double pressedAlpha = 0.5;

} // namespace

void ActivityTile::define(objc::ClassTable<ActivityTile>& c) {
    c.overrides<"setHighlighted:", &ActivityTile::setHighlighted>();
}

objc::Ref<ActivityTile> ActivityTile::with(const UIActivity& activity) {
    auto tile = objc::make<objc::Ref<ActivityTile>, "initWithFrame:">(CGRect(0, 0, width, height));
    tile->_activity = activity;
    const bool enabled = Activity::doesSomething(activity);
    tile->setEnabled(enabled);
    tile->setUserInteractionEnabled(enabled);

    tile->_icon = ActivityIcon::with(activity);
    tile->_icon.setFrame({(width - ActivityIcon::side) / 2, iconTop, ActivityIcon::side, ActivityIcon::side});
    tile->addSubview(tile->_icon);

    const auto title = UILabel::withFrame({0, titleTop, width, titleHeight});
    title.setText(activity.activityTitle());
    title.setFont(UIFont::system(titleSize));
    title.setTextAlignment(NSTextAlignment::Center);
    tile->addSubview(title);
    if (!enabled) {
        tile->_icon.setAlpha(greyedAlpha);
        title.setTextColor(UIColor::rgba(0, 0, 0, greyedAlpha));
    }
    return tile;
}

void ActivityTile::setHighlighted(bool highlighted) {
    super<"setHighlighted:">(highlighted);
    _icon.setAlpha(highlighted ? pressedAlpha : 1);
}

} // namespace phone
