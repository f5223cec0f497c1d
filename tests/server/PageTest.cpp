#include "phone/server/Page.h"

#include "phone/flow/NewPhone.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using nlohmann::json;
using testing::HasSubstr;

namespace {

/// A phone that does not run, served with a page of two files.
class PageTest : public testing::Test {
protected:
    PageTest() {
        makePhone(folder.path("root"), STAGE_DIRECTORY, Stores{});
        folder.write("page/index.html", "<!doctype html>");
        folder.write("page/main.js", "export {}");
        folder.write("page/notes.txt", "none of the page's");
        page.emplace(phone, folder.path("page"));
        page->serveOn(http);
        port = http.bind_to_any_port("127.0.0.1");
        serving = std::thread([this] { http.listen_after_bind(); });
        while (!http.is_running()) {
            std::this_thread::yield();
        }
    }
    ~PageTest() override {
        page->close();
        http.stop();
        serving.join();
    }

    httplib::Result get(const std::string& path) const { return httplib::Client("127.0.0.1", port).Get(path); }
    httplib::Result post(const std::string& path, const std::string& body) const {
        return httplib::Client("127.0.0.1", port).Post(path, body, "application/json");
    }
    /// Of a refusal.
    static std::string why(const httplib::Result& result, int status) {
        EXPECT_EQ(result->status, status) << result->body;
        return json::parse(result->body).at("error");
    }

    TemporaryFolder folder;
    LivePhone phone{BUILD_DIRECTORY "/phone-application", folder.path("root"), {}};
    httplib::Server http;
    std::optional<Page> page;
    int port = 0;
    std::thread serving;
};

} // namespace

TEST_F(PageTest, GivesItsFilesAndNothingElseWithAStrictPolicy) {
    const auto index = get("/");

    EXPECT_EQ(index->body, "<!doctype html>");
    EXPECT_EQ(index->get_header_value("X-Content-Type-Options"), "nosniff");
    EXPECT_THAT(index->get_header_value("Content-Security-Policy"), HasSubstr("default-src 'none'; script-src 'self'"));
    EXPECT_EQ(get("/page/main.js")->get_header_value("Content-Type"), "text/javascript; charset=utf-8");
    EXPECT_EQ(get("/page/notes.txt")->status, 404);
    EXPECT_EQ(get("/page/../root/var/mobile/Library/Phone/zone")->status, 404);
}

TEST_F(PageTest, RefusesWhatIsNoCommand) {
    EXPECT_THAT(why(post("/page/fly", "{}"), 404), HasSubstr("no command \"fly\""));
    EXPECT_THAT(why(post("/page/type", "no JSON"), 400), HasSubstr("JSON object"));
    EXPECT_THAT(why(post("/page/type", "[]"), 400), HasSubstr("JSON object"));
    EXPECT_THAT(why(post("/page/type", "{\"text\": 1}"), 400), HasSubstr("\"text\" has to be a text"));
    EXPECT_THAT(why(post("/page/key", "{\"key\": \"F1\"}"), 400), HasSubstr("one of enter, backspace"));
    EXPECT_THAT(why(post("/page/orientation", "{\"orientation\": \"SIDEWAYS\"}"), 400), HasSubstr("PORTRAIT"));
    EXPECT_THAT(why(post("/page/clock", "{\"localTime\": \"noon\"}"), 400), HasSubstr("never show \"noon\""));
    EXPECT_THAT(why(post("/page/settings", "{\"device\": \"toaster\"}"), 400), HasSubstr("unknown device"));
    EXPECT_THAT(why(post("/page/settings", "{\"hours\": \"13\"}"), 400), HasSubstr("unknown hours `13`"));
    EXPECT_THAT(why(post("/page/preferences", "{\"key\": \"Other\", \"on\": true}"), 400), HasSubstr("no switch"));
    EXPECT_THAT(why(post("/page/preferences", "{\"key\": \"SwitchCell1\", \"on\": 1}"), 400),
                HasSubstr("true or false"));
    EXPECT_THAT(why(post("/page/permissions", "{\"reminders\": \"maybe\"}"), 400), HasSubstr("ask, allow, deny"));
    EXPECT_THAT(why(post("/page/record", "{\"action\": \"stop\"}"), 400), HasSubstr("no recording runs"));
    EXPECT_THAT(why(post("/page/play", "{\"text\": \"- fly\", \"name\": \"my.yaml\"}"), 400),
                HasSubstr("my.yaml:1: command 1: unknown command `fly`"));
    EXPECT_THAT(why(get("/page/screen?since=yesterday"), 400), HasSubstr("whole number"));
    EXPECT_THAT(why(get("/page/events"), 400), HasSubstr("\"page\""));
    EXPECT_THAT(why(get("/page/recording"), 400), HasSubstr("nothing has been recorded"));
}

