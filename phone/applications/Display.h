/// The glass of the device: memory, shared with the driver, that shows what the screen shows.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>

namespace phone {

/// Pixels lie line after line without gaps, as 0xAARRGGBB in the machine's order.
class Display {
public:
    /// Takes a descriptor of memory, large enough for the device; it stays the caller's. -1 for no display.
    explicit Display(int memory = -1);
    ~Display();
    Display(Display&& other) noexcept;
    Display& operator=(Display&& other) noexcept;

    /// Draws the screen where it has changed. Gives `width` and `height` in pixels, and the changed lines: `first` and
    /// `count`, which is 0 when nothing has. Throws ScreenError when there is no such memory.
    nlohmann::json update();

private:
    int _memory = -1;
    std::uint32_t* _pixels = nullptr;
    std::size_t _size = 0; // in bytes
    int _width = 0;        // of what is shown; 0 before the first update
};

} // namespace phone
