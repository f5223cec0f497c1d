#include "phone/uikit/KeptDrawing.h"

#include "phone/device/Settings.h"
#include "phone/uikit/ContentMode.h"
#include "phone/uikit/Label.h"
#include "phone/uikit/View.h"

namespace phone {

bool KeptDrawing::isMadeBy(const UIView& view) {
    const SEL drawRect = objc::selector<"drawRect:">();
    const IMP drawing = class_getMethodImplementation(object_getClass(view.raw()), drawRect);
    // A label has a drawRect: for its subclasses to call.
    return drawing != class_getMethodImplementation(View::definedClass(), drawRect) &&
           drawing != class_getMethodImplementation(Label::definedClass(), drawRect);
}

void KeptDrawing::displayIfNeeded(const UIView& view) {
    const CGRect bounds = view.bounds();
    const double scale = settings().device.scale;
    auto canvas = _needsDisplay ? Canvas::make(bounds.size.width, bounds.size.height, scale) : nullptr;
    if (canvas == nullptr) {
        return;
    }
    _needsDisplay = false; // before the drawing, which may ask to be repeated
    canvas->painter().translate(-bounds.origin.x, -bounds.origin.y);
    {
        const CurrentPainter current(canvas->painter());
        view.send<"drawRect:">(bounds);
    }
    _size = {canvas->width() / scale, canvas->height() / scale};
    _canvas = std::move(canvas);
}

void KeptDrawing::paint(Painter& painter, CGRect bounds, UIViewContentMode mode) const {
    if (_canvas != nullptr) {
        painter.image(_canvas->bitmap(), placed(_size, bounds, mode));
    }
}

} // namespace phone
