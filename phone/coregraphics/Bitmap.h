/// Pictures that have been decoded from files.
#pragma once

#include <memory>
#include <string>

namespace phone {

/// A decoded picture. Immutable and shared.
class Bitmap {
public:
    /// In pixels; a picture with a longer side is refused.
    static constexpr int maximumSide = 8192;

    virtual ~Bitmap() = default;
    /// In pixels.
    virtual int width() const = 0;
    virtual int height() const = 0;

    /// Of a PNG file (a path of the device); nullptr when it is missing, unreadable or no picture.
    static std::shared_ptr<const Bitmap> load(const std::string& path);
};

} // namespace phone
