/// The picture of an activity: the system's own in colours, an application's as a stencil on a pale tile.
#pragma once

#include "platform/uikit/UIActivity.h"

namespace phone {

class ActivityIcon : public objc::Defines<ActivityIcon, UIView> {
public:
    static constexpr auto objc_name = "UIActivityIcon";
    /// In points, as the platform has it: larger on a tablet.
    static double side();
    /// The system's own pictures are drawn on a grid of this side, with corners of this radius.
    static constexpr double grid = 60;
    static constexpr double radius = 13;

    static void define(objc::ClassTable<ActivityIcon>& c);
    static UIView with(const UIActivity& activity);
    /// The activity's own; nil for one that the system draws, and where the picture is missing.
    const UIImage& image() const { return _image; }

private:
    void drawContent(CGRect rect);

    UIActivity _activity;
    UIImage _image; // nil: the tile stays empty, or the system draws it
};

} // namespace phone
