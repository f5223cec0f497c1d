#include "phone/uikit/ActivityIcon.h"

#include "phone/device/Settings.h"
#include "phone/uikit/Image.h"

#include <algorithm>

namespace phone {

namespace {

constexpr Color tile{1, 1, 1, 0.85};
constexpr Color edge{0, 0, 0, 0.08};
constexpr Color stencil{0.33, 0.33, 0.35, 1};

} // namespace

void ActivityIcon::define(objc::ClassTable<ActivityIcon>& c) {
    c.overrides<"_drawContent:", &ActivityIcon::drawContent>();
}

double ActivityIcon::side() { return settings().device.isTablet() ? 76 : grid; }

UIView ActivityIcon::with(const UIActivity& activity) {
    const auto icon = objc::make<objc::Ref<ActivityIcon>, "initWithFrame:">(CGRect(0, 0, side(), side()));
    icon->_activity = activity;
    icon->_image = activity.activityImage();
    icon->setUserInteractionEnabled(false);
    return objc::as<UIView>(icon);
}

void ActivityIcon::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect all = bounds();
    if (objc::responds<"_drawIconInRect:">(_activity)) {
        painter->save();
        painter->scale(all.size.width / grid, all.size.height / grid);
        _activity.send<"_drawIconInRect:">(CGRect(0, 0, grid, grid));
        painter->restore();
        return;
    }
    const double corner = radius * side() / grid;
    painter->fill(all, tile, corner);
    painter->stroke(all, edge, 0.5, corner);
    // A picture that is too large is cut down to the tile, a smaller one stays as it is.
    const CGSize size = _image.size();
    const double room = side();
    const double fit = std::min({1.0, room / std::max<double>(size.width, 1), room / std::max<double>(size.height, 1)});
    const CGSize shown{size.width * fit, size.height * fit};
    drawImageMask(*painter, _image, {{(room - shown.width) / 2, (room - shown.height) / 2}, shown}, stencil);
}

} // namespace phone
