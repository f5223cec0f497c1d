#include "phone/uikit/Font.h"

#include "phone/foundation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <string_view>

namespace phone {

namespace {

constexpr const char* systemName = ".HelveticaNeueInterface-M3";
constexpr const char* boldSystemName = ".HelveticaNeueInterface-MediumP4";
constexpr double labelSize = 17;

struct Known {
    std::string_view name;
    std::string_view family;
    Typeface::Weight weight;
};

/// What the platform's upright faces without serifs are called.
constexpr std::array known{
    Known{systemName, ".Helvetica Neue Interface", Typeface::Weight::Regular},
    Known{boldSystemName, ".Helvetica Neue Interface", Typeface::Weight::Bold},
    Known{"Helvetica", "Helvetica", Typeface::Weight::Regular},
    Known{"Helvetica-Light", "Helvetica", Typeface::Weight::Light},
    Known{"Helvetica-Bold", "Helvetica", Typeface::Weight::Bold},
    Known{"HelveticaNeue", "Helvetica Neue", Typeface::Weight::Regular},
    Known{"HelveticaNeue-UltraLight", "Helvetica Neue", Typeface::Weight::Thin},
    Known{"HelveticaNeue-Thin", "Helvetica Neue", Typeface::Weight::Thin},
    Known{"HelveticaNeue-Light", "Helvetica Neue", Typeface::Weight::Light},
    Known{"HelveticaNeue-Medium", "Helvetica Neue", Typeface::Weight::Medium},
    Known{"HelveticaNeue-Bold", "Helvetica Neue", Typeface::Weight::Bold},
    Known{"ArialMT", "Arial", Typeface::Weight::Regular},
    Known{"Arial-BoldMT", "Arial", Typeface::Weight::Bold},
};

const Known* find(std::string_view name) {
    const auto* at = std::find_if(known.begin(), known.end(), [&](const Known& face) { return face.name == name; });
    return at == known.end() ? nullptr : at;
}

CGFloat labelFontSize() { return labelSize; }
CGFloat buttonFontSize() { return 18; }
CGFloat systemFontSize() { return 14; }
CGFloat smallSystemFontSize() { return 12; }

} // namespace

void Font::define(objc::ClassTable<Font>& c) {
    c.classMethod<"systemFontOfSize:", &Font::systemFontOfSize>()
        .classMethod<"boldSystemFontOfSize:", &Font::boldSystemFontOfSize>()
        .classMethod<"fontWithName:size:", &Font::fontWithName>()
        .classMethod<"labelFontSize", &labelFontSize>()
        .classMethod<"buttonFontSize", &buttonFontSize>()
        .classMethod<"systemFontSize", &systemFontSize>()
        .classMethod<"smallSystemFontSize", &smallSystemFontSize>()
        .def<"fontWithSize:", &Font::fontWithSize>()
        .def<"fontName", &Font::fontName>()
        .def<"familyName", &Font::familyName>()
        .def<"pointSize", &Font::pointSize>()
        .def<"lineHeight", &Font::lineHeight>()
        .def<"ascender", &Font::ascender>()
        .def<"descender", &Font::descender>()
        .overrides<"isEqual:", &Font::isEqual>()
        .overrides<"hash", &Font::hash>();
}

std::string Font::description() const {
    const char* name = _name == systemName ? "system" : _name == boldSystemName ? "system-bold" : _name.c_str();
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), _face.size); // the shortest form
    return std::string(name) + " " + std::string(digits.data(), written.ptr);
}

UIFont Font::make(const std::string& name, Typeface face) {
    auto font = objc::make<UIFont>();
    of(font)->_name = name;
    of(font)->_face = face;
    return font;
}

UIFont Font::systemFontOfSize(CGFloat size) { return make(systemName, {Typeface::Weight::Regular, size}); }
UIFont Font::boldSystemFontOfSize(CGFloat size) { return make(boldSystemName, {Typeface::Weight::Bold, size}); }

UIFont Font::fontWithName(const NSString& name, CGFloat size) {
    const Known* face = find(text(name));
    return face == nullptr ? UIFont() : make(std::string(face->name), {face->weight, size});
}

UIFont Font::fontWithSize(CGFloat size) { return make(_name, {_face.weight, size}); }
NSString Font::fontName() { return string(_name); }

NSString Font::familyName() {
    const Known* face = find(_name);
    return string(std::string(face == nullptr ? std::string_view() : face->family));
}

CGFloat Font::lineHeight() { return TextLayout::lineHeight(_face); }
CGFloat Font::ascender() { return TextLayout::ascender(_face); }
CGFloat Font::descender() { return TextLayout::ascender(_face) - TextLayout::lineHeight(_face); }

bool Font::isEqual(const objc::Object& other) {
    const Font* peer = of(other);
    return peer != nullptr && peer->_name == _name && peer->_face == _face;
}

objc::UInt Font::hash() { return std::hash<std::string>()(description()); }

Typeface typefaceOf(const UIFont& font) {
    const Font* peer = Font::of(font);
    return peer == nullptr ? Typeface{Typeface::Weight::Regular, labelSize} : peer->typeface();
}

std::string fontDescription(const UIFont& font) {
    const Font* peer = Font::of(font);
    return peer == nullptr ? std::string() : peer->description();
}

} // namespace phone
