#include "phone/webdriver/Routes.h"
#include "tests/webdriver/LiveSession.h"

#include <csignal>
#include <gmock/gmock.h>

using namespace phone;
using namespace phone::webdriver;
using testing::HasSubstr;

namespace {

class ProtocolTest : public LiveSession {
protected:
    /// A route's path with something in the place of its parameters.
    std::string pathOf(const Route& route, const std::string& element = "E1-1") const {
        std::string path = session;
        for (const std::string& part : route.parts) {
            path += "/" + (part == "{element}" ? element : part.front() == '{' ? "label" : part);
        }
        return path;
    }
};

bool takesAnElement(const Route& route) { return std::string(route.path).find("{element}") != std::string::npos; }

} // namespace

TEST_F(ProtocolTest, SaysThatItIsReadyWithoutASession) {
    const json ready = value("GET", "/status");

    EXPECT_EQ(ready.at("ready"), true);
    EXPECT_EQ(ready.at("device"), "iphone");
}

TEST_F(ProtocolTest, BeginsASessionAndLaunchesTheApplication) {
    begin();

    EXPECT_EQ(phone.status().life, LivePhone::Life::Running);
    EXPECT_EQ(get("").at("platformName"), "iOS");
    EXPECT_FALSE(get("").contains("browserName"));
}

TEST_F(ProtocolTest, EndsTheSessionBeforeWhenANewOneBegins) {
    begin();
    const std::string before = session;

    begin();

    EXPECT_EQ(error("GET", before + "/source"), "invalid session id");
    EXPECT_EQ(status, 404);
    EXPECT_NE(session, before);
}

TEST_F(ProtocolTest, EndsASession) {
    begin();

    value("DELETE", session);

    EXPECT_EQ(error("GET", session), "invalid session id");
    EXPECT_EQ(error("DELETE", session), "invalid session id");
}

TEST_F(ProtocolTest, LaunchesTheApplicationOfABundleAnew) {
    begin();
    begin({{"appium:bundleId", "com.apple.mobilephone"}});

    EXPECT_EQ(phone.status().launch, 2U);
    EXPECT_EQ(phone.status().settings.application, "older");
    EXPECT_EQ(get("").at("bundleId"), "com.apple.mobilephone");
}

TEST_F(ProtocolTest, KeepsWhatRunsWhereTheClientAsksForThat) {
    begin();
    begin({{"bundleId", "com.apple.InCallService"}, {"forceAppLaunch", false}});

    EXPECT_EQ(phone.status().launch, 1U);
}

TEST_F(ProtocolTest, LaunchesInAnotherLanguage) {
    begin({{"appium:language", "de"}});

    EXPECT_EQ(phone.status().settings.language, "de");
}

TEST_F(ProtocolTest, TakesTheLanguageFromTheApplicationsArguments) {
    begin({{"appium:processArguments", {{"args", {"-AppleLanguages", "(fr)"}}}}});

    EXPECT_EQ(phone.status().settings.language, "fr");
}

TEST_F(ProtocolTest, LaunchesForAPersonOfAnotherRegionWithHoursOfTheirOwn) {
    begin({{"appium:language", "de"}, {"appium:locale", "de_AT"}, {"appium:hours", 12}});

    EXPECT_EQ(phone.status().settings.region, "AT");
    EXPECT_EQ(phone.status().settings.hours, "12");
    EXPECT_EQ(get("").at("locale"), "de_AT");
    EXPECT_EQ(get("").at("hours"), "12");
    EXPECT_EQ(get("/wda/device/info").at("currentLocale"), "de_AT");

    begin({{"appium:locale", "CH"}, {"appium:hours", "24"}});
    EXPECT_EQ(get("").at("locale"), "de_CH");
    EXPECT_EQ(get("").at("hours"), "24");
    EXPECT_EQ(phone.status().launch, 2U);
}

TEST_F(ProtocolTest, SaysWhereThePersonLivesWhereNobodyHasChosen) {
    begin({{"appium:language", "pt"}});

    EXPECT_EQ(get("").at("locale"), "pt_BR");
    EXPECT_FALSE(get("").contains("hours"));
}

