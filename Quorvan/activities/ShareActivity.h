/// What the three share activities have in common: each opens its compose screen in a navigation controller.
#pragma once

#include "Quorvan/common/NewerSystems.h"
#include "Quorvan/common/Resources.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationController.h"

namespace quorvan {

/// T names its values: `titleKey`, `type`, `image`, and `Compose`, the class of its compose screen.
template <class T>
class ShareActivity : public objc::Defines<T, UIActivity> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template overrides<"activityTitle", &T::activityTitle>()
            .template overrides<"activityType", &T::activityType>()
            .template overrides<"activityImage", &T::activityImage>()
            .template overrides<"canPerformWithActivityItems:", &T::canPerformWithActivityItems>()
            .template overrides<"prepareWithActivityItems:", &T::prepareWithActivityItems>()
            .template overrides<"activityViewController", &T::activityViewController>();
    }

    NSString activityTitle() const { return localized(T::titleKey); }
    NSString activityType() const { return NSString::utf8(T::type); }
    UIImage activityImage() const { return picture(T::image); }
    /// Always: what is written has nothing to do with what is shared.
    bool canPerformWithActivityItems(const NSArray&) const { return true; }
    /// Takes nothing: the sheet has an item only because it must have one.
    void prepareWithActivityItems(const NSArray&) const {}

    UIViewController activityViewController() const {
        const auto compose = objc::make<objc::Ref<typename T::Compose>>();
        compose.template send<"setActivity:">(*this);
        const auto screen = UINavigationController::withRoot(compose);
        coverScreen(screen);
        return screen;
    }
};

} // namespace quorvan
