/// Tells one page what happens, as it happens.
#pragma once

#include "phone/server/PageDesk.h"

#include <optional>
#include <string>

namespace phone {

/// Server-sent events: `state` (JSON, see pageState), `settings` (JSON, see pageSettings), `screen` (it may have
/// changed), `records` (the stores have). Sleeps while nothing happens.
class PageEvents {
public:
    /// The desk has to outlive it. The page counts as one that watches as long as it lives.
    PageEvents(PageDesk& desk, std::string page);
    ~PageEvents();
    PageEvents(const PageEvents&) = delete;
    PageEvents& operator=(const PageEvents&) = delete;

    /// Waits for something to tell and gives it as the stream's text; after a while of silence a comment, by which a
    /// page that has gone is noticed. nullopt at the server's end.
    std::optional<std::string> next();

private:
    std::string news();

    PageDesk& _desk;
    const std::string _page;
    std::optional<std::uint64_t> _seen; // the phone's changes; nullopt before the first news
    std::uint64_t _stores = 0;
    std::string _state;
};

} // namespace phone
