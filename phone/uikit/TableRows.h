/// Where the rows of a table lie.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSIndexPath.h"
#include "platform/foundation/NSString.h"

#include <optional>
#include <vector>

namespace phone {

/// A row by section and position.
struct RowPath {
    objc::Int section = 0;
    objc::Int row = 0;

    static RowPath of(const NSIndexPath& path) { return {path.section(), path.row()}; }
    NSIndexPath indexPath() const { return NSIndexPath::forRow(row, section); }
    friend auto operator<=>(const RowPath&, const RowPath&) = default;
};

/// Heights and places, in points from the content's top. Read from the data source once a reload.
class TableRows {
public:
    struct Row {
        CGFloat top;
        CGFloat height;
    };
    struct Section {
        NSString title; // nil: the section has no header
        CGFloat headerTop = 0;
        CGFloat headerHeight = 0;
        CGFloat bottom = 0;
        std::vector<Row> rows;
    };

    void clear() { *this = {}; }
    void addSection(const NSString& title, CGFloat headerHeight);
    void addRow(CGFloat height);

    const std::vector<Section>& sections() const { return _sections; }
    CGFloat height() const { return _height; }
    /// nullptr for a row that does not exist.
    const Row* find(RowPath path) const;
    std::optional<RowPath> rowAt(CGFloat y) const;
    /// The rows of which something lies between the two heights.
    std::vector<RowPath> between(CGFloat top, CGFloat bottom) const;

private:
    std::vector<Section> _sections;
    CGFloat _height = 0;
};

} // namespace phone
