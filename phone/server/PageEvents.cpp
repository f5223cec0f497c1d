#include "phone/server/PageEvents.h"

#include "phone/server/PageState.h"

#include <thread>

namespace phone {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds frame{33}; // from one picture of what moves to the next
constexpr milliseconds longestSilence{5000};

std::string event(const std::string& name, const std::string& data) {
    return "event: " + name + "\ndata: " + data + "\n\n";
}

std::string text(const nlohmann::json& value) {
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace

PageEvents::PageEvents(PageDesk& desk, std::string page) : _desk(desk), _page(std::move(page)) {
    _desk.hands.come(_page);
}

PageEvents::~PageEvents() { _desk.hands.go(_page); }

std::optional<std::string> PageEvents::next() {
    if (!_seen) {
        _seen = _desk.phone.changes();
        return _desk.closing ? std::nullopt : std::optional(news());
    }
    const std::uint64_t changes = _desk.phone.waitForChange(*_seen, longestSilence);
    if (_desk.closing) {
        return std::nullopt;
    }
    const bool isNew = changes != *_seen;
    _seen = changes;
    if (_desk.phone.isMoving()) {
        std::this_thread::sleep_for(isNew ? milliseconds(0) : frame);
        return news();
    }
    return isNew ? news() : ": still here\n\n";
}

std::string PageEvents::news() {
    std::string all;
    try {
        const nlohmann::json now = pageState(_desk);
        if (now.at("life") == "running") {
            all += event("screen", "");
        }
        std::string state = text(now);
        if (state != _state) {
            all += event("state", state);
            _state = std::move(state);
        }
    } catch (const ScreenError&) {
        // It has died meanwhile, which is the next news.
    }
    if (const std::uint64_t stores = _desk.stores.version(); stores != _stores) {
        _stores = stores;
        all += event("settings", text(pageSettings(_desk))) + event("records", "");
    }
    return all.empty() ? ": nothing new\n\n" : all;
}

} // namespace phone
