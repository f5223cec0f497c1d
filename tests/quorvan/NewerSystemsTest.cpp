// What the library asks of systems newer than the phone's: the messages that such a system answers are added here.

#include "phone/foundation/Correct.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UINavigationController.h"
#include "tests/quorvan/CallTest.h"

namespace {

struct Asked {
    std::string selector;
    objc::Object object;
    objc::Int style = 0;
};

std::vector<Asked>& asked() {
    static auto* all = new std::vector<Asked>;
    return *all;
}

template <objc::FixedString Sel>
void noteDown(id self, SEL, objc::Int style) {
    asked().push_back({Sel.text, objc::borrow<objc::Object>(self), style});
}

/// As a newer system that sizes a picker after its style.
void takePickerStyle(id self, SEL selector, objc::Int style) {
    noteDown<"setPreferredDatePickerStyle:">(self, selector, style);
    objc::borrow<UIDatePicker>(self).setFrame({0, 0, 200, 40});
}

class NewerSystems : public CallTest {
protected:
    void TearDown() override {
        asked().clear();
        CallTest::TearDown();
    }
    template <objc::FixedString Sel>
    static void add(Class cls, void (*function)(id, SEL, objc::Int)) {
        phone::extend<Sel>(cls, function);
        phone::updateSubclasses(cls);
    }
    /// Where a view that was asked lies in its superview.
    static std::vector<CGRect> frames() {
        std::vector<CGRect> all;
        for (const Asked& one : asked()) {
            all.push_back(objc::as<UIView>(one.object).frame());
        }
        return all;
    }
};

} // namespace

TEST_F(NewerSystems, KeepEveryPanelLight) {
    start();
    add<"setOverrideUserInterfaceStyle:">(objc::classOf<UIView>(), &noteDown<"setOverrideUserInterfaceStyle:">);

    startCall();
    openSheet();
    openEvent();
    touchAndWait("Calendar");

    ASSERT_EQ(asked().size(), 2u); // the compose screen's panel and the chooser's
    for (const Asked& one : asked()) {
        EXPECT_EQ(one.style, 1);
        EXPECT_EQ(objc::as<UIView>(one.object).frame().size, CGSize(290, 270));
        EXPECT_EQ(objc::as<UIView>(one.object).layer().cornerRadius(), 5);
    }
}

TEST_F(NewerSystems, ShowComposeScreensOverTheWholeScreen) {
    start();
    const Class navigation = objc::classOf<UINavigationController>();
    add<"setModalPresentationStyle:">(navigation, &noteDown<"setModalPresentationStyle:">);
    startCall();

    for (const char* activity : {"Note", "Reminder", "Event"}) {
        asked().clear();
        openSheet();
        touchAndWait(activity);

        ASSERT_EQ(asked().size(), 1u) << activity;
        EXPECT_EQ(asked()[0].style, 0);
        EXPECT_TRUE(objc::isKind<UINavigationController>(asked()[0].object));
        cancel();
    }
}

TEST_F(NewerSystems, KeepTheWheelsOfDatePickersAndTheirFrames) {
    start();
    add<"setPreferredDatePickerStyle:">(objc::classOf<UIDatePicker>(), &takePickerStyle);

    startReminder();
    touchAndWait("Remind me");

    ASSERT_EQ(asked().size(), 1u);
    EXPECT_EQ(asked()[0].style, 1);
    EXPECT_EQ(frames(), std::vector{CGRect(0, 67.5, 290, 216)});
}

TEST_F(NewerSystems, AreAskedForNothingThatTheSystemHereDoesNotAnswer) {
    start();
    EXPECT_FALSE(objc::responds<"setOverrideUserInterfaceStyle:">(objc::make<UIView>()));
    EXPECT_FALSE(objc::responds<"setPreferredDatePickerStyle:">(objc::make<UIDatePicker>()));

    startReminder();
    touchAndWait("Remind me");

    EXPECT_TRUE(log("unanswered").empty());
}
