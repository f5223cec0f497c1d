/// The picture of an activity: the system's own in colours, an application's as a stencil on a pale tile.
#pragma once

#include "platform/uikit/UIActivity.h"

namespace phone {

class ActivityIcon : public objc::Defines<ActivityIcon, UIView> {
public:
    static constexpr auto objc_name = "UIActivityIcon";
    static constexpr double side = 60;   // points
    static constexpr double radius = 13; // of its corners

    static void define(objc::ClassTable<ActivityIcon>& c);
    static UIView with(const UIActivity& activity);

private:
    void drawRect(CGRect rect);

    UIActivity _activity;
    UIImage _image; // nil for a picture that is missing: the tile stays empty
};

} // namespace phone
