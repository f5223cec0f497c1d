/// The panel of an alert: title, message and buttons.
#pragma once

#include "phone/uikit/Alert.h"
#include "platform/uikit/UILabel.h"

namespace phone {

/// Stays in the middle of its superview and is as high as its texts. Two short buttons stand side by side,
/// others one below the other; the last one is the one proposed, in bold.
class AlertView : public objc::Defines<AlertView, UIView> {
public:
    static constexpr auto objc_name = "_UIModalItemAlertContentView";
    static constexpr CGFloat width = 270;       // points
    static constexpr CGFloat buttonHeight = 44; // points

    static void define(objc::ClassTable<AlertView>& c);
    static UIView with(const Question& question);

private:
    void didMoveToSuperview();
    void buttonTouched(const objc::Object& sender);
    void build(const Question& question);
    /// Adds the text centred at the height; gives where it ends.
    CGFloat addText(const std::string& words, const UIFont& font, CGFloat top);
    void addButton(const std::string& title, int number, bool isProposed, CGRect frame);
    void addHairline(CGRect frame);
};

} // namespace phone
