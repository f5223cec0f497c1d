#include "tests/phone/PhoneTest.h"

#include "phone/uikit/View.h"
#include "platform/foundation/NSNumber.h"
#include "platform/uikit/UIEvent.h"

namespace {

/// Told of the end of animations of the older kind.
class Delegate : public objc::Defines<Delegate, NSObject> {
public:
    static constexpr auto objc_name = "TestAnimationDelegate";
    static void define(objc::ClassTable<Delegate>& c) {
        c.def<"animationDidStop:finished:context:", &Delegate::didStop>();
    }

    std::string name;
    int stops = 0;
    bool finished = false;

private:
    void didStop(const NSString& animation, const NSNumber& ended, void*) {
        name = animation.UTF8String();
        finished = ended.boolValue();
        ++stops;
    }
};

/// Keeps one view inside as large as itself.
class Filler : public objc::Defines<Filler, UIView> {
public:
    static constexpr auto objc_name = "TestFiller";
    static void define(objc::ClassTable<Filler>& c) { c.overrides<"layoutSubviews", &Filler::layoutSubviews>(); }

    UIView inside;

private:
    void layoutSubviews() {
        if (!inside) {
            inside = UIView::withFrame(bounds());
            addSubview(inside);
        }
        inside.setFrame(bounds());
    }
};

class Animation : public PhoneTest {
public:
    Animation() { useClassesOnly(); }

    void SetUp() override {
        root = window();
        view = UIView::withFrame({0, 0, 100, 100});
        root.addSubview(view);
    }

    /// Fades the view out.
    void fade(double duration, double delay, objc::UInt options) {
        run([&] {
            UIView faded = view;
            Animation* test = this;
            UIView::animate(
                duration, delay, options,
                ^{
                  faded.setAlpha(0);
                },
                ^(bool done) {
                  ++test->completions;
                  test->finished = done;
                });
            EXPECT_EQ(completions, 0) << "a completion is never called inline";
        });
    }
    /// Fades the view out in a tenth of a second, eased in and out, inside a linear block of 0.7 seconds. Gives what
    /// the log says of it.
    nlohmann::ordered_json innerAnimation(objc::UInt options) {
        run([&] {
            UIView inner = view;
            UIView::animate(
                0.7, 0, 3 << 16,
                ^{
                  UIView::animate(
                      0.1, 0, options,
                      ^{
                        inner.setAlpha(0);
                      },
                      nullptr);
                },
                nullptr);
        });
        return log("animation").back();
    }
    /// Starts to move the view a hundred points down, linearly, in a second; after half of it up again, with these
    /// options.
    void turnBackHalfway(objc::UInt options) {
        for (const CGFloat y : {150, 50}) {
            run([&] {
                UIView moved = view;
                UIView::animate(
                    1, 0, (3 << 16) | options,
                    ^{
                      moved.setCenter({50, y});
                    },
                    nullptr);
            });
            advance(0.5);
        }
    }
    double shownY() { return phone::View::of(view)->presentation().center.y; }
    double shownAlpha() { return phone::View::of(view)->presentation().alpha; }

    UIWindow root;
    UIView view;
    int completions = 0;
    bool finished = false;
};

// Holds: animated-value-at-once
// Trap: completion-comes-later
TEST_F(Animation, SetsTheViewsOwnValueAtOnce) {
    fade(0.3, 0, 0);

    EXPECT_EQ(view.alpha(), 0);
    EXPECT_EQ(shownAlpha(), 1);
}

TEST_F(Animation, MovesWhatIsShownAlongTheCurve) {
    fade(1, 0, UIViewAnimationOptionCurveLinear);
    advance(0.25);
    EXPECT_NEAR(shownAlpha(), 0.75, 1e-6);

    advance(0.75);
    EXPECT_EQ(shownAlpha(), 0);
}

TEST_F(Animation, EasesInAndOutUnlessToldOtherwise) {
    fade(1, 0, 0);

    advance(0.1);
    EXPECT_GT(shownAlpha(), 0.95);
    advance(0.4);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-6);
}

TEST_F(Animation, WaitsForItsDelay) {
    fade(1, 0.5, UIViewAnimationOptionCurveLinear);
    advance(0.5);
    EXPECT_EQ(shownAlpha(), 1);

    advance(0.5);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-6);
}

// Holds: completion-says-finished
TEST_F(Animation, CompletesWhenItsTimeHasPassed) {
    fade(0.3, 0, 2);
    advance(0.29);
    EXPECT_EQ(completions, 0);

    advance(0.02);

    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(finished);
}

// Trap: completion-comes-later
// Holds: completion-never-inline
TEST_F(Animation, CompletesInTheNextCycleWhenItsDurationIsZero) {
    fade(0, 0, 0);

    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(finished);
}

// Holds: completion-early-without-changes
// Trap: completion-comes-later
TEST_F(Animation, CompletesInTheNextCycleWhenNothingChanged) {
    view.setAlpha(0);

    fade(5, 0, 0);

    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(finished);
}

