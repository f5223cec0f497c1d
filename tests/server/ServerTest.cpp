// The phone over HTTP: what the transport lets through, and what it stands.

#include "phone/server/Server.h"

#include "phone/flow/InputError.h"
#include "phone/flow/NewPhone.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <httplib.h>
#include <nlohmann/json.hpp>
#include <random>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace phone;
using nlohmann::json;
using testing::HasSubstr;

namespace {

class ServerTest : public testing::Test {
protected:
    ServerTest() {
        makePhone(folder.path("root"), STAGE_DIRECTORY, Stores{});
        serving = std::thread([this] { server.run(); });
        // Once it answers it also stops when it is told to.
        while (!client().Get("/wda/healthcheck")) {
        }
    }
    ~ServerTest() override {
        server.stop();
        serving.join();
    }

    httplib::Client client() const {
        httplib::Client made("127.0.0.1", server.port());
        made.set_read_timeout(60);
        return made;
    }
    std::string begin() {
        phone.launch();
        const auto answer = client().Post("/session", R"({"capabilities":{}})", "application/json");
        return "/session/" + json::parse(answer->body).at("sessionId").get<std::string>();
    }

    TemporaryFolder folder;
    LivePhone phone{BUILD_DIRECTORY "/phone-application", folder.path("root"), {}};
    Server server{phone, 0};
    std::thread serving;
};

/// A connection on which anything can be sent.
class RawConnection {
public:
    explicit RawConnection(int port) : _socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(connect(_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    ~RawConnection() { close(_socket); }
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;

    void send(const std::string& bytes) const { ::send(_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL); }

    void readToTheEnd() const {
        char bytes[4096];
        while (recv(_socket, bytes, sizeof bytes, 0) > 0) {
        }
    }

private:
    int _socket;
};

json errorOf(const httplib::Result& answer) { return json::parse(answer->body).at("value").at("error"); }

} // namespace

TEST_F(ServerTest, AnswersInJson) {
    const auto answer = client().Get("/status");

    EXPECT_EQ(answer->status, 200);
    EXPECT_THAT(answer->get_header_value("Content-Type"), HasSubstr("application/json"));
    EXPECT_EQ(json::parse(answer->body).at("value").at("ready"), true);
}

TEST_F(ServerTest, RefusesAnotherHost) {
    const auto answer = client().Get("/status", {{"Host", "evil.example"}});

    EXPECT_EQ(answer->status, 403);
    EXPECT_THAT(answer->body, HasSubstr("alone"));
}

TEST_F(ServerTest, RefusesPagesOfElsewhere) {
    const auto answer = client().Post("/session", {{"Origin", "http://evil.example"}}, "{}", "text/plain");

    EXPECT_EQ(answer->status, 403);
    EXPECT_EQ(phone.status().life, LivePhone::Life::Ended);
}

TEST_F(ServerTest, TakesNothingOfARefusedBodyForARequest) {
    const std::string host = "Host: 127.0.0.1:" + std::to_string(server.port()) + "\r\n";
    const std::string hidden = "POST /session HTTP/1.1\r\n" + host +
                               "Content-Length: 19\r\nContent-Type: application/json\r\n\r\n{\"capabilities\":{}}";
    const std::string body = std::string(100000, ' ') + hidden;
    {
        const RawConnection connection(server.port());
        connection.send("POST /x HTTP/1.1\r\n" + host + "Origin: http://evil.example\r\nContent-Length: " +
                        std::to_string(body.size()) + "\r\n\r\n" + body);
        connection.readToTheEnd();
    }

    EXPECT_EQ(json::parse(client().Get("/sessions")->body).at("value").size(), 0U);
    EXPECT_EQ(phone.status().life, LivePhone::Life::Ended);
}

TEST_F(ServerTest, RefusesABodyThatIsTooLong) {
    const auto answer = client().Post("/session", std::string(5 << 20, 'x'), "application/json");

    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 413);
    EXPECT_EQ(errorOf(answer), "invalid argument");
}

TEST_F(ServerTest, AnswersWhatIsNoHttpInJson) {
    const auto answer = client().Get("/" + std::string(20000, 'a'));

    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 414);
    EXPECT_EQ(errorOf(answer), "invalid argument");
}

TEST_F(ServerTest, RefusesAPortThatIsTaken) { EXPECT_THROW(Server(phone, server.port()), InputError); }

TEST_F(ServerTest, IsNotKeptWaitingBySlowClients) {
    const std::string path = begin();
    std::vector<std::unique_ptr<RawConnection>> slow;
    for (int index = 0; index < 100; ++index) {
        slow.push_back(std::make_unique<RawConnection>(server.port()));
        slow.back()->send("POST /session HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port()) +
                          "\r\nContent-Length: 1000\r\n\r\n{"); // and no more
    }

    const auto answer = client().Get(path + "/source");

    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
}

TEST_F(ServerTest, AnswersOthersWhileOneClientWaits) {
    const std::string path = begin();
    client().Post(path + "/timeouts", R"({"implicit":3600000})", "application/json");
    std::thread waiting(
        [&] { client().Post(path + "/element", R"({"using":"id","value":"never"})", "application/json"); });

    const auto answer = client().Get(path + "/source");
    const auto ended = client().Delete(path);

    waiting.join();
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(ended->status, 200);
}

TEST_F(ServerTest, StandsConnectionsThatSayNothingSensible) {
    begin();
    std::mt19937 random(7); // NOLINT: the same every time
    for (int index = 0; index < 500; ++index) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        const RawConnection connection(server.port());
        connection.send(index % 2 == 0 ? bytes
                                       : "POST /session HTTP/1.1\r\nContent-Length: -5\r\n" + bytes + "\r\n\r\n");
    }

    EXPECT_EQ(client().Get("/status")->status, 200);
}
