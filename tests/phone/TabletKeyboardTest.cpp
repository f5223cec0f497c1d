#include "phone/foundation/Text.h"
#include "phone/uikit/KeyboardLayout.h"
#include "platform/uikit/UITextField.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Kind = phone::KeyboardKey::Kind;

class TabletKeyboard : public PhoneTest {
protected:
    void start() {
        useClassesOnly();
        useDevice("ipad");
        screen = window();
        field = UITextField::withFrame({20, 50, 200, 30});
        screen.addSubview(field);
        run([&] { field.becomeFirstResponder(); });
        settle();
    }
    std::string typed() { return phone::text(field.text()); }

    UIWindow screen;
    UITextField field;
};

TEST_F(TabletKeyboard, StandsAtTheBottom264PointsHigh) {
    start();

    EXPECT_EQ(attribute(findClass("UIKeyboardView"), "screen"), "0 760 768 264");
}

TEST_F(TabletKeyboard, TypesByTouch) {
    start();

    tapOn("H");
    tapOn("I");
    tapOn(".");
    tapOn("space");
    tapOn(".?123");
    tapOn("7");
    tapOn("#+=");
    tapOn("€");
    tapOn("ABC");
    tapOn("Q");

    EXPECT_EQ(typed(), "Hi. 7€q");
}

TEST_F(TabletKeyboard, HasItsBackspaceAtTheEndOfTheFirstRow) {
    start();
    type("ab");

    tap(767, 770);

    EXPECT_EQ(typed(), "a");
}

TEST_F(TabletKeyboard, HasShiftAtBothEndsOfTheThirdRow) {
    start();
    type("x");

    tap(10, 920);
    tapOn("A");
    tap(760, 920);
    tapOn("B");
    tapOn("C");

    EXPECT_EQ(typed(), "xABc");
}

TEST_F(TabletKeyboard, GoesAwayByItsLastKey) {
    start();

    tap(760, 1000);
    settle();

    EXPECT_FALSE(field.isFirstResponder());
    EXPECT_EQ(attribute(findClass("UITextEffectsWindow"), "hidden"), "true");
}

TEST_F(TabletKeyboard, IsHiddenWithoutADoneKey) {
    start();

    boot().hideKeyboard();

    EXPECT_FALSE(field.isFirstResponder());
}

TEST_F(TabletKeyboard, FillsEveryRowOfEveryPlane) {
    for (const char* language : {"en", "de"}) {
        for (const auto plane :
             {phone::KeyboardPlane::Letters, phone::KeyboardPlane::Digits, phone::KeyboardPlane::Symbols}) {
            const auto keys = phone::keyboardKeys(plane, language, UIReturnKeyType::Default, {1024, 352}, true);
            double right = 1024;
            for (const auto& key : keys) {
                EXPECT_NEAR(key.touch.origin.x, right == 1024 ? 0 : right, 1e-9) << key.title;
                right = key.touch.maxX() > 1023.999 ? 1024 : key.touch.maxX();
                EXPECT_GT(key.cap.size.width, 30) << key.title;
            }
            EXPECT_EQ(right, 1024);
            EXPECT_EQ(keys.back().kind, Kind::Hide);
        }
    }
}

} // namespace
