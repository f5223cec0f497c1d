#include "phone/server/PageHands.h"

namespace phone {

void PageHands::come(const std::string& page) {
    const std::lock_guard lock(_mutex);
    ++_hands[page].streams;
}

void PageHands::go(const std::string& page) {
    std::unique_ptr<LivePhone::Finger> left;
    {
        const std::lock_guard lock(_mutex);
        const auto hand = _hands.find(page);
        if (hand == _hands.end() || --hand->second.streams > 0) {
            return;
        }
        left = std::move(hand->second.finger);
        _hands.erase(hand);
    }
}

void PageHands::grasp(const std::string& page) {
    {
        const std::lock_guard lock(_mutex);
        const auto hand = _hands.find(page);
        if (hand == _hands.end()) {
            throw ScreenError("only a page that watches the phone can touch it");
        }
        if (hand->second.finger && hand->second.finger->isHeld()) {
            throw ScreenError("this page's finger is on the screen already");
        }
    }
    auto finger = std::make_unique<LivePhone::Finger>(_phone);
    const std::lock_guard lock(_mutex);
    const auto hand = _hands.find(page);
    if (hand == _hands.end()) {
        throw ScreenError("the page has gone");
    }
    hand->second.finger = std::move(finger);
}

bool PageHands::holds(const std::string& page) const {
    const std::lock_guard lock(_mutex);
    const auto hand = _hands.find(page);
    return hand != _hands.end() && hand->second.finger && hand->second.finger->isHeld();
}

void PageHands::letGo(const std::string& page) {
    const std::lock_guard lock(_mutex);
    if (const auto hand = _hands.find(page); hand != _hands.end()) {
        hand->second.finger.reset();
    }
}

} // namespace phone
