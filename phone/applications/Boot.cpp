#include "phone/applications/Boot.h"

#include "phone/applications/PhoneApplication.h"
#include "phone/device/MainThread.h"
#include "phone/device/RootFolder.h"
#include "phone/device/RunLoop.h"
#include "phone/eventkit/Register.h"
#include "phone/foundation/Foundation.h"
#include "phone/foundation/Thread.h"
#include "phone/notes/Register.h"
#include "phone/substrate/Loader.h"
#include "phone/uikit/Application.h"
#include "phone/uikit/OffMainThread.h"
#include "phone/uikit/Register.h"
#include "platform/objc/Pool.h"

namespace phone {

void boot(const Settings& chosen, Start start) {
    becomeMainThread();
    RootFolder::use(chosen.root);
    useSettings(chosen);
    prepareEnvironment();
    const objc::Pool pool;
    prepareForThreads();
    installFoundation();
    registerViewClasses();
    registerDrawingClasses();
    registerTextClasses();
    registerControllerClasses(); // bars and sheets hold controls
    provideNotesClasses();
    registerEventKitClasses();
    registerApplicationClasses();
    watchForMessagesOffMainThread();
    RunLoop::main().setEndOfCycle(&Application::layoutWindows);
    if (start == Start::Everything) {
        loadLibraries();
        startApplication();
    }
    RunLoop::main().drain();
}

} // namespace phone