// Holds: completion-says-finished
TEST_F(Animation, CompletesUnfinishedWhenItIsReplaced) {
    fade(1, 0, 0);
    advance(0.5);

    run([&] {
        UIView shown = view;
        UIView::animate(
            1, 0, 0,
            ^{
              shown.setAlpha(1);
            },
            nullptr);
    });

    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(finished);
}

// Holds: completion-says-finished
TEST_F(Animation, CompletesUnfinishedWhenItsViewLeaves) {
    fade(1, 0, 0);

    run([&] { view.removeFromSuperview(); });

    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(finished);
}

// Trap: touches-pass-by
// Holds: animating-views-take-no-touch
TEST_F(Animation, KeepsTouchesOffItsViewsItsDelayIncluded) {
    run([&] {
        UIView moved = view;
        UIView::animate(
            0.3, 0.2, 0,
            ^{
              moved.setCenter({60, 60});
            },
            nullptr);
    });

    EXPECT_EQ(root.hitTest({70, 70}, nullptr), root);
    advance(0.6);
    EXPECT_EQ(root.hitTest({70, 70}, nullptr), view);
}

// Holds: animating-views-take-no-touch
TEST_F(Animation, LetsTouchesThroughWhenAllowedTo) {
    run([&] {
        UIView moved = view;
        UIView::animate(
            0.3, 0, UIViewAnimationOptionAllowUserInteraction,
            ^{
              moved.setCenter({60, 60});
            },
            nullptr);
    });

    EXPECT_EQ(root.hitTest({70, 70}, nullptr), view);
}

TEST_F(Animation, OfTheOlderKindLetsTouchesThrough) {
    run([&] {
        UIView::beginAnimations("noteView"_ns);
        view.setCenter({60, 60});
        UIView::commitAnimations();
    });

    EXPECT_EQ(root.hitTest({70, 70}, nullptr), view);
}

// Holds: older-animation-settings
TEST_F(Animation, OfTheOlderKindTakesItsSettingsFromInsideItsBlock) {
    run([&] {
        UIView::setAnimationDuration(9);
        UIView::beginAnimations("noteView"_ns);
        UIView::setAnimationCurve(UIViewAnimationCurve::EaseIn);
        UIView::setAnimationDuration(0.27);
        view.setCenter({60, 60});
        UIView::commitAnimations();
    });

    const auto entries = log("animation");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].at("name"), "noteView");
    EXPECT_EQ(entries[0].at("duration"), 0.27);
    EXPECT_EQ(entries[0].at("delay"), 0);
    EXPECT_EQ(entries[0].at("curve"), 1);
    EXPECT_EQ(entries[0].at("view"), "UIView");
}

// Holds: older-animation-settings
TEST_F(Animation, OfTheOlderKindLastsAFifthOfASecondUnlessToldOtherwise) {
    run([&] {
        UIView::beginAnimations(nullptr);
        view.setAlpha(0);
        UIView::commitAnimations();
    });

    const auto entries = log("animation");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_TRUE(entries[0].at("name").is_null());
    EXPECT_EQ(entries[0].at("duration"), 0.2);
    EXPECT_EQ(entries[0].at("curve"), 0);
}

// Holds: older-animation-settings
TEST_F(Animation, OfTheOlderKindTellsItsDelegate) {
    const auto delegate = objc::Ref<Delegate>::make();
    run([&] {
        UIView::beginAnimations("theBox"_ns);
        objc::sendClass<UIView, "setAnimationDelegate:">(static_cast<const objc::Object&>(delegate));
        objc::sendClass<UIView, "setAnimationDidStopSelector:">(objc::selector<"animationDidStop:finished:context:">());
        view.setAlpha(0);
        UIView::commitAnimations();
    });
    EXPECT_EQ(delegate->stops, 0);

    settle();

    EXPECT_EQ(delegate->stops, 1);
    EXPECT_EQ(delegate->name, "theBox");
    EXPECT_TRUE(delegate->finished);
}

// Holds: older-animation-settings
TEST_F(Animation, StartsInnerAnimationsWhenTheOutermostIsCommitted) {
    run([&] {
        UIView::beginAnimations("outer"_ns);
        UIView::beginAnimations("inner"_ns);
        view.setAlpha(0);
        UIView::commitAnimations();
        EXPECT_TRUE(log("animation").empty());
        UIView::commitAnimations();
    });

    ASSERT_EQ(log("animation").size(), 1U);
    EXPECT_EQ(log("animation")[0].at("name"), "inner");
}

TEST_F(Animation, OfABlockInsideABlockTakesOverTheOuterDurationAndCurve) {
    const auto inner = innerAnimation(0);

    EXPECT_EQ(inner.at("duration"), 0.7);
    EXPECT_EQ(inner.at("curve"), 3);
}

// Holds: animation-numbers
TEST_F(Animation, OfABlockInsideABlockKeepsItsDurationByOption32AndItsCurveByOption64) {
    const auto duration = innerAnimation(32);
    EXPECT_EQ(duration.at("duration"), 0.1);
    EXPECT_EQ(duration.at("curve"), 3);

    view.setAlpha(1);
    const auto curve = innerAnimation(64);
    EXPECT_EQ(curve.at("duration"), 0.7);
    EXPECT_EQ(curve.at("curve"), 0);
}

