/// khal is a calendar program that people use; it knows nothing of the phone.
#pragma once

#include "phone/eventkit/CalendarFolder.h"
#include "tests/flow/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace phone {

/// Reads the events of a phone, in Berlin.
class Khal {
public:
    /// Keeps its own files in the folder.
    Khal(const TemporaryFolder& folder, const std::string& root) : _folder(folder), _root(root) {}

    /// What it shows from the first day to the second, one line an occurrence.
    std::vector<std::string> list(const std::string& format, const std::string& from, const std::string& to) const {
        configure();
        const std::string command = "HOME=" + _folder.path() + " XDG_DATA_HOME=" + _folder.path("data") +
                                    " XDG_CACHE_HOME=" + _folder.path("cache") + " LC_ALL=C.UTF-8 khal -c " +
                                    _folder.path("khal.conf") + " list --day-format '' --format '" + format + "' " +
                                    from + " " + to + " > " + _folder.path("shown") + " 2> " +
                                    _folder.path("complaints");
        EXPECT_EQ(std::system(command.c_str()), 0) << _folder.read("complaints");
        EXPECT_EQ(_folder.read("complaints"), "");
        std::istringstream shown(_folder.read("shown"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(shown, line);) {
            if (!line.empty() && (lines.empty() || lines.back() != line)) { // it shows an event on each of its days
                lines.push_back(line);
            }
        }
        return lines;
    }

private:
    void configure() const {
        std::string places;
        for (const CalendarRow& row : CalendarFolder(_root, EntityType::Event).calendars()) {
            places +=
                "[[" + row.title + "]]\npath = " + _root + CalendarFolder::devicePath + "/events/" + row.id + "\n";
        }
        _folder.write("khal.conf", "[calendars]\n" + places + "[sqlite]\npath = " + _folder.path("khal.db") +
                                       "\n[locale]\nlocal_timezone = Europe/Berlin\n"
                                       "default_timezone = Europe/Berlin\ntimeformat = %H:%M\n"
                                       "dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\n"
                                       "datetimeformat = %Y-%m-%d %H:%M\nlongdatetimeformat = %Y-%m-%d %H:%M\n");
    }

    const TemporaryFolder& _folder;
    std::string _root;
};

} // namespace phone
