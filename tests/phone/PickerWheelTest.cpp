#include "phone/uikit/PickerWheel.h"

#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

constexpr double middle = 208; // of the wheels, which stand at 100 and are 216 high

class PickerWheel : public PhoneTest {
protected:
    PickerWheel() { useClassesOnly(); }

    /// A wheel across this part of the screen, whose rows all read alike.
    void show(double left, double width) {
        screen = window();
        screen.setBackgroundColor(UIColor::white());
        const auto wheel = objc::make<objc::Ref<phone::PickerWheel>, "initWithFrame:">(CGRect(left, 100, width, 216));
        screen.addSubview(objc::as<UIView>(wheel));
        wheel->show({0, 100, false, phone::WheelRows::Alignment::Center, [](long) { return "MMMM"; }}, 50);
        advance(0);
    }
    /// The strip of points in which a row three below the chosen one is seen.
    static CGRect farRow() { return {0, middle + 76, 320, 8}; }
    static CGRect chosenRow() { return {0, middle - 4, 320, 8}; }
    static CGRect nextRow() { return {0, middle + 29, 320, 8}; }

    UIWindow screen;
};

} // namespace

TEST_F(PickerWheel, ShowsRowsNarrowerTowardsItsEdge) {
    show(60, 200);

    const Picture picture;

    EXPECT_LT(picture.ink(farRow()).size.width, 0.95 * picture.ink(chosenRow()).size.width);
    EXPECT_GT(picture.ink(farRow()).size.width, 0.8 * picture.ink(chosenRow()).size.width);
}

TEST_F(PickerWheel, ShowsRowsPalerTowardsItsEdge) {
    show(60, 200);

    const Picture picture;

    EXPECT_LT(picture.darkest(chosenRow()), picture.darkest(nextRow()));
    EXPECT_LT(picture.darkest(nextRow()), picture.darkest(farRow()));
}

TEST_F(PickerWheel, LeansTowardsTheMiddleOfItsPicker) {
    show(0, 120);

    const Picture picture;

    EXPECT_GT(picture.ink(farRow()).center().x, picture.ink(chosenRow()).center().x + 3);
}
