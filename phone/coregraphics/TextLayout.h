/// Text set in lines: how large it is, and where its characters stand.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

#include <cstddef>
#include <memory>
#include <string>

namespace phone {

/// A face and a size.
struct Typeface {
    enum class Weight { Thin, Light, Regular, Medium, Bold };
    Weight weight = Weight::Regular;
    double size = 17; // points

    friend bool operator==(const Typeface&, const Typeface&) = default;
};

/// Laid-out text; each paragraph goes in the direction of its first letter. Positions are UTF-16 units, as the platform
/// counts them; one inside a character that has two units counts as the character's start. All lines are equally high,
/// whatever faces stand in for characters that the face does not have.
class TextLayout {
public:
    /// Natural: where the text begins by its own direction, paragraph by paragraph.
    enum class Alignment { Left, Center, Right, Natural };
    struct Options {
        Typeface face{};
        double width = -1;                     // points; negative: one endless line a paragraph
        int maximumLines = 0;                  // 0: as many as there are
        Alignment alignment = Alignment::Left; // within the width
        bool ellipsis = false;                 // whether what does not fit ends in an ellipsis
    };

    /// The width of a caret in points.
    static constexpr double caretWidth = 2;

    virtual ~TextLayout() = default;
    /// The widest line and the height of all lines. Text without characters is one empty line.
    virtual CGSize size() const = 0;
    virtual int lineCount() const = 0;
    /// Whether the first paragraph is written from right to left.
    virtual bool isRightToLeft() const = 0;
    /// The caret before the unit at `position`; the text's end for a larger one.
    virtual CGRect caret(std::size_t position) const = 0;
    /// The position nearest to a point.
    virtual std::size_t positionAt(CGPoint point) const = 0;

    static std::unique_ptr<TextLayout> make(const std::string& utf8, const Options& options);
    /// The height of one line of the face, in points.
    static double lineHeight(const Typeface& face);
    /// From the top of a line down to its baseline, in points.
    static double ascender(const Typeface& face);
};

} // namespace phone
