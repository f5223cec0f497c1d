/// What the screen shows, for those who look at it again and again.
#pragma once

#include "phone/live/MemoryFile.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace phone {

/// The lines of the screen that have changed since somebody looked.
struct ScreenBand {
    int width = 0; // of the whole screen, in pixels
    int height = 0;
    int first = 0;             // the first line of the band
    int count = 0;             // its lines; 0 when nothing has changed
    std::uint64_t version = 0; // of the screen, for the next look
    std::string pixels;        // red, green, blue and alpha of the band's lines, a byte each
};

/// Takes the pixels of a phone application's display and remembers which line changed when.
class Glass {
public:
    /// In pixels, however the device is held.
    explicit Glass(std::size_t pixels);
    ~Glass();
    Glass(const Glass&) = delete;
    Glass& operator=(const Glass&) = delete;

    /// The memory for the application's display.
    int descriptor() const { return _file.descriptor(); }
    /// What the application said of its display's update.
    void take(const nlohmann::json& update);
    /// What is newer than this version; 0 for everything.
    ScreenBand since(std::uint64_t version) const;

private:
    std::size_t _pixels;
    MemoryFile _file;
    const std::uint32_t* _memory = nullptr; // _file's
    int _width = 0;
    std::uint64_t _version = 0;
    std::vector<std::uint64_t> _lines; // by line, the version in which it changed last
};

} // namespace phone
