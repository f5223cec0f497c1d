/// The one seam to the drawing backend: everything that the phone draws goes through a Painter.
#pragma once

#include "platform/coregraphics/CGContext.h"

#include <memory>
#include <string>
#include <vector>

namespace phone {

/// Components from 0 to 1, not premultiplied.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const Color&, const Color&) = default;
};

/// A decoded picture. Immutable and shared.
class Bitmap {
public:
    virtual ~Bitmap() = default;
    /// In pixels.
    virtual int width() const = 0;
    virtual int height() const = 0;

    /// Of a PNG file (a path of the device); nullptr when it is missing, unreadable or no picture.
    static std::shared_ptr<const Bitmap> load(const std::string& path);
};

/// A face and a size.
struct Typeface {
    enum class Weight { Thin, Light, Regular, Medium, Bold };
    Weight weight = Weight::Regular;
    double size = 17; // points

    friend bool operator==(const Typeface&, const Typeface&) = default;
};

/// Laid-out text. Positions are UTF-16 units, as the platform counts them.
class TextLayout {
public:
    enum class Alignment { Left, Center, Right };
    struct Options {
        Typeface face;
        double width = -1;       // points; negative: one endless line
        int maximumLines = 0;    // 0: as many as there are
        Alignment alignment = Alignment::Left;
        bool ellipsis = false;   // whether what does not fit ends in an ellipsis
    };

    virtual ~TextLayout() = default;
    virtual CGSize size() const = 0;
    /// The caret before the unit at `position`; the text's end for a larger one.
    virtual CGRect caret(std::size_t position) const = 0;
    /// The position nearest to a point.
    virtual std::size_t positionAt(CGPoint point) const = 0;

    static std::unique_ptr<TextLayout> make(const std::string& utf8, const Options& options);
    /// The height of one line of the face, in points.
    static double lineHeight(const Typeface& face);
};

/// Draws in points, y downwards.
class Painter {
public:
    virtual ~Painter() = default;

    virtual void save() = 0;
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
    virtual void stroke(CGRect rect, const Color& color, double width, double radius = 0) = 0;
    virtual void fillEllipse(CGRect rect, const Color& color) = 0;
    virtual void strokeEllipse(CGRect rect, const Color& color, double width) = 0;
    /// A line through the points; round caps and joins.
    virtual void polyline(const std::vector<CGPoint>& points, const Color& color, double width) = 0;
    virtual void polygon(const std::vector<CGPoint>& points, const Color& color) = 0;
    virtual void gradient(CGRect rect, const Color& top, const Color& bottom) = 0;
    /// The whole picture into the rectangle.
    virtual void image(const Bitmap& bitmap, CGRect into) = 0;
    /// Part of the picture (in pixels) into the rectangle.
    virtual void image(const Bitmap& bitmap, CGRect pixels, CGRect into) = 0;
    /// The picture's alpha as a stencil for the colour.
    virtual void mask(const Bitmap& bitmap, CGRect into, const Color& color) = 0;
    virtual void text(const TextLayout& layout, CGPoint origin, const Color& color) = 0;
    /// The colour under the pixels seen through the rectangle, blurred: for translucent bars and sheets.
    virtual void blurBelow(CGRect rect, double radius) = 0;

    /// For `CGContext…` functions: the painter that draws now, nullptr outside drawing.
    static Painter* current();
    /// The platform's handle of this painter.
    CGContextRef context() { return reinterpret_cast<CGContextRef>(this); }
    /// A path as the platform's functions build it.
    virtual void moveTo(CGPoint point) = 0;
    virtual void addLineTo(CGPoint point) = 0;
    virtual void setStrokeColor(const Color& color) = 0;
    virtual void setLineWidth(double width) = 0;
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

/// A picture in memory that a painter draws into.
class Canvas {
public:
    virtual ~Canvas() = default;
    virtual Painter& painter() = 0;
    /// False when the file cannot be written.
    virtual bool writePng(const std::string& path) const = 0;
    /// 0xAARRGGBB, premultiplied; for tests.
    virtual unsigned pixel(int x, int y) const = 0;

    /// Points and pixels per point.
    static std::unique_ptr<Canvas> make(double width, double height, double scale);
};

} // namespace phone
