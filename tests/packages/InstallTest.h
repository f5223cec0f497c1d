/// A phone to install packages on, by the program that a person calls.
#pragma once

#include "tests/flow/TemporaryFolder.h"
#include "tests/packages/DebBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <sys/wait.h>

namespace phone {

/// Every path below the folder, with its kind, permissions and content.
inline std::map<std::string, std::string> snapshot(const std::filesystem::path& root) {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const auto status = entry.symlink_status();
        std::string what = std::to_string(static_cast<int>(status.type())) + " " +
                           std::to_string(static_cast<int>(status.permissions())) + " ";
        if (fs::is_symlink(status)) {
            what += fs::read_symlink(entry.path()).string();
        } else if (fs::is_regular_file(status)) {
            std::ifstream stream(entry.path(), std::ios::binary);
            what += std::string(std::istreambuf_iterator<char>(stream), {});
        }
        all[entry.path().lexically_relative(root).string()] = what;
    }
    return all;
}

class InstallTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(root() + "/Library");
        std::filesystem::create_directories(root() + "/var/mobile/Library/Preferences");
    }
    int phone(const std::string& arguments) {
        const std::string command = std::string(BUILD_DIRECTORY "/phone ") + arguments + " >" + folder.path("out.txt") +
                                    " 2>" + folder.path("err.txt");
        const int status = std::system(command.c_str());
        output = folder.read("out.txt");
        errors = folder.read("err.txt");
        return WEXITSTATUS(status);
    }
    int installBytes(const std::string& bytes) {
        return phone("install " + folder.write("package.deb", bytes) + " --root " + root());
    }
    int install(const DebBuilder& package) { return installBytes(package.bytes()); }
    int remove(const std::string& name) { return phone("install --remove " + name + " --root " + root()); }
    /// Expects one line with these words, and nothing changed.
    void expectRefused(const std::string& bytes, const std::string& words) {
        const auto before = snapshot(root());
        EXPECT_EQ(installBytes(bytes), 2) << words;
        EXPECT_THAT(errors, testing::StartsWith(folder.path("package.deb") + ": "));
        EXPECT_THAT(errors, testing::HasSubstr(words));
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        EXPECT_EQ(snapshot(root()), before) << words;
    }
    void expectRefused(const DebBuilder& package, const std::string& words) { expectRefused(package.bytes(), words); }

    std::string root() const { return folder.path("root"); }
    std::string file(const std::string& devicePath) const { return folder.read("root" + devicePath); }
    bool has(const std::string& devicePath) const {
        return std::filesystem::exists(std::filesystem::symlink_status(root() + devicePath));
    }

    TemporaryFolder folder;
    std::string output;
    std::string errors;
};

/// A package with one folder of its own and these files in it.
inline DebBuilder packageWith(const std::string& version, const std::map<std::string, std::string>& files) {
    DebBuilder package;
    package.version = version;
    package.files = {debFolder("./"), debFolder("./Library/"), debFolder("./Library/Test/")};
    for (const auto& [name, content] : files) {
        package.files.push_back({"./Library/Test/" + name, content});
    }
    return package;
}

} // namespace phone
