#include "phone/foundation/Thread.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Texts = std::vector<std::string>;

class OffMainThread : public PhoneTest {
protected:
    OffMainThread() { useClassesOnly(); }

    static void onAnotherThread(const std::function<void()>& work) {
        phone::startThread([&] {
            const objc::Pool pool;
            work();
        }).join();
    }
    /// "CLASS SELECTOR" of each such message, in order.
    Texts messages() {
        Texts all;
        for (const auto& entry : log("offMainThread")) {
            all.push_back(entry.at("class").get<std::string>() + " " + entry.at("selector").get<std::string>());
        }
        return all;
    }
};

} // namespace

// Holds: uikit-is-the-main-threads
TEST_F(OffMainThread, MessagesToViewsOnAnotherThreadAreLogged) {
    expectLogged("offMainThread");
    boot();
    const auto view = UIView::withFrame({{0, 0}, {1, 1}});

    onAnotherThread([&] {
        view.setAlpha(0.5);
        UIApplication::shared();
    });
    view.setAlpha(1);

    EXPECT_EQ(messages(), (Texts{"UIView setAlpha:", "UIApplication sharedApplication"}));
}

TEST_F(OffMainThread, WhatAnyObjectMayBeToldIsNot) {
    boot();
    const auto view = UIView::withFrame({{0, 0}, {1, 1}});

    onAnotherThread([&] {
        const UIView held = view;
        EXPECT_TRUE(objc::responds<"setAlpha:">(held));
        EXPECT_TRUE(held.isEqual(view));
    });

    EXPECT_EQ(messages(), Texts());
}

TEST_F(OffMainThread, ColoursFontsAndTheEndOfAnActivityAreForAnyThread) {
    boot();
    const auto activity = objc::make<UIActivity>();

    onAnotherThread([&] {
        UIColor::rgba(0, 0, 0, 1);
        UIFont::system(12);
        activity.activityDidFinish(true);
    });

    EXPECT_EQ(messages(), Texts());
}

TEST_F(OffMainThread, ATextIsReadWholeWhileTheMainThreadWritesIt) {
    expectLogged("offMainThread");
    constexpr int times = 300;
    boot();
    const auto field = UITextField::withFrame({{0, 0}, {100, 30}});
    const auto view = UITextView::withFrame({{0, 0}, {100, 100}});
    std::thread reader = phone::startThread([&] {
        for (int i = 0; i < times; ++i) {
            const objc::Pool pool;
            EXPECT_EQ(field.text().length() % 3, 0u);
            EXPECT_EQ(view.text().length() % 3, 0u);
        }
    });

    for (int i = 0; i < times; ++i) {
        run([&] {
            field.setText(i % 2 == 0 ? "abc"_ns : "abcdef"_ns);
            view.setText(i % 2 == 0 ? "abcdef"_ns : "abc"_ns);
        });
    }
    reader.join();
}
