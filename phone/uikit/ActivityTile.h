/// One activity in a row of the share sheet: its icon, and its title below.
#pragma once

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"

namespace phone {

/// A greyed tile is disabled and takes no touch.
class ActivityTile : public objc::Defines<ActivityTile, UIControl> {
public:
    static constexpr auto objc_name = "UIActivityTile";
    // In points.
    static double width();
    static double height();

    static void define(objc::ClassTable<ActivityTile>& c);

    static objc::Ref<ActivityTile> with(const UIActivity& activity);
    const UIActivity& activity() const { return _activity; }

private:
    void setHighlighted(bool highlighted);

    UIActivity _activity;
    UIView _icon;
};

} // namespace phone
