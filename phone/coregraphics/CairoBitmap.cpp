#include "phone/coregraphics/Cairo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace phone {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view signature = "\x89PNG\r\n\x1a\n"sv;
constexpr std::string_view headerName = "IHDR"sv;
constexpr std::size_t headerNameAt = 12; // after the signature and the header's length
constexpr std::size_t sizesAt = 16;
constexpr std::size_t headerEnd = 24;

/// What is read of a file, with what has been looked at already.
struct Source {
    std::FILE* file;
    std::array<char, headerEnd> head{};
    std::size_t given = 0;
};

cairo_status_t read(void* closure, unsigned char* into, unsigned count) {
    auto& source = *static_cast<Source*>(closure);
    const std::size_t fromHead = std::min<std::size_t>(count, source.head.size() - source.given);
    std::memcpy(into, source.head.data() + source.given, fromHead);
    source.given += fromHead;
    const std::size_t rest = count - fromHead;
    return std::fread(into + fromHead, 1, rest, source.file) == rest ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_READ_ERROR;
}

/// A regular file, for reading; nullptr for anything else. A pipe without a writer would keep its reader waiting.
std::FILE* openFile(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status{};
    if (file >= 0 && (fstat(file, &status) != 0 || !S_ISREG(status.st_mode))) {
        close(file);
        return nullptr;
    }
    return file < 0 ? nullptr : fdopen(file, "rb");
}

std::uint32_t bigEndian(const char* bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return value;
}

/// Looks at the first bytes, so that nothing is decoded that is no picture or too large.
bool isAcceptable(Source& source) {
    if (std::fread(source.head.data(), 1, source.head.size(), source.file) != source.head.size()) {
        return false;
    }
    const std::string_view head(source.head.data(), source.head.size());
    const std::uint32_t width = bigEndian(head.data() + sizesAt);
    const std::uint32_t height = bigEndian(head.data() + sizesAt + 4);
    return head.starts_with(signature) && head.substr(headerNameAt, headerName.size()) == headerName && width > 0 &&
           height > 0 && width <= Bitmap::maximumSide && height <= Bitmap::maximumSide;
}

} // namespace

std::shared_ptr<const Bitmap> Bitmap::load(const std::string& path) {
    std::FILE* file = openFile(path);
    if (file == nullptr) {
        return nullptr;
    }
    Source source{file};
    CairoSurface surface;
    if (isAcceptable(source)) {
        surface.reset(cairo_image_surface_create_from_png_stream(&read, &source));
    }
    std::fclose(file);
    if (surface == nullptr || cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    return std::make_shared<CairoBitmap>(std::move(surface));
}

} // namespace phone
