/// A control with a title and a picture, both by state.
#pragma once

#include "platform/uikit/UIButton.h"

#include <map>

namespace phone {

/// UIButton. What a state lacks is that of the normal state. The parts are subviews, back to front:
/// background picture, picture, title; each exists from the moment that it is set or asked for.
class Button : public objc::Implements<Button, UIButton, UIControl> {
public:
    static void define(objc::ClassTable<Button>& c);

private:
    /// What one state shows; nil where it has nothing of its own.
    struct Look {
        NSString title;
        UIColor titleColor;
        UIImage image;
        UIImage background;
    };

    static UIButton withType(UIButtonType type);

    NSString titleForState(UIControlState state) { return shown<&Look::title>(state); }
    void setTitle(const NSString& title, UIControlState state);
    UIColor titleColorForState(UIControlState state);
    void setTitleColor(const UIColor& color, UIControlState state);
    UIImage imageForState(UIControlState state) { return shown<&Look::image>(state); }
    void setImage(const UIImage& image, UIControlState state);
    UIImage backgroundImageForState(UIControlState state) { return shown<&Look::background>(state); }
    void setBackgroundImage(const UIImage& image, UIControlState state);
    NSString currentTitle() { return titleForState(state()); }
    UIColor currentTitleColor() { return titleColorForState(state()); }
    UIImage currentImage() { return imageForState(state()); }
    UIImage currentBackgroundImage() { return backgroundImageForState(state()); }
    UILabel titleLabel();
    UIImageView imageView();
    void setContentEdgeInsets(const UIEdgeInsets& insets);

    void stateChanged();
    void tintColorDidChange();
    void layoutSubviews();
    CGSize sizeThatFits(CGSize size);

    template <auto Part>
    auto shown(UIControlState state) const -> std::remove_cvref_t<decltype(Look().*Part)>;
    bool isDimmed() const;
    /// Shows on the parts what the present state asks for.
    void refresh();
    CGSize contentSize();

    UIButtonType _type = UIButtonType::Custom;
    std::map<objc::UInt, Look> _looks;
    UIEdgeInsets _contentInsets;
    UIImageView _backgroundView; // nil until there is a background picture
    UIImageView _imageView;      // nil until there is a picture, or somebody asked
    UILabel _titleLabel;         // nil until there is a title, or somebody asked
};

} // namespace phone
