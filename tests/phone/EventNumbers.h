/// Which events a control sends, by the platform's numbers.
#pragma once

#include "tests/phone/ActionCounter.h"

#include <set>
#include <utility>
#include <vector>

/// Listens to every bit of a control's events on its own, for as long as it lives.
class EventNumbers {
public:
    explicit EventNumbers(const UIControl& control) {
        for (unsigned bit = 0; bit < 20; ++bit) {
            const auto number = 1U << bit;
            const auto counter = objc::Ref<ActionCounter>::make();
            control.addTarget(counter, objc::selector<"count:">(), static_cast<UIControlEvents>(number));
            _counters.emplace_back(number, counter);
        }
    }

    /// Those sent since the last call.
    std::set<unsigned> take() {
        std::set<unsigned> sent;
        for (auto& [number, counter] : _counters) {
            if (std::exchange(counter->number, 0) > 0) {
                sent.insert(number);
            }
        }
        return sent;
    }

private:
    std::vector<std::pair<unsigned, objc::Ref<ActionCounter>>> _counters;
};
