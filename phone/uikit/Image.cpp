#include "phone/uikit/Image.h"

#include "phone/device/Settings.h"
#include "phone/foundation/FileLog.h"
#include "phone/foundation/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>

namespace phone {

namespace {

constexpr const char* retinaSuffix = "@2x";
constexpr double retinaScale = 2;

/// "folder/name.png" as "folder/name@2x.png".
std::string retinaPath(const std::string& path) {
    const std::filesystem::path whole(path);
    return (whole.parent_path() / whole.stem()).string() + retinaSuffix + whole.extension().string();
}

bool isRetinaPath(const std::string& path) {
    return std::filesystem::path(path).stem().string().ends_with(retinaSuffix);
}

/// One side of a picture that is drawn: where its three parts begin and end, in the picture and where it
/// is drawn to.
struct Side {
    std::array<double, 4> from;
    std::array<double, 4> to;
};

/// The part between the caps is one point: what lies after it is the other cap. The parts meet on whole
/// pixels, where no seam shows.
Side divide(double length, double cap, double origin, double drawn) {
    if (cap <= 0 || cap >= length) {
        return {{0, 0, length, length}, {origin, origin, origin + drawn, origin + drawn}};
    }
    const double otherCap = std::max(length - cap - 1, 0.0);
    const double shrink = std::min(1.0, drawn / (cap + otherCap));
    const double pixels = settings().device.scale;
    auto whole = [&](double points) { return std::round(points * pixels) / pixels; };
    return {{0, cap, length - otherCap, length},
            {origin, origin + whole(cap * shrink), origin + whole(drawn - otherCap * shrink), origin + drawn}};
}

} // namespace

void Image::define(objc::ClassTable<Image>& c) {
    c.classMethod<"imageWithContentsOfFile:", &Image::imageWithContentsOfFile>()
        .def<"size", &Image::size>()
        .def<"scale", &Image::scale>()
        .def<"leftCapWidth", &Image::leftCapWidth>()
        .def<"topCapHeight", &Image::topCapHeight>()
        .def<"stretchableImageWithLeftCapWidth:topCapHeight:", &Image::stretchable>()
        .def<"drawInRect:", &Image::drawInRect>()
        .def<"drawAtPoint:", &Image::drawAtPoint>();
}

UIImage Image::imageWithContentsOfFile(const NSString& path) {
    const std::string given = text(path);
    if (given.empty()) {
        return nullptr;
    }
    FileEntry entry(FileEntry::Action::Read, given); // one, whichever of the two files it is
    std::shared_ptr<const Bitmap> bitmap;
    double scale = isRetinaPath(given) ? retinaScale : 1;
    if (scale == 1 && settings().device.scale >= retinaScale) {
        bitmap = Bitmap::load(retinaPath(given));
        scale = bitmap == nullptr ? 1 : retinaScale;
    }
    if (bitmap == nullptr) {
        bitmap = Bitmap::load(given);
    }
    if (!entry.finish(bitmap != nullptr)) {
        return nullptr;
    }
    auto image = objc::make<UIImage>();
    Image& peer = *of(image);
    peer._bitmap = std::move(bitmap);
    peer._path = given;
    peer._scale = scale;
    return image;
}

CGSize Image::size() {
    return _bitmap == nullptr ? CGSize() : CGSize{_bitmap->width() / _scale, _bitmap->height() / _scale};
}

UIImage Image::stretchable(objc::Int leftCapWidth, objc::Int topCapHeight) {
    auto image = objc::make<UIImage>();
    Image& peer = *of(image);
    peer._bitmap = _bitmap;
    peer._path = _path;
    peer._scale = _scale;
    peer._leftCap = std::max<objc::Int>(leftCapWidth, 0);
    peer._topCap = std::max<objc::Int>(topCapHeight, 0);
    return image;
}

void Image::draw(Painter& painter, CGRect into) const {
    if (_bitmap == nullptr) {
        return;
    }
    const Side across =
        divide(_bitmap->width() / _scale, static_cast<double>(_leftCap), into.origin.x, into.size.width);
    const Side down = divide(_bitmap->height() / _scale, static_cast<double>(_topCap), into.origin.y, into.size.height);
    for (std::size_t y = 0; y < 3; ++y) {
        for (std::size_t x = 0; x < 3; ++x) {
            painter.image(
                *_bitmap,
                CGRect(across.from[x] * _scale, down.from[y] * _scale, (across.from[x + 1] - across.from[x]) * _scale,
                       (down.from[y + 1] - down.from[y]) * _scale),
                CGRect(across.to[x], down.to[y], across.to[x + 1] - across.to[x], down.to[y + 1] - down.to[y]));
        }
    }
}

void Image::drawMask(Painter& painter, CGRect into, const Color& color) const {
    if (_bitmap != nullptr) {
        painter.mask(*_bitmap, into, color);
    }
}

void Image::drawInRect(CGRect rect) {
    if (Painter* painter = Painter::current()) {
        draw(*painter, rect);
    }
}

void Image::drawAtPoint(CGPoint point) { drawInRect(CGRect(point, size())); }

std::string imagePath(const UIImage& image) {
    const Image* peer = Image::of(image);
    return peer == nullptr ? std::string() : peer->path();
}

void drawImage(Painter& painter, const UIImage& image, CGRect into) {
    if (const Image* peer = Image::of(image)) {
        peer->draw(painter, into);
    }
}

void drawImageMask(Painter& painter, const UIImage& image, CGRect into, const Color& color) {
    if (const Image* peer = Image::of(image)) {
        peer->drawMask(painter, into, color);
    }
}

} // namespace phone
