#include "phone/server/Page.h"

#include "phone/elements/Refusal.h"
#include "phone/flow/InputError.h"
#include "phone/flow/Records.h"
#include "phone/server/PageCommands.h"
#include "phone/server/PageEvents.h"
#include "phone/server/PageState.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace phone {

namespace fs = std::filesystem;
using httplib::Request;
using httplib::Response;
using nlohmann::json;

namespace {

constexpr int badRequest = 400;
constexpr int notFound = 404;
constexpr int conflict = 409; // the phone is in no state for it
constexpr int failed = 500;

/// Nothing but what this server itself gives; no script that stands in the page.
constexpr const char* policy = "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
                               "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

void harden(Response& response) {
    response.set_header("Cache-Control", "no-store");
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("Content-Security-Policy", policy);
    response.set_header("Referrer-Policy", "no-referrer");
}

template <class Json>
void send(Response& response, const Json& value) {
    response.set_content(value.dump(-1, ' ', false, Json::error_handler_t::replace), "application/json; charset=utf-8");
}

/// Answers what the work refuses in one line.
template <class Work>
void answer(Response& response, const Work& work) {
    harden(response);
    const auto refuse = [&](int status, std::string why) {
        for (char& c : why) {
            c = c == '\n' || c == '\r' ? ' ' : c;
        }
        response.status = status;
        send(response, json{{"error", why}});
    };
    try {
        work();
    } catch (const PageRefusal& refusal) {
        refuse(badRequest, refusal.what());
    } catch (const InputError& error) {
        refuse(badRequest, error.what());
    } catch (const ScreenError& error) {
        refuse(conflict, error.what());
    } catch (const webdriver::Refusal& error) {
        refuse(conflict, error.what());
    } catch (const std::exception& error) {
        refuse(failed, error.what());
    }
}

template <class Number>
Number numberIn(const Request& request, const char* name) {
    const std::string given = request.get_param_value(name);
    Number number = 0;
    const auto [end, error] = std::from_chars(given.data(), given.data() + given.size(), number);
    if (!given.empty() && (error != std::errc() || end != given.data() + given.size())) {
        throw PageRefusal(std::string("\"") + name + "\" has to be a whole number");
    }
    return number;
}

const char* mediaType(const fs::path& file) {
    static const std::map<std::string, const char*> known = {{".html", "text/html; charset=utf-8"},
                                                             {".js", "text/javascript; charset=utf-8"},
                                                             {".css", "text/css; charset=utf-8"},
                                                             {".svg", "image/svg+xml"}};
    const auto found = known.find(file.extension().string());
    return found == known.end() ? nullptr : found->second;
}

void sendPicture(LivePhone& phone, const Request& request, Response& response) {
    const ScreenBand band = phone.picture(numberIn<std::uint64_t>(request, "since"));
    const std::array numbers = {band.width, band.height, band.first, band.count};
    static constexpr std::array names = {"Screen-Width", "Screen-Height", "Screen-First", "Screen-Count"};
    for (std::size_t at = 0; at < names.size(); ++at) {
        response.set_header(names[at], std::to_string(numbers[at]));
    }
    response.set_header("Screen-Version", std::to_string(band.version));
    response.set_header("Screen-Launch", std::to_string(phone.status().launch));
    response.set_content(band.pixels, "application/octet-stream");
}

bool isPageName(const std::string& name) {
    constexpr std::size_t longest = 64;
    return !name.empty() && name.size() <= longest;
}

} // namespace

std::string Page::folderBesideThis() { return (fs::read_symlink("/proc/self/exe").parent_path() / "page").string(); }

void Page::serveOn(httplib::Server& http) {
    serveQuestions(http);
    http.Get("/page/events", [this](const Request& request, Response& response) {
        answer(response, [&] {
            const std::string page = request.get_param_value("page");
            if (!isPageName(page)) {
                throw PageRefusal("\"page\" has to name the page that watches");
            }
            const auto events = std::make_shared<PageEvents>(_desk, page);
            response.set_chunked_content_provider("text/event-stream", [events](std::size_t, httplib::DataSink& sink) {
                const auto news = events->next();
                if (!news) {
                    sink.done();
                    return true;
                }
                return sink.is_writable() && sink.write(news->data(), news->size());
            });
        });
    });
    http.Post(R"(/page/([a-z-]+))", [this](const Request& request, Response& response) {
        answer(response, [&] {
            const std::string name = request.matches[1];
            if (!isPageCommand(name)) {
                response.status = notFound;
                return send(response, json{{"error", "the page has no command \"" + name + "\""}});
            }
            const json body = json::parse(request.body, nullptr, false);
            send(response, performPageCommand(_desk, name, body));
        });
    });
    serveFiles(http);
}

void Page::serveQuestions(httplib::Server& http) {
    const auto question = [&](const char* path, auto ask) {
        http.Get(path, [this, ask](const Request& request, Response& response) {
            answer(response, [&] { ask(_desk, request, response); });
        });
    };
    question("/page/screen", [](PageDesk& desk, const Request& request, Response& response) {
        sendPicture(desk.phone, request, response);
    });
    question("/page/state",
             [](PageDesk& desk, const Request&, Response& response) { send(response, pageState(desk)); });
    question("/page/tree", [](PageDesk& desk, const Request&, Response& response) {
        response.set_content(desk.phone.tree(true), "application/xml; charset=utf-8");
    });
    question("/page/elements",
             [](PageDesk& desk, const Request&, Response& response) { send(response, pageElements(desk.phone)); });
    question("/page/records", [](PageDesk& desk, const Request&, Response& response) {
        send(response, records(desk.phone.root(), desk.phone.status().settings.zone));
    });
    question("/page/log", [](PageDesk& desk, const Request& request, Response& response) {
        const auto from = numberIn<std::size_t>(request, "from");
        response.set_header("Screen-Launch", std::to_string(desk.phone.status().launch));
        response.set_content(desk.phone.log(from), "application/jsonl; charset=utf-8");
    });
    question("/page/recording", [](PageDesk& desk, const Request&, Response& response) {
        response.set_header("Content-Disposition", "attachment; filename=\"recorded.yaml\"");
        response.set_content(desk.recording.text(), "application/yaml; charset=utf-8");
    });
}

void Page::serveFiles(httplib::Server& http) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(_folder, ignored)) {
        const char* type = mediaType(entry.path());
        if (!type) {
            continue;
        }
        const std::string name = entry.path().filename().string();
        const auto serve = [type, path = entry.path()](const Request&, Response& response) {
            harden(response);
            std::ifstream stream(path, std::ios::binary);
            response.set_content(std::string(std::istreambuf_iterator<char>(stream), {}), type);
        };
        http.Get(name == "index.html" ? "/" : "/page/" + name, serve);
    }
}

void Page::close() {
    _desk.closing = true;
    _desk.player.cancel();
    _desk.phone.announce();
}

} // namespace phone
