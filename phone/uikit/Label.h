/// UILabel: shows a text that nobody edits.
#pragma once

#include "phone/coregraphics/TextLayout.h"
#include "platform/uikit/UILabel.h"

#include <memory>

namespace phone {

/// One line unless told otherwise, vertically centred; what does not fit ends in an ellipsis.
class Label : public objc::Implements<Label, UILabel, UIView> {
public:
    static void define(objc::ClassTable<Label>& c);

private:
    void initWithFrame(CGRect frame);
    NSString text() { return _text; }
    void setText(const NSString& text);
    UIColor textColor() { return _textColor; }
    /// nil means black.
    void setTextColor(const UIColor& color);
    UIFont font() { return _font; }
    /// nil means the system's font at 17 points.
    void setFont(const UIFont& font);
    NSTextAlignment textAlignment() { return _alignment; }
    void setTextAlignment(NSTextAlignment alignment);
    objc::Int numberOfLines() { return _lines; }
    void setNumberOfLines(objc::Int lines);
    /// Rounded up to whole pixels.
    CGSize sizeThatFits(CGSize size);
    void drawRect(CGRect rect);

    std::unique_ptr<TextLayout> layout(double width, int lines);

    NSString _text; // nil shows nothing
    UIColor _textColor;
    UIFont _font;
    NSTextAlignment _alignment = NSTextAlignment::Left;
    objc::Int _lines = 1; // 0: as many as fit
};

} // namespace phone
