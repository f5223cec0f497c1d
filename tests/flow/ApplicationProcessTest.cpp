#include "phone/flow/ApplicationProcess.h"

#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

/// An application written as a shell script, whose socket is file 3.
class ApplicationProcessTest : public testing::Test {
protected:
    ApplicationProcess::Start script(const std::string& body) {
        const std::string file = folder.write("application", "#!/bin/sh\n" + body);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return {file, folder.path("root"), {.zone = "Europe/Berlin"}, 12};
    }

    template <class Work>
    static std::string death(const Work& work) {
        try {
            work();
            return "";
        } catch (const ApplicationDied& error) {
            return error.what();
        }
    }

    TemporaryFolder folder;
};

/// Answers the greeting, then does the rest.
const std::string up = "read line <&3; echo '{\"ok\":true}' >&3; ";

} // namespace

TEST_F(ApplicationProcessTest, IsGivenItsOptionsAndItsZone) {
    ApplicationProcess process(
        script("echo \"$@ $TZ $HOME $SECRET\" > " + folder.path("seen") + "; " + up + "cat <&3 >/dev/null"));

    process.stop();

    EXPECT_EQ(folder.read("seen"),
              "--socket-fd 3 --root " + folder.path("root") +
                  " --device iphone5 --app newer --language en --system 7 --zone Europe/Berlin --now 12.000 "
                  "Europe/Berlin " +
                  folder.path("root") + "/var/mobile \n");
    EXPECT_FALSE(process.isRunning());
}

TEST_F(ApplicationProcessTest, AnswersCommands) {
    ApplicationProcess process(script(up + "read line <&3; echo '{\"ok\":true,\"tree\":\"<screen/>\"}' >&3; cat <&3"));

    EXPECT_EQ(process.tree(), "<screen/>");
}

TEST_F(ApplicationProcessTest, RefusesACommandAndGoesOn) {
    ApplicationProcess process(script(
        up +
        "read line <&3; echo '{\"ok\":false,\"error\":\"no text\"}' >&3; read line <&3; echo '{\"ok\":true}' >&3"));

    EXPECT_THROW(process.type("x"), ScreenError);
    process.settle();

    EXPECT_TRUE(process.isRunning());
}

TEST_F(ApplicationProcessTest, ReportsAnExitThatWasNotAskedFor) {
    ApplicationProcess process(script(up + "read line <&3; echo 'first' >&2; echo 'it broke' >&2; exit 3"));

    EXPECT_EQ(death([&] { process.settle(); }), "the phone application died: exit status 3, last words: it broke");
    EXPECT_THAT(death([&] { process.settle(); }), HasSubstr("does not run"));
}

TEST_F(ApplicationProcessTest, ReportsACleanExitThatWasNotAskedFor) {
    ApplicationProcess process(script(up + "exit 0"));

    EXPECT_THAT(death([&] {
                    process.settle();
                    process.settle();
                }),
                HasSubstr("the phone application died: exit status 0"));
}

TEST_F(ApplicationProcessTest, ReportsASignal) {
    ApplicationProcess process(script(up + "kill -SEGV $$"));

    EXPECT_THAT(death([&] { process.settle(); }), HasSubstr("signal 11 (Segmentation fault)"));
}

TEST_F(ApplicationProcessTest, ReportsWhatItSaysOfItsOwnDeath) {
    ApplicationProcess process(
        script(up + "read line <&3; echo '{\"ok\":false,\"died\":true,\"error\":\"raised\"}' >&3; exit 1"));

    EXPECT_EQ(death([&] { process.settle(); }), "raised");
    EXPECT_FALSE(process.isRunning());
}

TEST_F(ApplicationProcessTest, PassesOverTheSanitizersLastLine) {
    ApplicationProcess process(script(up + "printf 'SUMMARY: bad\\n==12==ABORTING\\n' >&2; exit 1"));

    EXPECT_THAT(death([&] {
                    process.settle();
                    process.settle();
                }),
                HasSubstr("last words: SUMMARY: bad"));
}

TEST_F(ApplicationProcessTest, DoesNotWaitForeverForAnAnswer) {
    ApplicationProcess process(script(up + "exec sleep 100"));
    process.setPatience(std::chrono::milliseconds(100));

    EXPECT_THAT(death([&] { process.settle(); }), HasSubstr("did not answer for 0.10 s and was killed"));
    EXPECT_FALSE(process.isRunning());
}

TEST_F(ApplicationProcessTest, HandsOverWhatTheLoaderSaidWhileItCameUp) {
    const std::string said = "printf 'other\\nloader: a: not loaded\\nloader: b: not loaded\\n' >&2; ";
    ApplicationProcess process(script(said + up + "read line <&3; echo 'loader: late' >&2; echo '{\"ok\":true}' >&3"));
    process.settle();

    EXPECT_THAT(process.loaderLines(), testing::ElementsAre("loader: a: not loaded", "loader: b: not loaded"));
}

TEST_F(ApplicationProcessTest, SaysWhatTheLoaderSaidWhenItDiesWhileComingUp) {
    const std::string said = "printf 'loader: a: not loaded\\nnothing there\\n' >&2; ";

    EXPECT_EQ(death([&] { ApplicationProcess process(script(said + "exit 3")); }),
              "the phone application died: exit status 3, last words: nothing there; loader: a: not loaded");
    EXPECT_EQ(death([&] { ApplicationProcess process(script("echo 'loader: a: not loaded' >&2; exit 3")); }),
              "the phone application died: exit status 3, last words: loader: a: not loaded");
}

TEST_F(ApplicationProcessTest, SaysWhenItCannotBeStarted) {
    EXPECT_THROW(ApplicationProcess({folder.path("missing"), folder.path(), {}, 0}), ScreenError);
    EXPECT_THAT(death([&] { ApplicationProcess process(script("echo 'no root' >&2; exit 2")); }),
                HasSubstr("exit status 2, last words: no root"));
}

TEST_F(ApplicationProcessTest, ReportsAnEndThatIsNotClean) {
    ApplicationProcess process(script(up + "cat <&3 >/dev/null; echo 'leaked' >&2; exit 1"));

    EXPECT_THAT(death([&] { process.stop(); }),
                HasSubstr("did not end as it was asked to: exit status 1, last words: leaked"));
}
