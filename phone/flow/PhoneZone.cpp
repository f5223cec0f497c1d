#include "phone/flow/PhoneZone.h"

#include "phone/flow/AtomicFile.h"
#include "phone/flow/LocalTime.h"

#include <fstream>

namespace phone {

namespace {
constexpr const char* zonePath = "/var/mobile/Library/Phone/zone";
} // namespace

void rememberZone(const std::string& root, const std::string& zone) { writeAtomically(root + zonePath, zone + "\n"); }

std::string rememberedZone(const std::string& root) {
    std::ifstream stream(root + zonePath);
    std::string zone;
    return std::getline(stream, zone) && isZone(zone) ? zone : "UTC";
}

} // namespace phone