TEST_F(PageTest, SaysThatThePhoneDoesNotRun) {
    EXPECT_THAT(why(post("/page/type", "{\"text\": \"a\"}"), 409), HasSubstr("does not run"));
    EXPECT_THAT(why(get("/page/tree"), 409), HasSubstr("does not run"));
    EXPECT_EQ(json::parse(get("/page/state")->body).at("life"), "ended");
}

TEST_F(PageTest, TakesTouchesOfPagesThatWatchAlone) {
    phone.launch();

    EXPECT_THAT(why(post("/page/touch", R"({"page": "p", "phase": "began", "x": 1, "y": 1})"), 409),
                HasSubstr("only a page that watches"));
    EXPECT_THAT(why(post("/page/touch", R"({"page": "p", "phase": "began", "x": 1e300, "y": 1})"), 400),
                HasSubstr("\"x\" has to be a number"));
}

TEST_F(PageTest, TellsWhatHappensAsItHappens) {
    phone.launch();
    std::string heard;
    std::thread listening([&] {
        httplib::Client("127.0.0.1", port).Get("/page/events?page=p", [&](const char* data, std::size_t size) {
            heard.append(data, size);
            if (heard.find("\"idle\"") != std::string::npos && heard.find("event: records") != std::string::npos &&
                phone.state().at("call").at("phase") == "idle") {
                phone.phoneCall("5551234", "call");
            }
            return heard.find("\"ringing\"") == std::string::npos;
        });
    });
    listening.join();

    EXPECT_THAT(heard, HasSubstr("event: screen\n"));
    EXPECT_THAT(heard, HasSubstr("\"label\":\"Open Keyboard at Once\""));
    EXPECT_THAT(heard, HasSubstr("5551234"));
}

TEST_F(PageTest, RestartsForAnotherPersonAndKeepsWhatIsLeftOut) {
    const auto settings = [&] { return json::parse(get("/page/state")->body).at("settings"); };
    EXPECT_EQ(settings().at("system"), "7");
    EXPECT_EQ(settings().at("region"), "");
    EXPECT_EQ(settings().at("hours"), "");

    EXPECT_EQ(post("/page/settings", R"({"region": "US", "hours": "24", "system": "8"})")->status, 200);
    EXPECT_EQ(post("/page/settings", R"({"language": "de", "region": ""})")->status, 200);

    EXPECT_EQ(settings().at("language"), "de");
    EXPECT_EQ(settings().at("region"), "");
    EXPECT_EQ(settings().at("hours"), "24");
    EXPECT_EQ(settings().at("system"), "8");
}

TEST_F(PageTest, SetsASwitchAsTheSettingsWould) {
    EXPECT_EQ(post("/page/preferences", R"({"key": "SwitchCell2", "on": true})")->status, 200);

    EXPECT_THAT(folder.read("root/var/mobile/Library/Preferences/Mirelda.Quorvan.plist"),
                HasSubstr("<key>SwitchCell2</key>\n\t\t<true />"));
}

TEST_F(PageTest, RecordsWhileTheClockStandsAndLetsItGoOn) {
    phone.launch();

    EXPECT_EQ(post("/page/record", R"({"action": "start"})")->status, 200);
    EXPECT_TRUE(phone.status().clockStands);
    EXPECT_EQ(phone.status().launch, 2U);
    EXPECT_THAT(why(post("/page/settings", "{}"), 400), HasSubstr("stop recording first"));
    post("/page/call", R"({"action": "call", "number": "5551234"})");
    post("/page/record", R"({"action": "stop"})");

    EXPECT_FALSE(phone.status().clockStands);
    EXPECT_THAT(get("/page/recording")->body, HasSubstr("- phoneCall: {number: \"5551234\", action: call}\n"));
}

TEST_F(PageTest, PlaysAFlowAndLeavesTheApplicationRunning) {
    const json flow = {{"text", "- launchApp\n- phoneCall: {number: '5551234', action: call}\n"},
                       {"name", "call.yaml"}};

    const json result = json::parse(post("/page/play", flow.dump())->body);

    EXPECT_EQ(result.at("ok"), true) << result;
    EXPECT_EQ(result.at("pictures"), nullptr);
    EXPECT_EQ(phone.state().at("call").at("phase"), "ringing");
    EXPECT_FALSE(phone.status().clockStands);
}

TEST_F(PageTest, StopsAPlayThatWaits) {
    std::thread stopping([&] {
        std::uint64_t seen = phone.changes();
        while (json::parse(get("/page/state")->body).at("play").value("command", "") != "advance") {
            seen = phone.waitForChange(seen, std::chrono::seconds(1));
        }
        post("/page/stop-play", "{}");
    });
    const json result =
        json::parse(post("/page/play", R"({"text": "- launchApp\n- advance: 4\n- advance: 600\n"})")->body);
    stopping.join();

    EXPECT_EQ(result.at("ok"), false);
    EXPECT_THAT(result.at("lines").dump(), HasSubstr("the play was stopped"));
}
