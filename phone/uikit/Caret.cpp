#include "phone/uikit/Caret.h"

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/Color.h"

#include <utility>

namespace phone {

void Caret::define(objc::ClassTable<Caret>& c) {
    c.init<"initWithFrame:", &Caret::initWithFrame>().overrides<"_drawContent:", &Caret::drawContent>();
}

Caret::~Caret() { stop(); }

void Caret::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setUserInteractionEnabled(false);
    setHidden(true);
}

void Caret::show(CGRect place) {
    stop();
    setFrame(place);
    setHidden(false);
    _blinking = RunLoop::main().every(blinkSeconds, [this] { setHidden(!isHidden()); });
}

void Caret::hide() {
    stop();
    setHidden(true);
}

void Caret::stop() {
    if (const auto timer = std::exchange(_blinking, 0)) {
        RunLoop::main().cancel(timer);
    }
}

void Caret::drawContent(CGRect) {
    if (Painter* painter = Painter::current()) {
        painter->fill(bounds(), colorOf(tintColor()), TextLayout::caretWidth / 2);
    }
}

} // namespace phone
