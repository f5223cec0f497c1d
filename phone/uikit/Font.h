/// UIFont: a face at a size.
#pragma once

#include "phone/coregraphics/TextLayout.h"
#include "platform/uikit/UIFont.h"

#include <string>

namespace phone {

/// Immutable. The platform's families are known by name, and all are drawn with the one face that the
/// phone has, in the weight that the name asks for.
class Font : public objc::Implements<Font, UIFont, NSObject> {
public:
    static void define(objc::ClassTable<Font>& c);

    const Typeface& typeface() const { return _face; }
    /// "system 17", "system-bold 17" or "NAME SIZE".
    std::string description() const;

private:
    static UIFont make(const std::string& name, Typeface face);
    static UIFont systemFontOfSize(CGFloat size);
    static UIFont boldSystemFontOfSize(CGFloat size);
    /// nil for a name that the platform does not have.
    static UIFont fontWithName(const NSString& name, CGFloat size);

    UIFont fontWithSize(CGFloat size);
    NSString fontName();
    NSString familyName();
    CGFloat pointSize() { return _face.size; }
    CGFloat lineHeight();
    CGFloat ascender();
    CGFloat descender();
    bool isEqual(const objc::Object& other);
    objc::UInt hash();

    std::string _name;
    Typeface _face;
};

/// The face to draw with; the system's at 17 points for nil.
Typeface typefaceOf(const UIFont& font);
/// As the dumps print it: "system 17", "system-bold 17" or "NAME SIZE"; "" for nil.
std::string fontDescription(const UIFont& font);

} // namespace phone
