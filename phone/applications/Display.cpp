#include "phone/applications/Display.h"

#include "phone/device/Screen.h"
#include "phone/uikit/Compositor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/mman.h>
#include <utility>

namespace phone {

Display::Display(int memory) : _memory(memory) {}

Display::~Display() {
    if (_pixels != nullptr) {
        munmap(_pixels, _size);
    }
}

Display::Display(Display&& other) noexcept { *this = std::move(other); }

Display& Display::operator=(Display&& other) noexcept {
    std::swap(_memory, other._memory);
    std::swap(_pixels, other._pixels);
    std::swap(_size, other._size);
    std::swap(_width, other._width);
    return *this;
}

nlohmann::json Display::update() {
    const auto picture = pictureOfScreen();
    const int width = picture->width();
    const int height = picture->height();
    const std::size_t line = static_cast<std::size_t>(width) * sizeof(std::uint32_t);
    if (_pixels == nullptr) {
        _size = line * static_cast<std::size_t>(height); // the same however the device is held
        void* mapped = mmap(nullptr, _size, PROT_READ | PROT_WRITE, MAP_SHARED, _memory, 0);
        if (mapped == MAP_FAILED) {
            throw ScreenError(std::string("there is no display: ") + std::strerror(errno));
        }
        _pixels = static_cast<std::uint32_t*>(mapped);
    }

    const bool isTurned = std::exchange(_width, width) != width;
    int first = height;
    int last = -1;
    for (int y = 0; y < height; ++y) {
        std::uint32_t* shown = _pixels + static_cast<std::ptrdiff_t>(y) * width;
        if (isTurned || std::memcmp(shown, picture->line(y), line) != 0) {
            std::memcpy(shown, picture->line(y), line);
            first = std::min(first, y);
            last = y;
        }
    }
    const int count = last < 0 ? 0 : last - first + 1;
    return {{"width", width}, {"height", height}, {"first", count == 0 ? 0 : first}, {"count", count}};
}

} // namespace phone
