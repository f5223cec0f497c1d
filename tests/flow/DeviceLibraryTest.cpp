#include "tests/flow/WholePhone.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace phone {
namespace {

std::vector<std::string> flows() {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(SOURCE_DIRECTORY "/flows")) {
        if (file.path().extension() == ".yaml") {
            names.push_back(file.path().stem());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// A phone whose library is the one for the device, in the device's object format.
class DeviceLibrary : public WholePhone, public testing::WithParamInterface<std::string> {};

TEST_P(DeviceLibrary, PlaysTheFlow) {
    make();
    installLibrary(root(), SLICE);

    playFile(SOURCE_DIRECTORY "/flows/" + GetParam() + ".yaml");
}

INSTANTIATE_TEST_SUITE_P(Flows, DeviceLibrary, testing::ValuesIn(flows()), [](const auto& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
} // namespace phone
