#include "phone/uikit/TableRows.h"

namespace phone {

void TableRows::addSection(const NSString& title, CGFloat headerHeight) {
    Section section;
    section.title = title;
    section.headerTop = _height;
    section.headerHeight = headerHeight;
    _height += headerHeight;
    section.bottom = _height;
    _sections.push_back(std::move(section));
}

void TableRows::addRow(CGFloat height) {
    Section& section = _sections.back();
    section.rows.push_back({_height, height});
    _height += height;
    section.bottom = _height;
}

const TableRows::Row* TableRows::find(RowPath path) const {
    if (path.section < 0 || path.section >= static_cast<objc::Int>(_sections.size())) {
        return nullptr;
    }
    const auto& rows = _sections[static_cast<std::size_t>(path.section)].rows;
    if (path.row < 0 || path.row >= static_cast<objc::Int>(rows.size())) {
        return nullptr;
    }
    return &rows[static_cast<std::size_t>(path.row)];
}

std::optional<RowPath> TableRows::rowAt(CGFloat y) const {
    for (std::size_t section = 0; section < _sections.size(); ++section) {
        const auto& rows = _sections[section].rows;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (y >= rows[row].top && y < rows[row].top + rows[row].height) {
                return RowPath{static_cast<objc::Int>(section), static_cast<objc::Int>(row)};
            }
        }
    }
    return std::nullopt;
}

std::vector<RowPath> TableRows::between(CGFloat top, CGFloat bottom) const {
    std::vector<RowPath> found;
    for (std::size_t section = 0; section < _sections.size(); ++section) {
        const auto& rows = _sections[section].rows;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (rows[row].top < bottom && rows[row].top + rows[row].height > top) {
                found.push_back({static_cast<objc::Int>(section), static_cast<objc::Int>(row)});
            }
        }
    }
    return found;
}

} // namespace phone
