/// A client with a session on a fresh phone, without the transport in between.
#pragma once

#include "phone/flow/NewPhone.h"
#include "phone/flow/Records.h"
#include "phone/webdriver/Protocol.h"
#include "tests/flow/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace phone::webdriver {

using nlohmann::json;

class LiveSession : public testing::Test {
protected:
    static constexpr const char* zone = "Europe/Berlin";

    LiveSession() { makePhone(folder.path("root"), STAGE_DIRECTORY, Stores{}); }

    /// Begins a session with these capabilities.
    void begin(const json& capabilities = json::object()) {
        const json begun = value("POST", "/session", {{"capabilities", {{"alwaysMatch", capabilities}}}});
        session = "/session/" + begun.at("sessionId").get<std::string>();
    }
    /// The same, with a call that has been accepted.
    void beginInACall() {
        begin();
        mobile("gsmCall", {{"phoneNumber", "+49 89 5551234"}, {"action", "call"}});
        mobile("gsmCall", {{"action", "accept"}});
    }
    void openSheet() {
        beginInACall();
        mobile("tap", {{"x", 160}, {"y", 50}});
    }
    /// The composer of this name, with a field for its title where it has one.
    void compose(const std::string& composer) {
        mobile("setPreferences", {{"values", {{"SwitchCell3", true}}}});
        openSheet();
        click(find("accessibility id", composer));
    }

    /// What the protocol answers; the status goes to `status`.
    json asked(const std::string& method, const std::string& path, const std::string& body, const Query& query = {}) {
        const Answer answer = protocol.answer(method, path, query, body);
        status = answer.status;
        return json::parse(answer.body);
    }
    /// The value of what is expected to be done.
    json value(const std::string& method, const std::string& path, const json& body = json(), const Query& query = {}) {
        const json answer = asked(method, path, body.is_null() ? "" : body.dump(), query);
        EXPECT_EQ(status, 200) << method << " " << path << ": " << answer.dump();
        return answer.at("value");
    }
    /// The error of what is expected to be refused, by the protocol's name; "" when it was done.
    std::string error(const std::string& method, const std::string& path, const json& body = json()) {
        return errorOf(method, path, body.is_null() ? "" : body.dump());
    }
    std::string errorOf(const std::string& method, const std::string& path, const std::string& body) {
        const json refused = asked(method, path, body).at("value");
        if (!refused.is_object() || !refused.contains("error")) {
            return "";
        }
        EXPECT_FALSE(refused.at("message").get<std::string>().empty());
        return refused.at("error");
    }

    json post(const std::string& path, const json& body = json::object()) {
        return value("POST", session + path, body);
    }
    json get(const std::string& path, const Query& query = {}) { return value("GET", session + path, json(), query); }
    json mobile(const std::string& command, const json& arguments = json::object()) {
        return value("POST", (session.empty() ? beganSession() : session) + "/execute/sync",
                     {{"script", "mobile: " + command}, {"args", {arguments}}});
    }
    std::string mobileError(const std::string& command, const json& arguments = json::object()) {
        return error("POST", session + "/execute/sync", {{"script", "mobile: " + command}, {"args", {arguments}}});
    }
    /// The path of an element, for what is asked of it; expects that there is one.
    std::string find(const std::string& strategy, const std::string& wanted) {
        const json found = post("/element", {{"using", strategy}, {"value", wanted}});
        return "/element/" + found.value("ELEMENT", "");
    }
    void click(const std::string& element) { post(element + "/click"); }
    json recorded(const char* kind) { return records(folder.path("root"), zone).at(kind); }

    TemporaryFolder folder;
    LivePhone phone{BUILD_DIRECTORY "/phone-application", folder.path("root"), {.zone = zone}};
    Protocol protocol{phone};
    std::string session; // its path; "" before one has begun
    int status = 0;      // of the last answer

private:
    const std::string& beganSession() {
        begin();
        return session;
    }
};

} // namespace phone::webdriver