TEST_F(ProtocolTest, TakesTheRegionFromTheApplicationsArguments) {
    begin({{"appium:processArguments", {{"args", {"-AppleLanguages", "(fr)", "-AppleLocale", "fr_CA"}}}}});

    EXPECT_EQ(get("").at("locale"), "fr_CA");
}

TEST_F(ProtocolTest, LaunchesWithTheSystemThatTheClientNames) {
    begin();
    EXPECT_EQ(get("").at("platformVersion"), "7.0");

    begin({{"appium:platformVersion", "8.1"}});

    EXPECT_EQ(get("").at("platformVersion"), "8.0");
    EXPECT_EQ(value("GET", "/status").at("os").at("version"), "8.0");
    EXPECT_EQ(phone.status().settings.system, "8");
}

TEST_F(ProtocolTest, RefusesASessionThatCannotBe) {
    EXPECT_EQ(error("POST", "/session", json::object()), "session not created");
    EXPECT_EQ(status, 500);
    const auto refused = [&](const json& capabilities) {
        return error("POST", "/session", {{"capabilities", {{"alwaysMatch", capabilities}}}});
    };
    EXPECT_EQ(refused({{"platformName", "Android"}}), "session not created");
    EXPECT_EQ(refused({{"appium:bundleId", "com.example.none"}}), "session not created");
    EXPECT_EQ(refused({{"appium:bundleId", 5}}), "invalid argument");
    EXPECT_EQ(refused({{"appium:language", "!"}}), "invalid argument");
    EXPECT_EQ(refused({{"appium:locale", "xx"}}), "invalid argument");
    EXPECT_EQ(refused({{"appium:hours", 13}}), "invalid argument");
    EXPECT_EQ(refused({{"appium:hours", true}}), "invalid argument");
    EXPECT_EQ(refused({{"appium:platformVersion", "16.0"}}), "session not created");
    EXPECT_EQ(refused({{"defaultAlertAction", "perhaps"}}), "invalid argument");
    EXPECT_EQ(error("POST", "/session", {{"capabilities", {{"alwaysMatch", 5}}}}), "invalid argument");
    EXPECT_EQ(error("POST", "/session", {{"capabilities", {{"firstMatch", 5}}}}), "invalid argument");
    EXPECT_EQ(error("POST", "/session", {{"capabilities", {{"firstMatch", {5}}}}}), "invalid argument");
}

TEST_F(ProtocolTest, SendsErrorsInTheStandardsAndInTheMobileForm) {
    const json refused = asked("GET", "/nowhere", "").at("value");

    EXPECT_EQ(status, 404);
    EXPECT_EQ(refused.at("error"), "unknown command");
    EXPECT_TRUE(refused.contains("stacktrace"));
    EXPECT_TRUE(refused.contains("traceback"));
}

TEST_F(ProtocolTest, RefusesEveryRouteOfASessionThatThereIsNot) {
    session = "/session/none";

    for (const Route& route : routes()) {
        EXPECT_EQ(error(route.method, pathOf(route), json::object()), "invalid session id") << route.path;
        EXPECT_EQ(status, 404) << route.path;
    }
}

TEST_F(ProtocolTest, RefusesEveryRouteByAnotherMethod) {
    begin();

    for (const Route& route : routes()) {
        EXPECT_EQ(error("PUT", pathOf(route), json::object()), "unknown method") << route.path;
        EXPECT_EQ(status, 405) << route.path;
    }
    EXPECT_EQ(error("PUT", session, json::object()), "unknown method");
    EXPECT_EQ(error("DELETE", "/status"), "unknown method");
    EXPECT_EQ(error("GET", "/session"), "unknown method");
}

TEST_F(ProtocolTest, RefusesABodyThatIsNoObject) {
    begin();

    for (const Route& route : routes()) {
        if (std::string(route.method) != "POST") {
            continue;
        }
        for (const char* body : {"[]", "5", "{", "\"text\"", "{\"a\": \xff}"}) {
            EXPECT_EQ(errorOf("POST", pathOf(route), body), "invalid argument") << route.path << " " << body;
            EXPECT_EQ(status, 400);
        }
    }
}

