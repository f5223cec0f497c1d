/// How a flow names a thing on the screen.
#pragma once

#include "phone/flow/TextPattern.h"

#include <optional>
#include <string>

namespace phone {

/// A coordinate, in points or as a part of the whole.
struct Length {
    double value = 0;
    bool perCent = false;

    double in(double whole) const { return perCent ? whole * value / 100 : value; }
};

/// A point of the screen, or of an element when a selector names one beside it.
struct PointSpec {
    Length x;
    Length y;

    /// "160,50", "50%,10%"; nullopt when the text is neither, negative, or above 100 per cent.
    static std::optional<PointSpec> parse(const std::string& text);
};

/// All that is given has to hold of an element. Empty only with a point.
struct Selector {
    std::optional<TextPattern> text;
    std::optional<TextPattern> id; // of the accessibility identifier
    std::optional<long> index;     // among those that match, from 0
    std::optional<PointSpec> point;

    bool namesElement() const { return text || id || index; }
    /// For messages: `"Note"`, `id "pad"`, `"Note" (index 1)`.
    std::string description() const;
};

} // namespace phone
