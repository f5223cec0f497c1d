#include "phone/uikit/Color.h"
#include "phone/uikit/Font.h"
#include "phone/uikit/Image.h"
#include "phone/uikit/ImageView.h"
#include "phone/uikit/Label.h"
#include "phone/uikit/Register.h"

namespace phone {

void registerDrawingClasses() {
    ColorObject::definedClass();
    Font::definedClass();
    Image::definedClass();
    ImageView::definedClass();
    Label::definedClass();
}

} // namespace phone
