#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"
#include "tests/phone/Probe.h"

#include "phone/foundation/Text.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIPasteboard.h"

#include <algorithm>
#include <thread>

using Lines = std::vector<std::string>;

namespace {

/// An application's activity that writes down what it is asked.
class Deed : public objc::Defines<Deed, UIActivity> {
public:
    static constexpr auto objc_name = "Deed";
    static void define(objc::ClassTable<Deed>& c) {
        c.overrides<"activityTitle", &Deed::title>()
            .overrides<"activityType", &Deed::type>()
            .overrides<"canPerformWithActivityItems:", &Deed::canPerform>()
            .overrides<"prepareWithActivityItems:", &Deed::prepare>()
            .overrides<"activityViewController", &Deed::controller>()
            .overrides<"performActivity", &Deed::perform>();
    }
    static objc::Ref<Deed> with(const std::string& name) {
        auto deed = objc::Ref<Deed>::make();
        deed->name = name;
        return deed;
    }

    NSString title() const { return phone::string(name); }
    NSString type() const { return hasType ? phone::string("deed." + name) : NSString(); }
    bool canPerform(const NSArray&) const {
        ++asked;
        return can;
    }
    void prepare(const NSArray&) { probed().push_back(name + " prepare"); }
    UIViewController controller() {
        probed().push_back(name + " controller");
        return screen;
    }
    void perform() { probed().push_back(name + " perform"); }

    std::string name;
    bool can = true;
    bool hasType = true;
    mutable int asked = 0;
    UIViewController screen; // nil: it performs
};

/// One that has nothing to do yet.
class Idle : public objc::Defines<Idle, UIActivity> {
public:
    static constexpr auto objc_name = "Idle";
    static void define(objc::ClassTable<Idle>& c) {
        c.overrides<"activityTitle", &Idle::title>().overrides<"canPerformWithActivityItems:", &Idle::canPerform>();
    }
    NSString title() const { return "Idle"_ns; }
    bool canPerform(const NSArray&) const { return true; }
};

} // namespace

class ActivityViewController : public PhoneTest {
protected:
    ActivityViewController() { useClassesOnly(); }

    void show() {
        const UIWindow front = window();
        lower = Probe::with("lower");
        run([&] { front.setRootViewController(lower); });
        settle();
        takeProbed();
    }
    /// The sheet for a text with these activities, on the screen.
    void open(const NSArray& activities, const NSArray& excluded = nullptr) {
        show();
        run([&] {
            sheet = UIActivityViewController::with(NSArray::of("words"_ns), activities);
            sheet.setExcludedActivityTypes(excluded);
            sheet.setCompletionHandler(^(id type, bool completed) {
              probed().push_back("handler " + (type == nullptr ? "nil" : phone::text(objc::borrow<NSString>(type))) +
                                 (completed ? " yes" : " no"));
            });
            lower.present(sheet, true, nullptr);
        });
        settle();
    }
    void tapAndWait(const std::string& text) {
        tapOn(text);
        settle();
    }
    /// Where an element's left edge lies on the screen.
    double left(const std::string& text) {
        double x = -1;
        std::sscanf(find(text).attribute("screen").value(), "%lf", &x);
        return x;
    }
    double top(const std::string& text) {
        double y = -1;
        std::sscanf(find(text).attribute("screen").value(), "%*lf %lf", &y);
        return y;
    }
    void TearDown() override {
        lower = nullptr;
        sheet = nullptr;
        PhoneTest::TearDown();
    }

    UIViewController lower;
    UIActivityViewController sheet;
};

// Holds: system-activities-first
TEST_F(ActivityViewController, ShowsTheActivitiesInTheirOrder) {
    boot();
    open(NSArray::of(Deed::with("One"), Deed::with("Two"), Deed::with("Three")));

    EXPECT_LT(left("Copy"), left("One"));
    EXPECT_LT(left("One"), left("Two"));
    EXPECT_LT(left("Two"), left("Three"));
    EXPECT_EQ(top("One"), top("Copy"));
}

// Holds: activity-rows
TEST_F(ActivityViewController, ShowsTheServicesThatShareAboveTheOthers) {
    boot();
    open(NSArray::of(Deed::with("One")));

    EXPECT_LT(top("Message"), top("One"));
    EXPECT_LT(left("AirDrop"), left("Message"));
    EXPECT_LT(left("Message"), left("Mail"));
}

// Holds: services-for-a-text
TEST_F(ActivityViewController, OffersTheSystemsServicesForAText) {
    open(nullptr);

    for (const char* name : {"AirDrop", "Message", "Mail", "Twitter", "Facebook", "Weibo", "Copy"}) {
        EXPECT_TRUE(find(name)) << name;
    }
    EXPECT_FALSE(find("Print"));
}

TEST_F(ActivityViewController, LeavesOutWhatIsExcluded) {
    boot();
    open(NSArray::of(Deed::with("One"), Deed::with("Two")),
         NSArray::of(objc::borrow<NSString>(UIActivityTypeMail), objc::borrow<NSString>(UIActivityTypeCopyToPasteboard),
                     "deed.Two"_ns));

    EXPECT_FALSE(find("Mail"));
    EXPECT_FALSE(find("Copy"));
    EXPECT_FALSE(find("Two"));
    EXPECT_TRUE(find("Message"));
    EXPECT_TRUE(find("One"));
}

