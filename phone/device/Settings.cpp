#include "phone/device/Settings.h"

#include <utility>

namespace phone {

namespace {
Settings& current() {
    static auto* settings = new Settings;
    return *settings;
}
} // namespace

const Settings& settings() { return current(); }

void useSettings(Settings settings) { current() = std::move(settings); }

} // namespace phone
