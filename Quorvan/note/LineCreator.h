/// A hairline between two parts of a panel: its background is the line.
#pragma once

#include "platform/uikit/UIView.h"

namespace quorvan {

class LineCreator : public objc::Defines<LineCreator, UIView> {
public:
    static constexpr auto objc_name = "LineCreator";
    static void define(objc::ClassTable<LineCreator>& c);

private:
    void initWithFrame(CGRect frame);
    void drawRect(CGRect rect);
};

} // namespace quorvan
