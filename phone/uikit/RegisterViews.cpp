#include "phone/uikit/Application.h"
#include "phone/uikit/Device.h"
#include "phone/uikit/Event.h"
#include "phone/uikit/Layer.h"
#include "phone/uikit/MainScreen.h"
#include "phone/uikit/MainThreadRelease.h"
#include "phone/uikit/Register.h"
#include "phone/uikit/TapGestureRecognizer.h"
#include "phone/uikit/Touch.h"
#include "phone/uikit/Window.h"

namespace phone {

void registerViewClasses() {
    Layer::definedClass();
    Responder::definedClass();
    releaseRespondersOnMainThread();
    View::definedClass();
    Window::definedClass();
    Application::definedClass();
    MainScreen::definedClass();
    Device::definedClass();
    Touch::definedClass();
    Event::definedClass();
    GestureRecognizer::definedClass();
    TapGestureRecognizer::definedClass();
}

} // namespace phone
