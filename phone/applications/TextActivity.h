/// What the system's activities for text have in common.
#pragma once

#include "phone/uikit/Activity.h"
#include "platform/foundation/NSString.h"

namespace phone {

/// T names its class, and answers `title()`, `type()` and `drawIcon(CGRect)`. Each can be done with
/// whatever holds a text, and keeps the first one.
template <class T, ActivityCategory Category>
class TextActivity : public objc::Defines<T, UIActivity> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template classMethod<"activityCategory", &TextActivity::category>()
            .template overrides<"activityTitle", &T::title>()
            .template overrides<"activityType", &T::type>()
            .template overrides<"canPerformWithActivityItems:", &T::canPerform>()
            .template overrides<"prepareWithActivityItems:", &T::prepare>()
            .template def<"_drawIconInRect:", &T::drawIcon>();
        T::defineDeed(c);
    }

    bool canPerform(const NSArray& items) const { return static_cast<bool>(textAmong(items)); }
    void prepare(const NSArray& items) { _text = textAmong(items); }

protected:
    NSString text() const { return _text; }

private:
    static ActivityCategory category() { return Category; }
    static NSString textAmong(const NSArray& items) {
        for (const auto& item : items) {
            if (objc::isKind<NSString>(item)) {
                return objc::as<NSString>(item);
            }
        }
        return nullptr;
    }

    NSString _text; // nil until prepared
};

} // namespace phone