TEST_F(ProtocolTest, RefusesABodyThatIsTooDeep) {
    begin();
    const std::string deep = "{\"using\":" + std::string(100000, '[') + std::string(100000, ']') + "}";

    EXPECT_EQ(errorOf("POST", session + "/element", deep), "invalid argument");
}

TEST_F(ProtocolTest, RefusesElementsThatWereNeverFound) {
    begin();

    for (const Route& route : routes()) {
        if (takesAnElement(route)) {
            const json body = {{"text", "a"},       {"using", "id"}, {"value", "a"}, {"order", "next"},
                               {"direction", "up"}, {"fromX", 1},    {"fromY", 1},   {"toX", 2},
                               {"toY", 2},          {"duration", 0}, {"offset", 0.1}};
            EXPECT_EQ(error(route.method, pathOf(route, "never"), body), "no such element") << route.path;
            EXPECT_EQ(status, 404);
        }
    }
}

TEST_F(ProtocolTest, RefusesElementsWhoseViewHasGone) {
    openSheet();
    const std::string note = find("accessibility id", "Note");
    click(note);
    const std::string gone = pathParts(note).back();

    for (const Route& route : routes()) {
        if (takesAnElement(route)) {
            const json body = {{"text", "a"},       {"using", "id"}, {"value", "a"}, {"order", "next"},
                               {"direction", "up"}, {"fromX", 1},    {"fromY", 1},   {"toX", 2},
                               {"toY", 2},          {"duration", 0}, {"offset", 0.1}};
            EXPECT_EQ(error(route.method, pathOf(route, gone), body), "stale element reference") << route.path;
            EXPECT_EQ(status, 404);
        }
    }
}

TEST_F(ProtocolTest, RefusesElementsOfALaunchBefore) {
    begin();
    const std::string title = find("accessibility id", "Phone");
    mobile("terminateApp");
    mobile("launchApp");

    EXPECT_EQ(error("GET", session + title + "/text"), "stale element reference");
}

TEST_F(ProtocolTest, SaysThatTheApplicationDiedAndLaunchesItAgainInTheSameSession) {
    begin();
    kill(mobile("activeAppInfo").at("pid").get<pid_t>(), SIGKILL);

    const json refused = asked("GET", session + "/source", "").at("value");
    EXPECT_EQ(refused.at("error"), "invalid element state");
    EXPECT_THAT(refused.at("message").get<std::string>(), HasSubstr("signal 9"));
    EXPECT_EQ(mobile("queryAppState"), 1);

    mobile("launchApp");
    EXPECT_EQ(mobile("queryAppState"), 4);
    EXPECT_THAT(get("/source").get<std::string>(), HasSubstr("No call"));
}

TEST_F(ProtocolTest, RefusesWhatAPhoneCannotDo) {
    begin();

    for (const Route& route : routes()) {
        if (route.command == unsupported) {
            EXPECT_EQ(error(route.method, pathOf(route), json::object()), "unsupported operation") << route.path;
            EXPECT_EQ(status, 500);
        }
    }
    EXPECT_EQ(mobileError("lock"), "unsupported operation");
    EXPECT_EQ(mobileError("pinch"), "unsupported operation");
    EXPECT_EQ(mobileError("fly"), "unknown command");
    EXPECT_EQ(error("POST", session + "/execute/sync", {{"script", "return 1"}, {"args", json::array()}}),
              "unsupported operation");
}

TEST_F(ProtocolTest, AnswersSourceAndPictureWithoutASession) {
    phone.launch();

    EXPECT_THAT(value("GET", "/source").get<std::string>(), HasSubstr("XCUIElementTypeApplication"));
    EXPECT_THAT(value("GET", "/screenshot").get<std::string>(), testing::StartsWith("iVBOR"));
    EXPECT_EQ(value("GET", "/wda/healthcheck"), json());
}

TEST_F(ProtocolTest, PassesOverSlashesThatSayNothing) {
    phone.launch();

    EXPECT_EQ(value("GET", "//source/", json(), {{"format", "json"}}).at("type"), "Application");
}
