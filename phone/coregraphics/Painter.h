/// The one seam to the drawing backend: everything that the phone draws goes through a Painter.
#pragma once

#include "phone/coregraphics/Bitmap.h"
#include "phone/coregraphics/Color.h"
#include "phone/coregraphics/TextLayout.h"
#include "platform/coregraphics/CGContext.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace phone {

/// Draws in points, y downwards. Rectangles without area draw nothing; a corner radius larger than half
/// a side is taken as half of it.
class Painter {
public:
    virtual ~Painter() = default;

    virtual void save() = 0;
    /// Ends the innermost `save`: its transform and clip are those of before.
    virtual void restore() = 0;
    virtual void translate(double x, double y) = 0;
    /// Turns clockwise around the origin.
    virtual void rotate(double radians) = 0;
    virtual void scale(double x, double y) = 0;
    /// Limits drawing to the rectangle with rounded corners.
    virtual void clip(CGRect rect, double radius = 0) = 0;
    /// What is drawn until `endGroup` is laid over the rest with this alpha, as one picture.
    virtual void beginGroup() = 0;
    virtual void endGroup(double alpha) = 0;

    virtual void fill(CGRect rect, const Color& color, double radius = 0) = 0;
    /// The line lies half inside the rectangle, half outside.
    virtual void stroke(CGRect rect, const Color& color, double width, double radius = 0) = 0;
    virtual void fillEllipse(CGRect rect, const Color& color) = 0;
    virtual void strokeEllipse(CGRect rect, const Color& color, double width) = 0;
    /// A line through the points; round caps and joins.
    virtual void polyline(const std::vector<CGPoint>& points, const Color& color, double width) = 0;
    virtual void polygon(const std::vector<CGPoint>& points, const Color& color) = 0;
    virtual void gradient(CGRect rect, const Color& top, const Color& bottom) = 0;
    /// A spot of colour that fades to nothing at the rectangle's inscribed ellipse.
    virtual void glow(CGRect rect, const Color& color) = 0;
    /// The whole picture into the rectangle.
    virtual void image(const Bitmap& bitmap, CGRect into) = 0;
    /// Part of the picture (in pixels) into the rectangle.
    virtual void image(const Bitmap& bitmap, CGRect pixels, CGRect into) = 0;
    /// The picture's alpha as a stencil for the colour.
    virtual void mask(const Bitmap& bitmap, CGRect into, const Color& color) = 0;
    virtual void text(const TextLayout& layout, CGPoint origin, const Color& color) = 0;
    /// Blurs what has been drawn under the rectangle, within the clip: for translucent bars and sheets.
    /// The radius is in points. Inside a group only the group's own picture is there to blur.
    virtual void blurBelow(CGRect rect, double radius) = 0;

    /// For `CGContext…` functions: the painter that draws now, nullptr outside drawing.
    static Painter* current();
    /// The platform's handle of this painter, and the painter of a handle.
    CGContextRef context() { return reinterpret_cast<CGContextRef>(this); }
    static Painter* of(CGContextRef context) { return reinterpret_cast<Painter*>(context); }
    /// A path as the platform's functions build it. A line without a point to start from does nothing.
    virtual void moveTo(CGPoint point) = 0;
    virtual void addLineTo(CGPoint point) = 0;
    /// Black and one point until set; both belong to what `save` and `restore` bracket.
    virtual void setStrokeColor(const Color& color) = 0;
    virtual void setLineWidth(double width) = 0;
    /// Strokes the path, butt caps and mitred joins, and empties it.
    virtual void strokePath() = 0;
};

/// Makes a painter current for a scope: while a view draws.
class CurrentPainter {
public:
    explicit CurrentPainter(Painter& painter);
    ~CurrentPainter();
    CurrentPainter(const CurrentPainter&) = delete;
    CurrentPainter& operator=(const CurrentPainter&) = delete;

private:
    Painter* _previous;
};

/// A picture in memory that a painter draws into; transparent at first.
class Canvas {
public:
    virtual ~Canvas() = default;
    /// Lives as long as the canvas.
    virtual Painter& painter() = 0;
    /// What has been drawn so far; it shares the canvas's pixels and lives as long.
    virtual const Bitmap& bitmap() const = 0;
    /// False when the file cannot be written. The same picture gives the same bytes.
    virtual bool writePng(const std::string& path) const = 0;
    /// The same of a part, in points, which is cut off at the canvas's edges; false also where nothing is left.
    virtual bool writePng(const std::string& path, CGRect part) const = 0;
    /// 0xAARRGGBB, premultiplied; 0 outside.
    virtual unsigned pixel(int x, int y) const = 0;
    /// In pixels.
    virtual int width() const = 0;
    virtual int height() const = 0;
    /// A line of pixels as above, `width()` of them; lives until something is drawn.
    virtual const std::uint32_t* line(int y) const = 0;

    /// Points and pixels per point. nullptr when a side is not positive or larger than `Bitmap::maximumSide`.
    static std::unique_ptr<Canvas> make(double width, double height, double scale);
};

} // namespace phone
