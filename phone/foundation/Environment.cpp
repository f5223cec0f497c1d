// What Foundation asks of its surroundings before it starts: whose phone this is, where that user's files
// lie, and the time zone. The user is the device's own, and home a device path, so that everything the
// Foundation keeps lies in the root folder.

#include "phone/device/RootFolder.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Foundation.h"
#include "phone/foundation/WallClock.h"

#include <pwd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

constexpr const char* userName = "mobile";
constexpr const char* home = "/var/mobile";
constexpr const char* temporaryFolder = "/var/mobile/tmp";
constexpr unsigned userNumber = 501;

void fillIn(passwd& entry) {
    static char name[] = "mobile";
    static char password[] = "*";
    static char folder[] = "/var/mobile";
    static char shell[] = "/bin/sh";
    entry = {.pw_name = name,
             .pw_passwd = password,
             .pw_uid = userNumber,
             .pw_gid = userNumber,
             .pw_gecos = name,
             .pw_dir = folder,
             .pw_shell = shell};
}

} // namespace

// The device's user database: whoever is asked for, the answer is the one user of the phone.
extern "C" {

int getpwnam_r(const char*, passwd* entry, char*, size_t, passwd** result) {
    fillIn(*entry);
    *result = entry;
    return 0;
}

int getpwuid_r(uid_t, passwd* entry, char*, size_t, passwd** result) {
    fillIn(*entry);
    *result = entry;
    return 0;
}

} // extern "C"

namespace phone {

void prepareEnvironment() {
    const Settings& given = settings();
    if (given.root.empty()) {
        throw std::invalid_argument("the phone has no root folder");
    }
    RootFolder::use(given.root);
    for (const char* folder : {home, temporaryFolder}) {
        std::filesystem::create_directories(RootFolder::hostPath(folder));
    }
    const std::pair<const char*, std::string> variables[] = {
        {"HOME", home},
        {"LOGNAME", userName},
        {"USER", userName},
        {"TMPDIR", temporaryFolder},
        {"TEMP", temporaryFolder},
        {"LC_ALL", "C.UTF-8"},

        {"TZ", given.zone},
    };
    for (const auto& [name, value] : variables) {
        setenv(name, value.c_str(), 1);
    }
    tzset();
    if (given.clockRuns) {
        WallClock::run(given.now);
    } else {
        WallClock::set(given.now);
    }
}

} // namespace phone
