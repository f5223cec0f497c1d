/// The translucent ground of a bar, and the hairline below it.
#pragma once

#include "platform/uikit/UIImageView.h"

namespace phone {

class BarBackground : public objc::Defines<BarBackground, UIView> {
public:
    static constexpr auto objc_name = "_UINavigationBarBackground";
    static void define(objc::ClassTable<BarBackground>& c) {
        c.init<"initWithFrame:", &BarBackground::initWithFrame>()
            .overrides<"layoutSubviews", &BarBackground::layoutSubviews>()
            .overrides<"_drawContent:", &BarBackground::drawContent>();
    }

private:
    void initWithFrame(CGRect frame);
    void layoutSubviews();
    void drawContent(CGRect rect);

    UIImageView _line;
};

} // namespace phone
