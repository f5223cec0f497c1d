/// What the built packages hold, unpacked for a test, and commands to read it with.
#pragma once

#include "tests/flow/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>
#include <sys/wait.h>
#include <vector>

namespace package {

using Lines = std::vector<std::string>;

inline Lines lines(const std::string& text) {
    std::istringstream stream(text);
    Lines found;
    for (std::string line; std::getline(stream, line);) {
        found.push_back(line);
    }
    return found;
}

class ShippedPackage : public testing::Test {
protected:
    static std::string package(const std::string& suffix) {
        return std::string(BUILD_DIRECTORY "/Quorvan_") + VERSION + "_" + suffix + ".deb";
    }
    /// What the command prints; expects it to succeed.
    std::string output(const std::string& command) {
        EXPECT_EQ(status(command), 0) << command << "\n" << folder.read("errors");
        return folder.read("output");
    }
    int status(const std::string& command) {
        const std::string whole =
            "{ " + command + "; } >'" + folder.path("output") + "' 2>'" + folder.path("errors") + "'";
        return WEXITSTATUS(std::system(whole.c_str()));
    }
    /// The slice of a processor as it ships: out of the package, out of the fat library.
    std::string slice(const std::string& arch) {
        const std::string root = folder.path("root-" + arch);
        const std::string thin = folder.path(arch + "/Quorvan.dylib");
        std::filesystem::create_directories(folder.path(arch));
        output("dpkg-deb -x '" + package(arch == "x86_64" ? "x86_64" : "iphoneos-arm") + "' '" + root + "'");
        const std::string library = root + "/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib";
        if (arch == "x86_64") {
            std::filesystem::copy_file(library, thin);
        } else {
            output("llvm-lipo-19 '" + library + "' -thin " + arch + " -output '" + thin + "'");
        }
        return thin;
    }

    phone::TemporaryFolder folder;
};

} // namespace package
