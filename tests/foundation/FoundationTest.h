/// A phone without a screen: a fresh root folder and the corrected Foundation.
#pragma once

#include "phone/device/Settings.h"
#include "phone/foundation/Foundation.h"
#include "phone/foundation/Text.h"
#include "platform/objc/Pool.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace phone {

class FoundationTest : public testing::Test {
protected:
    static constexpr double now = 1772721432; // 2026-03-05 14:37:12 UTC

    explicit FoundationTest(const std::string& zone = "UTC") {
        std::string name = P_tmpdir "/phone-root-XXXXXX";
        _root = mkdtemp(name.data());
        Settings given;
        given.device = *deviceNamed("iphone5");
        given.application = *applicationNamed("newer");
        given.root = _root.string();
        given.zone = zone;
        given.now = now;
        useSettings(given);
        prepareEnvironment();
        installFoundation();
    }
    ~FoundationTest() override { std::filesystem::remove_all(_root); }

    const std::filesystem::path& root() const { return _root; }
    /// Where a device path lies on the host, by the root folder's rule and without its help.
    std::filesystem::path host(const std::string& devicePath) const { return _root.string() + devicePath; }

    /// Writes a file below the root folder by the host's means, its folders too.
    void put(const std::string& devicePath, const std::string& bytes) const {
        std::filesystem::create_directories(host(devicePath).parent_path());
        std::ofstream(host(devicePath), std::ios::binary) << bytes;
    }
    std::string bytes(const std::string& devicePath) const {
        std::ifstream file(host(devicePath), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void speak(const std::string& language) const {
        Settings given = settings();
        given.language = language;
        useSettings(given);
    }

private:
    std::filesystem::path _root;
    objc::Pool _pool;
};

} // namespace phone
