#include "phone/uikit/TableParts.h"

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/TableView.h"

namespace phone {

namespace {

constexpr CGSize chevronSize{8, 13};
constexpr CGSize checkmarkSize{14, 11};
constexpr double markWidth = 2;
constexpr Color chevronColor{199 / 255.0, 199 / 255.0, 204 / 255.0, 1};
constexpr Color headerColor{247 / 255.0, 247 / 255.0, 247 / 255.0, 1};
constexpr CGFloat headerTitleSize = 17;

} // namespace

UIColor separatorColor() { return uiColor({200 / 255.0, 199 / 255.0, 204 / 255.0, 1}); }

void TableCellMark::define(objc::ClassTable<TableCellMark>& c) {
    c.overrides<"_drawContent:", &TableCellMark::drawContent>();
}

UIView TableCellMark::make(UITableViewCellAccessoryType type) {
    if (type == UITableViewCellAccessoryType::None) {
        return nullptr;
    }
    const auto mark = objc::Ref<TableCellMark>::make();
    mark->_type = type;
    const auto view = objc::as<UIView>(mark);
    view.setFrame({{}, type == UITableViewCellAccessoryType::Checkmark ? checkmarkSize : chevronSize});
    view.setUserInteractionEnabled(false);
    return view;
}

void TableCellMark::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    if (_type == UITableViewCellAccessoryType::Checkmark) {
        painter->polyline({{1, 6}, {5, 10}, {13, 1}}, colorOf(tintColor()), markWidth);
    } else {
        painter->polyline({{1, 1}, {6.5, 6.5}, {1, 12}}, chevronColor, markWidth);
    }
}

void TableHeader::define(objc::ClassTable<TableHeader>& c) {
    c.init<"initWithFrame:", &TableHeader::initWithFrame>()
        .def<"textLabel", &TableHeader::textLabel>()
        .overrides<"layoutSubviews", &TableHeader::layoutSubviews>();
}

void TableHeader::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setBackgroundColor(uiColor(headerColor));
    _label = objc::make<UILabel>();
    _label.setFont(UIFont::boldSystem(headerTitleSize));
    addSubview(_label);
}

void TableHeader::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize size = bounds().size;
    _label.setFrame({TableView::margin, 0, size.width - 2 * TableView::margin, size.height});
}

} // namespace phone
