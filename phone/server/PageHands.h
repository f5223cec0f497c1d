/// The fingers of those who look at the page.
#pragma once

#include "phone/live/LivePhone.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace phone {

/// Each page that watches the phone has one finger, and one page at a time has it on the screen.
class PageHands {
public:
    explicit PageHands(LivePhone& phone) : _phone(phone) {}

    /// A page begins to watch, or ends; a finger that it has on the screen is taken away.
    void come(const std::string& page);
    void go(const std::string& page);

    /// Gets hold of the screen for the page's finger; waits for those of others. Throws ScreenError when the page does
    /// not watch, or when it takes too long.
    void grasp(const std::string& page);
    /// Whether the page's finger is on the screen.
    bool holds(const std::string& page) const;
    void letGo(const std::string& page);

private:
    struct Hand {
        int streams = 0;
        std::unique_ptr<LivePhone::Finger> finger; // nullptr while it is not on the screen
    };

    LivePhone& _phone;
    mutable std::mutex _mutex;
    std::map<std::string, Hand> _hands;
};

} // namespace phone
