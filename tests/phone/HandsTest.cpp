// Switches and date pickers worked as a flow works them.

#include "phone/flow/Engine.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISwitch.h"
#include "tests/phone/ActionCounter.h"
#include "tests/phone/PhoneTest.h"

namespace {

class Hands : public PhoneTest {
protected:
    void SetUp() override { useClassesOnly(); }

    UIWindow& screen() {
        if (!_screen) {
            _screen = window();
        }
        return _screen;
    }
    UIDatePicker add(CGRect frame, UIDatePickerMode mode = UIDatePickerMode::DateAndTime) {
        screen(); // nothing exists before it
        const auto picker = UIDatePicker::withFrame(frame);
        picker.setDatePickerMode(mode);
        screen().addSubview(picker);
        changes = countValueChanges(picker);
        return picker;
    }
    void pick(const std::string& localTime) { phone::Engine(boot()).pickDate(localTime); }
    std::string failure(const std::string& localTime) {
        try {
            pick(localTime);
            return "";
        } catch (const phone::CommandFailure& error) {
            return error.what();
        }
    }
    std::string date() { return attribute(findClass("UIDatePicker"), "date"); }

    objc::Ref<ActionCounter> changes;

private:
    UIWindow _screen;
};

} // namespace

TEST_F(Hands, PickADateAndATime) {
    add({0, 100, 320, 216});

    pick("2026-05-16T09:00");

    EXPECT_EQ(date(), "2026-05-16T09:00:00+00:00");
    EXPECT_GT(changes->number, 0);
}

TEST_F(Hands, PickInAPickerThatIsCutOff) {
    screen();
    const auto panel = UIView::withFrame({15, 150, 290, 130});
    panel.setClipsToBounds(true);
    screen().addSubview(panel);
    const auto picker = UIDatePicker::withFrame({0, 67.5, 290, 216});
    panel.addSubview(picker);

    pick("2025-12-31T23:59");

    EXPECT_EQ(date(), "2025-12-31T23:59:00+00:00");
}

TEST_F(Hands, PickInAGermanRegion) {
    useLanguage("de");
    useZone("Europe/Berlin");
    add({15, 200, 290, 216});

    pick("2026-03-29T03:30");

    EXPECT_EQ(date(), "2026-03-29T03:30:00+02:00");
}

TEST_F(Hands, TurnNothingWhereTheDateIsShownAlready) {
    add({0, 100, 320, 216});

    pick("2026-03-05T14:37");

    EXPECT_EQ(date(), "2026-03-05T14:37:12+00:00");
    EXPECT_EQ(changes->number, 0);
}

TEST_F(Hands, KeepTheTimeOfDayOfADateAlone) {
    add({0, 100, 320, 216}, UIDatePickerMode::Date);

    pick("2028-02-29T09:00");

    EXPECT_EQ(date(), "2028-02-29T14:37:00+00:00");
}

TEST_F(Hands, PickATimeAloneOnlyOnItsOwnDay) {
    add({0, 100, 320, 216}, UIDatePickerMode::Time);

    pick("2026-03-05T08:15");
    EXPECT_EQ(date(), "2026-03-05T08:15:00+00:00");

    EXPECT_NE(failure("2026-03-06T08:15").find("no wheel can make that"), std::string::npos);
}

TEST_F(Hands, PickAMomentJustAboveTheMinimum) {
    const auto picker = add({0, 100, 320, 216});
    picker.setMinimumDate(picker.date());
    pick("2026-05-16T09:00");

    pick("2026-03-05T14:38");

    EXPECT_EQ(date(), "2026-03-05T14:38:00+00:00");
}

TEST_F(Hands, FailBelowTheMinimum) {
    const auto picker = add({0, 100, 320, 216});
    picker.setMinimumDate(picker.date());

    EXPECT_NE(failure("2026-03-04T14:38").find("it stays at 2026-03-05T14:37:12"), std::string::npos);
}

TEST_F(Hands, FailAtATimeThatTheClocksSkip) {
    useZone("Europe/Berlin");
    add({0, 100, 320, 216});

    EXPECT_NE(failure("2026-03-29T02:30").find("stays at"), std::string::npos);
}

TEST_F(Hands, ToggleASwitchByItsLabel) {
    screen();
    const auto label = UILabel::withFrame({15, 51, 160, 27});
    label.setText(NSString::utf8("Remind Me"));
    screen().addSubview(label);
    const auto toggle = UISwitch::withFrame({227, 49, 77, 27});
    screen().addSubview(toggle);
    phone::Selector selector;
    selector.text = phone::TextPattern("Remind Me");

    phone::Engine(boot()).toggle(selector);

    EXPECT_TRUE(toggle.isOn());
}
