#include "phone/uikit/Activity.h"

#include "phone/device/Log.h"
#include "phone/device/MainThread.h"
#include "phone/device/RunLoop.h"

namespace phone {

namespace {

/// Whether the class of the activity answers the message otherwise than UIActivity does.
template <objc::FixedString Sel>
bool overridden(const UIActivity& activity) {
    const SEL selector = objc::selector<Sel>();
    return class_getMethodImplementation(object_getClass(activity.raw()), selector) !=
           class_getMethodImplementation(objc::classOf<UIActivity>(), selector);
}

} // namespace

void Activity::define(objc::ClassTable<Activity>& c) {
    c.classMethod<"activityCategory", &Activity::category>()
        .def<"activityType", &Activity::activityType>()
        .def<"activityTitle", &Activity::activityTitle>()
        .def<"activityImage", &Activity::activityImage>()
        .def<"canPerformWithActivityItems:", &Activity::canPerform>()
        .def<"prepareWithActivityItems:", &Activity::prepare>()
        .def<"activityViewController", &Activity::activityViewController>()
        .def<"performActivity", &Activity::performActivity>()
        .def<"activityDidFinish:", &Activity::activityDidFinish>();
}

bool Activity::doesSomething(const UIActivity& activity) {
    return overridden<"activityViewController">(activity) || overridden<"performActivity">(activity);
}

void Activity::activityDidFinish(bool completed) {
    Log::shared().add("finish", {{"class", class_getName(object_getClass(raw()))}, {"completed", completed}});
    const UIActivity activity = *this;
    auto tellSheet = [activity, completed] {
        if (Activity* peer = of(activity)) {
            peer->_sheet.get().send<"_activity:finished:">(activity, completed);
        }
    };
    if (isMainThread()) {
        tellSheet();
    } else {
        RunLoop::main().perform(tellSheet); // long work may end on a thread of its own
    }
}

} // namespace phone
