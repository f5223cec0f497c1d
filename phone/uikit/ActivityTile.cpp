#include "phone/uikit/ActivityTile.h"

#include "phone/uikit/Activity.h"
#include "phone/uikit/ActivityIcon.h"

namespace phone {

namespace {

constexpr double iconTop = 12;
constexpr double iconMargin = 8; // beside it
constexpr double titleGap = 5;   // above it
constexpr double titleBottom = 13;
constexpr double titleHeight = 14;
constexpr double titleSize = 11;
constexpr double greyedAlpha = 0.4;
constexpr double pressedAlpha = 0.5;

} // namespace

void ActivityTile::define(objc::ClassTable<ActivityTile>& c) {
    c.overrides<"setHighlighted:", &ActivityTile::setHighlighted>();
}

double ActivityTile::width() { return ActivityIcon::side() + 2 * iconMargin; }

double ActivityTile::height() { return iconTop + ActivityIcon::side() + titleGap + titleHeight + titleBottom; }

objc::Ref<ActivityTile> ActivityTile::with(const UIActivity& activity) {
    auto tile = objc::make<objc::Ref<ActivityTile>, "initWithFrame:">(CGRect(0, 0, width(), height()));
    tile->_activity = activity;
    const bool enabled = Activity::doesSomething(activity);
    tile->setEnabled(enabled);
    tile->setUserInteractionEnabled(enabled);

    tile->_icon = ActivityIcon::with(activity);
    const double side = ActivityIcon::side();
    tile->_icon.setFrame({iconMargin, iconTop, side, side});
    tile->addSubview(tile->_icon);

    const auto title = UILabel::withFrame({0, iconTop + side + titleGap, width(), titleHeight});
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