// Holds: option-one-is-no-curve
TEST_F(Animation, ReadsItsCurveFromTheHigherOptionBits) {
    fade(0.3, 0, 1);
    EXPECT_EQ(log("animation").back().at("curve"), 0); // option 1 lays out subviews

    view.setAlpha(1);
    fade(0.3, 0, UIViewAnimationOptionCurveEaseIn);
    EXPECT_EQ(log("animation").back().at("curve"), 1);
    EXPECT_EQ(log("animation").back().at("options"), 65536);
}

TEST_F(Animation, IsLoggedOncePerView) {
    run([&] {
        UIView moved = view;
        UIView::animate(
            0.3, 0.1, 2,
            ^{
              moved.setFrame({10, 10, 20, 20});
              moved.setAlpha(0.5);
            },
            nullptr);
    });

    ASSERT_EQ(log("animation").size(), 1U);
    EXPECT_TRUE(log("animation")[0].at("name").is_null());
    EXPECT_EQ(log("animation")[0].at("delay"), 0.1);
    EXPECT_EQ(log("animation")[0].at("options"), 2);
}

TEST_F(Animation, SettlesWhenNothingMovesAnyMore) {
    fade(0.3, 0, 0);

    settle();

    EXPECT_EQ(completions, 1);
    EXPECT_EQ(shownAlpha(), 0);
}

TEST_F(Animation, MovesItsEndWhenTheValueIsSetOutside) {
    fade(1, 0, UIViewAnimationOptionCurveLinear);

    view.setAlpha(0.5);
    advance(0.5);

    EXPECT_NEAR(shownAlpha(), 0.75, 1e-6);
}

// Holds: animation-numbers
TEST_F(Animation, MovesByTheCurveThatItsNumberNames) {
    const auto afterATenth = [&](objc::UInt curve) {
        view.setAlpha(1);
        fade(1, 0, curve << 16);
        completions = 0;
        advance(0.1);
        const double faded = 1 - shownAlpha();
        settle();
        completions = 0;
        return faded;
    };

    const double easedInOut = afterATenth(0);
    const double easedIn = afterATenth(1);
    const double easedOut = afterATenth(2);
    const double linear = afterATenth(3);

    EXPECT_NEAR(linear, 0.1, 1e-6);
    EXPECT_LT(easedIn, linear);
    EXPECT_LT(easedInOut, linear);
    EXPECT_GT(easedOut, linear);
}

// Holds: animation-numbers
TEST_F(Animation, LaysOutWhatIsInsideItsViewsByOption1) {
    const auto filler = objc::Ref<Filler>::make();
    root.addSubview(filler);
    run([&] { objc::as<UIView>(filler).setFrame({0, 0, 100, 100}); });
    const auto grow = [&](objc::UInt options, CGFloat width) {
        run([&] {
            UIView outer = objc::as<UIView>(filler);
            UIView::animate(
                1, 0, (3 << 16) | options,
                ^{
                  outer.setFrame({0, 0, width, 100});
                },
                nullptr);
        });
        advance(0.5);
        return phone::View::of(filler->inside)->presentation().bounds.size.width;
    };

    EXPECT_EQ(grow(0, 200), 200); // laid out later, at once
    settle();
    EXPECT_NEAR(grow(1, 300), 250, 1e-6);
}

// Holds: animation-numbers
TEST_F(Animation, BeginsWhereTheLastOneHasComeToByOption4) {
    turnBackHalfway(4);
    EXPECT_NEAR(shownY(), 75, 1e-6); // from 100 to 50
    settle();

    turnBackHalfway(0);
    EXPECT_NEAR(shownY(), 100, 1e-6); // from 150, where the last one was to end
}

// Holds: animation-numbers
TEST_F(Animation, RepeatsByOption8AndGoesBackByOption16) {
    fade(1, 0, (3 << 16) | 8);
    advance(2.25);
    EXPECT_NEAR(shownAlpha(), 0.75, 1e-6);
    EXPECT_EQ(completions, 0);

    view.removeFromSuperview(); // nothing else ends it
    advance(0);
    root.addSubview(view);
    view.setAlpha(1);
    completions = 0;
    fade(1, 0, (3 << 16) | 16);
    advance(1.25);
    EXPECT_NEAR(shownAlpha(), 0.25, 1e-6);
}

// Holds: older-animation-settings
TEST_F(Animation, OfTheOlderKindTellsNobodyOfItsEndWithoutADelegate) {
    const auto delegate = objc::Ref<Delegate>::make();

    run([&] {
        UIView::beginAnimations("theBox"_ns);
        objc::sendClass<UIView, "setAnimationDidStopSelector:">(objc::selector<"animationDidStop:finished:context:">());
        view.setAlpha(0);
        UIView::commitAnimations();
    });
    settle();

    EXPECT_EQ(delegate->stops, 0);
}

} // namespace
