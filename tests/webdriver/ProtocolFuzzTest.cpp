// A hundred thousand requests that nobody means seriously, from four clients at once.

#include "phone/webdriver/Routes.h"
#include "tests/webdriver/LiveSession.h"

#include <atomic>
#include <random>
#include <thread>

using namespace phone;
using namespace phone::webdriver;

namespace {

constexpr int clients = 4;
constexpr int requestsOfEach = 25000;
constexpr unsigned oneInMeant = 40; // for the session that there is; these reach the phone

/// Makes requests, the same ones every time.
class RequestMaker {
public:
    explicit RequestMaker(unsigned seed) : _random(seed) {}

    unsigned below(std::size_t count) { return static_cast<unsigned>(_random() % count); }

    std::string method() { return oneOf({"GET", "POST", "DELETE", "PUT", "", "get"}); }

    /// A route's path, or something like one.
    std::string path(const std::string& session) {
        const Route& route = routes()[below(routes().size())];
        std::string path = session;
        for (const std::string& part : route.parts) {
            path += "/" + (part.front() == '{' ? element() : part);
        }
        return below(8) == 0 ? path + "/" + noise() : path;
    }

    std::string body() {
        switch (below(4)) {
        case 0:
            return noise();
        case 1:
            return "";
        default:
            return object(0).dump(-1, ' ', false, json::error_handler_t::replace);
        }
    }

    std::string noise() {
        std::string bytes(below(60), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(_random());
        }
        return bytes;
    }

private:
    std::string oneOf(std::initializer_list<const char*> all) { return all.begin()[below(all.size())]; }

    std::string element() {
        return below(2) == 0 ? "E1-" + std::to_string(below(300))
                             : oneOf({"", "E", "E1", "E1-", "E99-1", "label", "E1-1x"});
    }

    json object(int depth) {
        json made = json::object();
        for (unsigned left = below(5); left > 0; --left) {
            made[oneOf({"using",        "value",       "text",        "script", "args",        "x",         "y",
                        "actions",      "duration",    "direction",   "order",  "element",     "elementId", "id",
                        "type",         "implicit",    "orientation", "z",      "content",     "settings",  "bundleId",
                        "capabilities", "alwaysMatch", "origin",      "action", "phoneNumber", "access"})] =
                any(depth + 1);
        }
        return made;
    }

    json any(int depth) {
        switch (depth > 4 ? below(6) : below(9)) {
        case 0:
            return nullptr;
        case 1:
            return below(2) == 0;
        case 2: // no long waiting among them
            return json{-1, 0, 0.01, 0.3, 1e300, 100, -1e18}[below(7)];
        case 3:
            return noise();
        case 4:
        case 5:
            return oneOf({"id",
                          "xpath",
                          "//*",
                          "predicate string",
                          "class chain",
                          "**/XCUIElementTypeCell[1]",
                          "label == 'x'",
                          "mobile: tap",
                          "mobile: swipe",
                          "mobile: keys",
                          "mobile: setClock",
                          "mobile: gsmCall",
                          "up",
                          "next",
                          "call",
                          "accept",
                          "cancel",
                          "pointer",
                          "pointerMove",
                          "pointerDown",
                          "pointerUp",
                          "key",
                          "keyDown",
                          "a",
                          "\uE007",
                          "LANDSCAPE",
                          "PORTRAIT",
                          "json",
                          "com.apple.mobilephone"});
        case 6: {
            json list = json::array();
            for (unsigned left = below(4); left > 0; --left) {
                list.push_back(any(depth + 1));
            }
            return list;
        }
        default:
            return object(depth);
        }
    }

    std::mt19937 _random;
};

class ProtocolFuzz : public LiveSession {
protected:
    /// The path of the session that there is now.
    std::string current() {
        const json sessions = json::parse(protocol.answer("GET", "/sessions", {}, "").body).at("value");
        return sessions.empty() ? "" : "/session/" + sessions[0].at("id").get<std::string>();
    }

    void ask(unsigned seed) {
        RequestMaker make(seed);
        for (int request = 0; request < requestsOfEach; ++request) {
            const bool meant = make.below(oneInMeant) == 0;
            const std::string path = meant                ? make.path(current())
                                     : make.below(4) == 0 ? "/" + make.noise()
                                                          : make.path("/session/" + std::to_string(make.below(10)));
            const Answer answer = protocol.answer(meant ? "POST" : make.method(), path, {}, make.body());
            const bool isSound = json::accept(answer.body) && answer.status >= 200 && answer.status < 600;
            unsound += isSound ? 0 : 1;
            ++answered;
        }
    }

    std::atomic<int> answered = 0;
    std::atomic<int> unsound = 0;
};

} // namespace

TEST_F(ProtocolFuzz, AHundredThousandRequestsNeitherCrashNorBlockIt) {
    openSheet();
    post("/appium/settings", {{"settings", {{"waitForIdleTimeout", 0}}}});

    std::vector<std::thread> all;
    for (unsigned client = 0; client < clients; ++client) {
        all.emplace_back([this, client] { ask(client); });
    }
    for (std::thread& client : all) {
        client.join();
    }

    EXPECT_EQ(answered, clients * requestsOfEach);
    EXPECT_EQ(unsound, 0);
    EXPECT_NE(phone.status().life, LivePhone::Life::Died) << phone.status().epitaph;
    begin();
    mobile("launchApp");
    EXPECT_EQ(get("/source").get<std::string>().substr(0, 5), "<?xml");
}
