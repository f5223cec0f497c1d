#include "phone/live/Glass.h"

#include "phone/device/Screen.h"

#include <algorithm>
#include <cerrno>
#include <sys/mman.h>
#include <system_error>

namespace phone {

namespace {

constexpr std::size_t bytesPerPixel = sizeof(std::uint32_t);

} // namespace

Glass::Glass(std::size_t pixels) : _pixels(pixels), _file(pixels * bytesPerPixel) {
    void* mapped = mmap(nullptr, pixels * bytesPerPixel, PROT_READ, MAP_SHARED, _file.descriptor(), 0);
    if (mapped == MAP_FAILED) {
        throw std::system_error(errno, std::generic_category(), "no memory for the screen");
    }
    _memory = static_cast<const std::uint32_t*>(mapped);
}

Glass::~Glass() { munmap(const_cast<std::uint32_t*>(_memory), _pixels * bytesPerPixel); }

void Glass::take(const nlohmann::json& update) {
    const int width = update.at("width");
    const int height = update.at("height");
    const int first = update.at("first");
    const int count = update.at("count");
    if (width <= 0 || height <= 0 || first < 0 || count < 0 || first + count > height ||
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) > _pixels) {
        throw ScreenError("the phone application showed a picture of no such screen");
    }
    if (count == 0) {
        return;
    }
    ++_version;
    _width = width;
    _lines.resize(static_cast<std::size_t>(height), _version);
    std::fill_n(_lines.begin() + first, count, _version);
}

ScreenBand Glass::since(std::uint64_t version) const {
    ScreenBand band;
    band.width = _width;
    band.height = static_cast<int>(_lines.size());
    band.version = _version;
    const auto isNewer = [&](std::uint64_t line) { return line > version; };
    const auto first = std::find_if(_lines.begin(), _lines.end(), isNewer);
    const auto last = std::find_if(_lines.rbegin(), _lines.rend(), isNewer).base();
    if (first == _lines.end()) {
        return band;
    }
    band.first = static_cast<int>(first - _lines.begin());
    band.count = static_cast<int>(last - first);
    const auto offset = static_cast<std::size_t>(band.first) * static_cast<std::size_t>(_width);
    const auto pixels = static_cast<std::size_t>(band.count) * static_cast<std::size_t>(_width);
    band.pixels.resize(pixels * bytesPerPixel);
    char* into = band.pixels.data();
    for (std::size_t at = offset; at < offset + pixels; ++at) {
        const std::uint32_t pixel = _memory[at]; // the screen is opaque: nothing to take out of the colours
        *into++ = static_cast<char>(pixel >> 16U);
        *into++ = static_cast<char>(pixel >> 8U);
        *into++ = static_cast<char>(pixel);
        *into++ = static_cast<char>(pixel >> 24U);
    }
    return band;
}

} // namespace phone