// Holds: exclusion-by-type
TEST_F(ActivityViewController, CannotExcludeAnActivityWithoutAType) {
    boot();
    const auto deed = Deed::with("One");
    deed->hasType = false;

    open(NSArray::of(deed), NSArray::of(""_ns));

    EXPECT_TRUE(isVisible("One"));
}

TEST_F(ActivityViewController, LeavesOutWhatCannotBePerformed) {
    boot();
    const auto deed = Deed::with("One");
    deed->can = false;

    open(NSArray::of(deed));

    EXPECT_FALSE(find("One"));
    EXPECT_GE(deed->asked, 1);
}

TEST_F(ActivityViewController, HasThePlatformsTypes) {
    boot();

    EXPECT_EQ(phone::text(objc::borrow<NSString>(UIActivityTypePrint)), "com.apple.UIKit.activity.Print");
    EXPECT_EQ(phone::text(objc::borrow<NSString>(UIActivityTypeAddToReadingList)),
              "com.apple.UIKit.activity.AddToReadingList");
}

// Holds: sheet-is-blurred
TEST_F(ActivityViewController, LetsNothingSharpShineThrough) {
    open(nullptr);
    addStripes(lower.view());
    const double panel = top("Message") - 77; // the title stands that far below the panel's edge
    const double cancel = top("Cancel");
    const Picture picture;

    EXPECT_GT(picture.sharpest({20, panel - 20, 280, 10}), 100);
    EXPECT_LE(picture.sharpest({20, panel + 3, 280, 6}), 2);
    EXPECT_LE(picture.sharpest({20, cancel, 80, 20}), 2);
    EXPECT_LT(picture.brightness(60, cancel), 250);
}

TEST_F(ActivityViewController, TellsNobodyBeneath) {
    boot();
    open(NSArray::of(Deed::with("One")));
    EXPECT_EQ(takeProbed(), Lines{});

    tapAndWait("Cancel");

    EXPECT_EQ(takeProbed(), Lines{"handler nil no"});
}

// Trap: performed-or-presented
// Holds: activity-prepares-first, controller-asked-for-once
TEST_F(ActivityViewController, PreparesAndThenPresentsTheActivitysController) {
    boot();
    const auto deed = Deed::with("One");
    deed->screen = Probe::with("screen");
    open(NSArray::of(deed));

    tapAndWait("One");

    EXPECT_EQ(takeProbed(),
              (Lines{"One prepare", "One controller", "lower willDisappear", "screen loadView", "screen viewDidLoad",
                     "screen willAppear", "screen didAppear", "lower didDisappear"}));
}

// Holds: activity-performs-without-a-controller, sheet-waits-for-the-end
TEST_F(ActivityViewController, PerformsAnActivityWithoutAController) {
    boot();
    open(NSArray::of(Deed::with("One")));

    tapAndWait("One");

    EXPECT_EQ(takeProbed(), (Lines{"One prepare", "One controller", "One perform"}));
    EXPECT_EQ(lower.presentedViewController(), sheet); // it stays until the activity has finished
}

// Holds: sheet-goes-with-the-controller, sheet-handler
TEST_F(ActivityViewController, GoesWithTheActivitysControllerWhenThatHasFinished) {
    boot();
    const auto deed = Deed::with("One");
    deed->screen = Probe::with("screen");
    open(NSArray::of(deed));
    tapAndWait("One");
    takeProbed();

    run([&] { objc::as<UIActivity>(deed).activityDidFinish(true); });
    settle();

    EXPECT_EQ(takeProbed(), (Lines{"screen willDisappear", "lower willAppear", "lower didAppear", "screen didDisappear",
                                   "handler deed.One yes"}));
    EXPECT_FALSE(lower.presentedViewController());
    EXPECT_TRUE(lower.view().window());
}

// Trap: performed-or-presented
TEST_F(ActivityViewController, FinishesOnceAndCountsTheRest) {
    boot();
    const auto deed = Deed::with("One");
    open(NSArray::of(deed));
    tapAndWait("One");
    takeProbed();

    run([&] {
        objc::as<UIActivity>(deed).activityDidFinish(true);
        objc::as<UIActivity>(deed).activityDidFinish(true);
    });
    settle();

    EXPECT_EQ(takeProbed(), Lines{"handler deed.One yes"});
    EXPECT_EQ(log("finish").size(), 2u);
    EXPECT_EQ(log("finish")[0].at("class"), "Deed");
    EXPECT_EQ(log("finish")[0].at("completed"), true);
}

TEST_F(ActivityViewController, WaitsForATransitionBeforeItGoes) {
    boot();
    const auto deed = Deed::with("One");
    deed->screen = Probe::with("screen");
    open(NSArray::of(deed));

    tapOn("One"); // its screen is still rising
    run([&] { objc::as<UIActivity>(deed).activityDidFinish(true); });
    settle();

    EXPECT_EQ(takeProbed().back(), "handler deed.One yes");
    EXPECT_FALSE(lower.presentedViewController());
}

