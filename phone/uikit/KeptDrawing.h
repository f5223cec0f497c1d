/// What a view's drawRect: has drawn: a picture, kept until the view has to draw again.
#pragma once

#include "phone/coregraphics/Painter.h"
#include "platform/uikit/UIView.h"

#include <memory>

namespace phone {

/// At the scale of the device, transparent where nothing was drawn.
class KeptDrawing {
public:
    /// Whether the view has a drawRect: of its own. The classes of this folder draw by `_drawContent:` instead, anew
    /// for every picture: they notice every change themselves.
    static bool isMadeBy(const UIView& view);

    void setNeedsDisplay() { _needsDisplay = true; }
    /// Has the view draw where that is due and its bounds are not empty.
    void displayIfNeeded(const UIView& view);
    /// Nothing while nothing was drawn. A picture made for other bounds is placed as the mode says.
    void paint(Painter& painter, CGRect bounds, UIViewContentMode mode) const;

private:
    bool _needsDisplay = true;
    std::unique_ptr<Canvas> _canvas; // null while nothing was drawn
    CGSize _size;                    // of the canvas, in points
};

} // namespace phone
