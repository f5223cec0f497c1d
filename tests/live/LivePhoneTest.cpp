#include "phone/live/LivePhone.h"

#include "phone/flow/NewPhone.h"
#include "tests/flow/TemporaryFolder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

using std::chrono::seconds;

/// A fresh phone that runs in real time, with the application of this build.
class LivePhoneTest : public testing::Test {
protected:
    LivePhoneTest() { makePhone(folder.path("root"), STAGE_DIRECTORY, Stores{}); }

    /// Waits until the phone says so; what never comes fails the test.
    template <class Question>
    void waitUntil(const Question& question) {
        const auto last = LivePhone::Clock::now() + seconds(60);
        for (std::uint64_t seen = phone.changes(); !question(); seen = phone.waitForChange(seen, seconds(1))) {
            ASSERT_LT(LivePhone::Clock::now(), last) << "it never came";
        }
    }
    void beInACall() {
        phone.launch();
        phone.phoneCall("+49 89 5551234", "call");
        phone.phoneCall("", "accept");
    }

    TemporaryFolder folder;
    LivePhone phone{BUILD_DIRECTORY "/phone-application", folder.path("root"), {}};
};

} // namespace

TEST_F(LivePhoneTest, RefusesCommandsBeforeItIsLaunched) {
    EXPECT_THROW(phone.tree(), ApplicationDied);
    EXPECT_EQ(phone.status().life, LivePhone::Life::Ended);
}

TEST_F(LivePhoneTest, TakesCommandsOnceItIsLaunched) {
    phone.launch();

    EXPECT_THAT(phone.tree(), HasSubstr("No call"));
    EXPECT_EQ(phone.status().life, LivePhone::Life::Running);
}

TEST_F(LivePhoneTest, LetsTimeGoByWithoutBeingAsked) {
    beInACall();

    waitUntil([&] { return phone.state().at("call").at("seconds").get<long>() >= 1; });
}

TEST_F(LivePhoneTest, WaitsUntilNothingMoves) {
    phone.launch();
    phone.phoneCall("5551234", "call");

    phone.settle();

    EXPECT_FALSE(phone.isMoving());
}

TEST_F(LivePhoneTest, NoticesThatTheApplicationDiedThoughNobodyAsks) {
    phone.launch();

    kill(phone.status().process, SIGKILL);

    waitUntil([&] { return phone.status().life == LivePhone::Life::Died; });
    EXPECT_THAT(phone.status().epitaph, HasSubstr("signal 9"));
    EXPECT_THROW(phone.tree(), ApplicationDied);
}

TEST_F(LivePhoneTest, RunsAgainAfterADeath) {
    phone.launch();
    kill(phone.status().process, SIGKILL);
    waitUntil([&] { return phone.status().life == LivePhone::Life::Died; });

    phone.launch();

    EXPECT_THAT(phone.tree(), HasSubstr("No call"));
    EXPECT_EQ(phone.status().launch, 2U);
}

TEST_F(LivePhoneTest, EndsTheApplicationWhenAsked) {
    phone.launch();

    phone.stop();

    EXPECT_EQ(phone.status().life, LivePhone::Life::Ended);
    EXPECT_EQ(phone.status().process, 0);
}

TEST_F(LivePhoneTest, RunsWithOtherSettings) {
    phone.launch();

    phone.launch({.device = "ipad", .language = "de", .zone = "Europe/Berlin"});

    EXPECT_THAT(phone.tree(), HasSubstr("width=\"768\""));
    EXPECT_EQ(phone.status().settings.language, "de");
}

TEST_F(LivePhoneTest, ShowsTheWholeScreenAtFirst) {
    phone.launch();

    const ScreenBand band = phone.picture(0);

    EXPECT_EQ(band.width, 640);
    EXPECT_EQ(band.height, 1136);
    EXPECT_EQ(band.first, 0);
    EXPECT_EQ(band.count, 1136);
    EXPECT_EQ(band.pixels.size(), 640U * 1136 * 4);
    EXPECT_EQ(band.pixels.substr(640U * 1000 * 4, 4), "\xff\xff\xff\xff");
}

TEST_F(LivePhoneTest, ShowsOnlyTheLinesThatHaveChanged) {
    beInACall();
    phone.settle();
    const ScreenBand before = phone.picture(0);

    ScreenBand band;
    waitUntil([&] {
        band = phone.picture(before.version);
        return band.count > 0;
    });

    EXPECT_GE(band.first, 2 * 62); // the running time, and nothing else
    EXPECT_LE(band.first + band.count, 2 * 84);
}

TEST_F(LivePhoneTest, ShowsNothingNewWhereNothingHasChanged) {
    phone.launch();
    const ScreenBand before = phone.picture(0);

    const ScreenBand band = phone.picture(before.version);

    EXPECT_EQ(band.count, 0);
    EXPECT_EQ(band.version, before.version);
}

TEST_F(LivePhoneTest, ShowsTheWholeScreenAgainWhenItIsTurned) {
    phone.launch();
    const ScreenBand before = phone.picture(0);

    phone.setOrientation("LANDSCAPE_LEFT");
    const ScreenBand band = phone.picture(before.version);

    EXPECT_EQ(band.width, 1136);
    EXPECT_EQ(band.count, 640);
}

TEST_F(LivePhoneTest, KeepsAClockThatWasSetOverLaunches) {
    phone.launch();
    phone.chooseClock(1000000000);

    phone.launch();

    EXPECT_EQ(phone.state().at("clock").get<double>(), 1000000000);
    EXPECT_TRUE(phone.status().clockStands);
}

TEST_F(LivePhoneTest, HasTheHostsTimeUnlessToldOtherwise) {
    phone.launch();
    phone.chooseClock(1000000000);

    phone.chooseClock(std::nullopt);

    EXPECT_NEAR(phone.state().at("clock").get<double>(), static_cast<double>(std::time(nullptr)), 3600);
}

TEST_F(LivePhoneTest, LetsASecondFingerWaitForTheFirst) {
    phone.launch();
    auto first = std::make_unique<LivePhone::Finger>(phone);
    std::atomic<bool> isDown = false;
    std::thread other([&] {
        const LivePhone::Finger second(phone);
        isDown = true;
    });

    EXPECT_FALSE(isDown);
    first.reset();
    other.join();

    EXPECT_TRUE(isDown);
}

TEST_F(LivePhoneTest, LetsGoOfTheFingerOfALaunchBefore) {
    phone.launch();
    const LivePhone::Finger finger(phone);
    EXPECT_TRUE(finger.isHeld());

    phone.launch();

    EXPECT_FALSE(finger.isHeld());
}

TEST_F(LivePhoneTest, EndsWhatWaitsWhenItIsInterrupted) {
    phone.launch();
    std::thread waiting([&] { phone.advance(3600); });

    phone.interrupt();

    waiting.join();
}

TEST_F(LivePhoneTest, TakesCommandsFromManyThreads) {
    phone.launch();
    std::atomic<int> answered = 0;
    std::vector<std::thread> clients;
    for (int client = 0; client < 8; ++client) {
        clients.emplace_back([&] {
            for (int call = 0; call < 25; ++call) {
                answered += phone.tree().empty() ? 0 : 1;
            }
        });
    }
    for (std::thread& client : clients) {
        client.join();
    }

    EXPECT_EQ(answered, 8 * 25);
}