// Holds: activity-ends-off-main
TEST_F(ActivityViewController, TakesAnEndFromAnotherThread) {
    boot();
    const auto deed = Deed::with("One");
    open(NSArray::of(deed));
    tapAndWait("One");
    takeProbed();

    std::thread([&] {
        const objc::Pool pool;
        objc::as<UIActivity>(deed).activityDidFinish(true);
    }).join();
    settle();

    EXPECT_EQ(takeProbed(), Lines{"handler deed.One yes"});
}

// Holds: sheet-handler
TEST_F(ActivityViewController, IsCancelledByATouchBesideIt) {
    boot();
    open(NSArray::of(Deed::with("One")));

    tap(160, 60);
    settle();

    EXPECT_EQ(takeProbed(), Lines{"handler nil no"});
    EXPECT_FALSE(lower.presentedViewController());
}

TEST_F(ActivityViewController, GreysAnActivityThatHasNothingToDo) {
    boot();
    open(NSArray::of(objc::Ref<Idle>::make(), Deed::with("One")));
    const auto tile = findClass("UIActivityTile", countClass("UIActivityTile") - 2);

    double x = 0;
    double y = 0;
    std::sscanf(tile.attribute("screen").value(), "%lf %lf", &x, &y);
    tap(x + 38, y + 40);
    settle();

    EXPECT_EQ(attribute(tile, "state"), "disabled");
    EXPECT_EQ(takeProbed(), Lines{});
    EXPECT_EQ(lower.presentedViewController(), sheet);
}

TEST_F(ActivityViewController, SpeaksThePhonesLanguage) {
    useLanguage("de");

    open(nullptr);

    EXPECT_TRUE(isVisible("Abbrechen"));
    EXPECT_TRUE(isVisible("Nachricht"));
}

TEST_F(ActivityViewController, CopiesATextToThePasteboard) {
    open(nullptr);

    tapAndWait("Copy");

    EXPECT_EQ(phone::text(UIPasteboard::general().string()), "words");
    EXPECT_EQ(takeProbed(), Lines{"handler com.apple.UIKit.activity.CopyToPasteboard yes"});
    EXPECT_FALSE(lower.presentedViewController());
}

TEST_F(ActivityViewController, WritesAMessageThatIsSent) {
    open(nullptr);
    tapAndWait("Message");

    tapAndWait("Send");

    EXPECT_EQ(read("/var/mobile/Library/SMS/Outgoing/1.txt"), "To: \n\nwords\n");
    EXPECT_EQ(takeProbed().back(), "handler com.apple.UIKit.activity.Message yes");
    EXPECT_FALSE(lower.presentedViewController());
}

TEST_F(ActivityViewController, WritesNoMailThatIsCancelled) {
    open(nullptr);
    tapAndWait("Mail");

    tapAndWait("Cancel");

    EXPECT_FALSE(exists("/var/mobile/Library/Mail/Outgoing"));
    EXPECT_EQ(takeProbed().back(), "handler com.apple.UIKit.activity.Mail no");
}

TEST_F(ActivityViewController, SaysThatAServiceIsNotSetUp) {
    open(nullptr);

    tapAndWait("AirDrop");
    EXPECT_TRUE(isVisible("Not Set Up: AirDrop"));
    tapAndWait("OK");

    EXPECT_EQ(takeProbed(), Lines{"handler com.apple.UIKit.activity.AirDrop no"}); // and nobody beneath was told
    EXPECT_FALSE(lower.presentedViewController());
}

TEST_F(ActivityViewController, GivesItsActivitiesUpWhenItGoes) {
    show();
    const auto deed = Deed::with("One");
    {
        const objc::Pool pool;
        run([&] {
            lower.present(UIActivityViewController::with(NSArray::of(""_ns), NSArray::of(deed)), true, nullptr);
        });
        settle();
        tapAndWait("One");
        run([&] { objc::as<UIActivity>(deed).activityDidFinish(true); });
        settle();
    }

    run([&] { objc::as<UIActivity>(deed).activityDidFinish(true); }); // reaches nobody

    EXPECT_FALSE(lower.presentedViewController());
}

// Holds: sheet-asks-what-can-be-performed
TEST_F(ActivityViewController, AsksItsActivitiesOnlyWhetherTheyCanWhileItOpens) {
    boot();
    const auto deed = Deed::with("One");

    open(NSArray::of(deed));

    EXPECT_GE(deed->asked, 1);
    EXPECT_EQ(takeProbed(), Lines{});
}

// Holds: sheet-answers-both-rotation-questions
TEST_F(ActivityViewController, AnswersBothQuestionsOfRotationItself) {
    boot();
    auto answersItself = [](SEL selector) {
        return class_getMethodImplementation(objc::classOf<UIActivityViewController>(), selector) !=
               class_getMethodImplementation(objc::classOf<UIViewController>(), selector);
    };

    EXPECT_TRUE(answersItself(objc::selector<"shouldAutorotateToInterfaceOrientation:">()));
    EXPECT_TRUE(answersItself(objc::selector<"supportedInterfaceOrientations">()));
}
