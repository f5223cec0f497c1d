#include "phone/foundation/Text.h"
#include "platform/foundation/NSNotification.h"
#include "platform/uikit/UINavigationController.h"
#include "tests/phone/PhoneTest.h"

#include <set>

namespace {

using Texts = std::vector<std::string>;

/// Who was told of a warning, in order.
Texts told;

class Warned : public objc::Defines<Warned, UIViewController> {
public:
    static constexpr auto objc_name = "MemoryWarningTestController";
    static void define(objc::ClassTable<Warned>& c) {
        c.overrides<"didReceiveMemoryWarning", &Warned::didReceiveMemoryWarning>();
    }

private:
    void didReceiveMemoryWarning() {
        super<"didReceiveMemoryWarning">();
        told.push_back(phone::text(title()));
    }
};

class Listener : public objc::Defines<Listener, NSObject> {
public:
    static constexpr auto objc_name = "MemoryWarningTestListener";
    static void define(objc::ClassTable<Listener>& c) {
        c.def<"applicationDidReceiveMemoryWarning:", &Listener::warned>().def<"warned:", &Listener::notified>();
    }

private:
    void warned(const UIApplication& application) {
        EXPECT_EQ(application, UIApplication::shared());
        told.emplace_back("delegate");
    }
    void notified(const NSNotification& notification) {
        EXPECT_EQ((notification.send<"object", NSObject>()), UIApplication::shared());
        told.emplace_back("observer");
    }
};

class MemoryWarning : public PhoneTest {
protected:
    MemoryWarning() { useClassesOnly(); }

    static UIViewController controller(const char* title) {
        const auto made = objc::as<UIViewController>(objc::Ref<Warned>::make());
        made.setTitle(phone::string(title));
        return made;
    }
};

} // namespace

// Holds: memory-warning-reaches-all
TEST_F(MemoryWarning, TellsTheDelegateFirstThenObserversAndEveryControllerShownOrNot) {
    boot();
    const auto listener = objc::Ref<Listener>::make();
    UIApplication::shared().send<"setDelegate:">(listener);
    NSNotificationCenter::defaultCenter().addObserver(listener, objc::selector<"warned:">(),
                                                      "UIApplicationDidReceiveMemoryWarningNotification"_ns, nullptr);
    const auto shown = controller("shown");
    const auto hidden = controller("hidden");
    window().setRootViewController(shown);

    boot().warnOfMemory();

    ASSERT_EQ(told.size(), 4U);
    EXPECT_EQ(told.front(), "delegate");
    EXPECT_EQ(std::set<std::string>(told.begin() + 1, told.end()),
              (std::set<std::string>{"hidden", "observer", "shown"})); // their order is nobody's promise
    NSNotificationCenter::defaultCenter().removeObserver(listener);
    UIApplication::shared().send<"setDelegate:">(nullptr);
}

// Holds: memory-warning-keeps-the-view
TEST_F(MemoryWarning, LeavesTheViewsOfHiddenControllersToo) {
    boot();
    const auto below = controller("below");
    const auto top = controller("top");
    const auto stack = UINavigationController::withRoot(below);
    window().setRootViewController(stack);
    settle();
    const UIView kept = below.view();
    stack.push(top, false);
    settle();

    boot().warnOfMemory();

    EXPECT_TRUE(below.isViewLoaded());
    EXPECT_EQ(below.view(), kept);
}

TEST_F(MemoryWarning, OfAControllerThatHasGoneNobodyIsTold) {
    boot();
    {
        const objc::Pool pool;
        controller("gone");
    }

    boot().warnOfMemory();

    EXPECT_EQ(told, Texts());
}
