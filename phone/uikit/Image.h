/// UIImage: a picture from a file, with its size in points.
#pragma once

#include "phone/coregraphics/Bitmap.h"
#include "phone/coregraphics/Painter.h"
#include "platform/uikit/UIImage.h"

#include <memory>
#include <string>

namespace phone {

/// Immutable.
class Image : public objc::Implements<Image, UIImage, NSObject> {
public:
    static void define(objc::ClassTable<Image>& c);

    /// The path as it was given.
    const std::string& path() const { return _path; }
    /// Stretches what lies between the caps. Where the caps alone are too large, they shrink alike.
    void draw(Painter& painter, CGRect into) const;
    void drawMask(Painter& painter, CGRect into, const Color& color) const;

private:
    static UIImage imageWithContentsOfFile(const NSString& path);

    CGSize size();
    CGFloat scale() { return _scale; }
    objc::Int leftCapWidth() { return _leftCap; }
    objc::Int topCapHeight() { return _topCap; }
    UIImage stretchable(objc::Int leftCapWidth, objc::Int topCapHeight);
    void drawInRect(CGRect rect);
    void drawAtPoint(CGPoint point);

    std::shared_ptr<const Bitmap> _bitmap;
    std::string _path;
    double _scale = 1;
    objc::Int _leftCap = 0; // points; 0: the whole width stretches
    objc::Int _topCap = 0;
};

/// The path of the picture as it was given; "" for nil.
std::string imagePath(const UIImage& image);
/// Draws the picture, stretched by its caps; nothing for nil.
void drawImage(Painter& painter, const UIImage& image, CGRect into);
/// Draws the picture's alpha in one colour; nothing for nil.
void drawImageMask(Painter& painter, const UIImage& image, CGRect into, const Color& color);

} // namespace phone
