#include "phone/uikit/Orientations.h"

#include "phone/device/Settings.h"
#include "phone/foundation/Raise.h"

namespace phone {

namespace {

using enum UIInterfaceOrientation;

constexpr OrientationMask all = {Portrait, PortraitUpsideDown, LandscapeRight, LandscapeLeft};
constexpr OrientationMask allButUpsideDown = {Portrait, LandscapeRight, LandscapeLeft};

/// As the phone applications declare them: a call on a phone stays upright.
OrientationMask ofTheApplication() { return settings().device.isTablet() ? all : OrientationMask{Portrait}; }

template <objc::FixedString Selector>
bool overrides(const UIViewController& controller) {
    const SEL selector = objc::selector<Selector>();
    return class_getMethodImplementation(object_getClass(controller.raw()), selector) !=
           class_getMethodImplementation(objc::classOf<UIViewController>(), selector);
}

bool countsTheOlderQuestion(const UIViewController& controller) {
    return overrides<"shouldAutorotateToInterfaceOrientation:">(controller) &&
           !overrides<"shouldAutorotate">(controller) && !overrides<"supportedInterfaceOrientations">(controller);
}

OrientationMask askTheOlderQuestion(const UIViewController& controller) {
    OrientationMask allowed = {};
    for (const UIInterfaceOrientation one : {Portrait, PortraitUpsideDown, LandscapeRight, LandscapeLeft}) {
        if (controller.send<"shouldAutorotateToInterfaceOrientation:", bool>(one)) {
            allowed = allowed.with(one);
        }
    }
    return allowed;
}

} // namespace

OrientationMask orientationsByDefault() { return settings().device.isTablet() ? all : allButUpsideDown; }

OrientationAnswer orientationAnswer(const UIViewController& controller) {
    if (countsTheOlderQuestion(controller)) {
        return {true, askTheOlderQuestion(controller).common(ofTheApplication())};
    }
    const bool turns = controller.send<"shouldAutorotate", bool>();
    const OrientationMask supported(controller.send<"supportedInterfaceOrientations", objc::UInt>());
    const OrientationMask allowed = supported.common(ofTheApplication());
    if (turns && allowed.isEmpty()) {
        raise("UIApplicationInvalidInterfaceOrientation",
              "Supported orientations has no common orientation with the application, and shouldAutorotate is "
              "returning YES");
    }
    return {turns, allowed};
}

} // namespace phone
