// Switches and date pickers worked as a flow works them.

#include "phone/flow/Engine.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISwitch.h"
#include "tests/phone/ActionCounter.h"
#include "tests/phone/PhoneTest.h"

namespace {

/// Counts how often somebody looks at the screen.
class WatchedScreen : public phone::Screen {
public:
    explicit WatchedScreen(phone::Screen& screen) : _screen(screen) {}

    nlohmann::json request(const nlohmann::json& command) override {
        looks += command.at("do") == "tree" ? 1 : 0;
        return _screen.request(command);
    }

    int looks = 0;

private:
    phone::Screen& _screen;
};

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
    UISwitch addSwitch(const char* words, CGFloat y) {
        screen();
        const auto label = UILabel::withFrame({15, y, 160, 27});
        label.setText(NSString::utf8(words));
        screen().addSubview(label);
        const auto toggle = UISwitch::withFrame({227, y - 2, 77, 27});
        screen().addSubview(toggle);
        return toggle;
    }
    static phone::Selector named(const char* words) {
        phone::Selector selector;
        selector.text = phone::TextPattern(words);
        return selector;
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
    /// Turns the tablet. Without a root controller the window's content stays as it lies.
    void hold(const std::string& orientation) {
        boot().setOrientation(orientation);
        settle();
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

TEST_F(Hands, PickADateFarAwayWithFewLooks) {
    add({0, 100, 320, 216});
    WatchedScreen watched(boot());

    phone::Engine(watched).pickDate("2024-02-29T23:59");

    EXPECT_EQ(date(), "2024-02-29T23:59:00+00:00");
    EXPECT_LE(watched.looks, 12);
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

TEST_F(Hands, PickOnATabletHeldAnyWay) {
    useDevice("ipad");
    add({239, 300, 290, 216});
    for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT"}) {
        SCOPED_TRACE(held);
        hold(held);

        pick("2026-02-16T16:20");
        EXPECT_EQ(date(), "2026-02-16T16:20:00+00:00");
        pick("2026-03-05T14:37");
        EXPECT_EQ(date(), "2026-03-05T14:37:00+00:00");
    }
}

TEST_F(Hands, PickInContentThatTurnsWithTheTablet) {
    useDevice("ipad");
    screen();
    const UIViewController root = objc::make<UIViewController>();
    screen().setRootViewController(root);
    root.view().addSubview(UIDatePicker::withFrame({239, 300, 290, 216}));
    for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT", "PORTRAIT"}) {
        SCOPED_TRACE(held);
        hold(held);

        pick("2026-02-16T16:20");
        EXPECT_EQ(date(), "2026-02-16T16:20:00+00:00");
        pick("2026-03-05T14:37");
        EXPECT_EQ(date(), "2026-03-05T14:37:00+00:00");
    }
}

TEST_F(Hands, ToggleASwitchByItsLabel) {
    const auto toggle = addSwitch("Remind Me", 51);

    phone::Engine(boot()).toggle(named("Remind Me"));

    EXPECT_TRUE(toggle.isOn());
}

TEST_F(Hands, ToggleOnATabletHeldAnyWay) {
    useDevice("ipad");
    const auto first = addSwitch("First", 51);
    const auto second = addSwitch("Second", 95);
    for (const char* held : {"LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT"}) {
        SCOPED_TRACE(held);
        hold(held);
        const bool wasOn = second.isOn();

        phone::Engine(boot()).toggle(named("Second"));

        EXPECT_EQ(second.isOn(), !wasOn);
        EXPECT_FALSE(first.isOn());
    }
}
