#include "phone/uikit/TableView.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/Compositor.h"
#include "platform/uikit/UIControl.h"
#include "tests/phone/ActionCounter.h"
#include "tests/phone/PhoneTest.h"

namespace {

using Phase = phone::Screen::Phase;
using Entries = std::vector<std::string>;

/// Rows "row 0", "row 1", ..., and a diary of what the table wanted.
class Rows : public objc::Defines<Rows, NSObject> {
public:
    static constexpr auto objc_name = "TableViewTestRows";
    static void define(objc::ClassTable<Rows>& c) {
        c.def<"tableView:numberOfRowsInSection:", &Rows::numberOfRows>()
            .def<"tableView:cellForRowAtIndexPath:", &Rows::cellForRow>()
            .def<"tableView:heightForRowAtIndexPath:", &Rows::heightForRow>()
            .def<"tableView:shouldHighlightRowAtIndexPath:", &Rows::shouldHighlight>()
            .def<"tableView:willSelectRowAtIndexPath:", &Rows::willSelect>()
            .def<"tableView:didSelectRowAtIndexPath:", &Rows::didSelect>()
            .def<"tableView:accessoryButtonTappedForRowWithIndexPath:", &Rows::accessoryTapped>();
    }

    objc::Int count = 3;
    CGFloat height = 44;
    bool givesCells = true;
    bool writesTexts = true;
    int made = 0;
    int heights = 0;
    Entries entries;
    std::vector<objc::Int> asked; // rows of which a cell was asked
    Entries take() { return std::exchange(entries, {}); }

private:
    objc::Int numberOfRows(const UITableView&, objc::Int) { return count; }
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path) {
        asked.push_back(path.row());
        if (!givesCells) {
            return nullptr;
        }
        auto cell = table.dequeue("Cell"_ns);
        if (!cell) {
            cell = UITableViewCell::with(0, "Cell"_ns);
            ++made;
        }
        if (writesTexts) {
            cell.textLabel().setText(phone::string("row " + std::to_string(path.row())));
        }
        return cell;
    }
    CGFloat heightForRow(const UITableView&, const NSIndexPath&) {
        ++heights;
        return height;
    }
    void add(const char* what, const NSIndexPath& path) {
        entries.push_back(what + std::string(" ") + std::to_string(path.row()));
    }
    bool shouldHighlight(const UITableView&, const NSIndexPath& path) {
        add("shouldHighlight", path);
        return true;
    }
    NSIndexPath willSelect(const UITableView&, const NSIndexPath& path) {
        add("willSelect", path);
        return path;
    }
    void didSelect(const UITableView&, const NSIndexPath& path) { add("didSelect", path); }
    void accessoryTapped(const UITableView&, const NSIndexPath& path) { add("accessory", path); }
};

/// One section, "Section", of one row.
class TitledRows : public objc::Defines<TitledRows, NSObject> {
public:
    static constexpr auto objc_name = "TableViewTestTitledRows";
    static void define(objc::ClassTable<TitledRows>& c) {
        c.def<"tableView:numberOfRowsInSection:", &TitledRows::numberOfRows>()
            .def<"tableView:cellForRowAtIndexPath:", &TitledRows::cellForRow>()
            .def<"tableView:titleForHeaderInSection:", &TitledRows::title>()
            .def<"tableView:heightForHeaderInSection:", &TitledRows::height>();
    }

    CGFloat headerHeight = 28;

private:
    objc::Int numberOfRows(const UITableView&, objc::Int) { return 1; }
    UITableViewCell cellForRow(const UITableView&, const NSIndexPath&) { return UITableViewCell::with(0, nullptr); }
    NSString title(const UITableView&, objc::Int) { return "Section"_ns; }
    CGFloat height(const UITableView&, objc::Int) { return headerHeight; }
};

class TableView : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        rows = objc::Ref<Rows>::make();
        table = UITableView::withFrame({0, 0, 290, 200}, UITableViewStyle::Plain);
        table.setDataSource(rows);
        table.setDelegate(rows);
    }
    void show() {
        screen.addSubview(table);
        advance(0);
    }
    UITableViewCell cell(objc::Int row) { return table.cellForRow(NSIndexPath::forRow(row, 0)); }

    UIWindow screen;
    objc::Ref<Rows> rows;
    UITableView table;
};

// Holds: table-cells-wait-for-layout
TEST_F(TableView, AsksForCellsInLayoutAlone) {
    advance(0);
    EXPECT_TRUE(rows->asked.empty());

    show();

    EXPECT_EQ(rows->asked, (std::vector<objc::Int>{0, 1, 2}));
}

// Holds: table-cells-in-sight, table-heights-of-all-rows
TEST_F(TableView, AsksForTheHeightOfEveryRowButForVisibleCellsAlone) {
    rows->count = 100;
    show();

    EXPECT_EQ(rows->heights, 100);
    EXPECT_EQ(rows->asked.size(), 5U);
    EXPECT_EQ(table.contentSize().height, 4400);
}

// Trap: no-cell-out-of-sight
// Holds: table-knows-cells-in-sight
TEST_F(TableView, KnowsOnlyCellsInSight) {
    rows->count = 100;
    show();

    EXPECT_TRUE(cell(4));
    EXPECT_FALSE(cell(5));
    EXPECT_FALSE(cell(200));
    EXPECT_EQ(table.indexPathForCell(cell(4)).row(), 4);
    EXPECT_FALSE(table.indexPathForCell(UITableViewCell::with(0, nullptr)));
}

// Holds: reused-cells-keep-everything
// Trap: cells-come-back-as-they-were
TEST_F(TableView, UsesCellsAgainAsTheyWere) {
    rows->count = 100;
    show();
    const auto first = cell(0);
    const auto accessory = objc::make<UIControl, "initWithFrame:">(CGRect(0, 0, 50, 30));
    const auto presses = countValueChanges(accessory);
    const auto picture = UIImage::withContentsOfFile("/Library/Quorvan/arrow.png"_ns);
    ASSERT_TRUE(picture);
    first.setAccessoryType(UITableViewCellAccessoryType::Checkmark);
    first.setAccessoryView(accessory);
    first.imageView().setImage(picture);
    first.setTag(7);
    rows->writesTexts = false;

    table.setContentOffset({0, 88});
    advance(0);

    EXPECT_EQ(rows->made, 5);
    const auto path = table.indexPathForCell(first);
    ASSERT_TRUE(path);
    EXPECT_GE(path.row(), 5);
    EXPECT_EQ(phone::text(first.textLabel().text()), "row 0");
    EXPECT_EQ(first.accessoryType(), UITableViewCellAccessoryType::Checkmark);
    EXPECT_EQ(first.accessoryView(), accessory);
    EXPECT_EQ(first.imageView().image(), picture);
    EXPECT_EQ(first.tag(), 7);
    accessory.sendActions(UIControlEventValueChanged);
    EXPECT_EQ(presses->number, 1);
}

// Holds: reused-cells-keep-everything
TEST_F(TableView, HasNoCellToUseAgainAtFirst) { EXPECT_FALSE(table.dequeue("Cell"_ns)); }

// Holds: table-without-a-cell-raises
TEST_F(TableView, RaisesWhenTheDataSourceGivesNoCell) {
    expectLogged("exception");
    rows->givesCells = false;
    screen.addSubview(table);

    EXPECT_THROW(advance(0), phone::ScreenError);

    ASSERT_EQ(log("exception").size(), 1U);
    EXPECT_EQ(log("exception").front().at("name"), "NSInternalInconsistencyException");
}

// Holds: row-height
TEST_F(TableView, HasRowsOf44PointsUnlessToldOtherwise) {
    EXPECT_EQ(table.rowHeight(), 44);
    rows->height = 60;
    show();

    EXPECT_EQ(cell(1).frame(), CGRect(0, 60, 290, 60));
}

// Holds: table-selection-by-touch
TEST_F(TableView, SelectsWhenTheFingerGoesUp) {
    show();

    touch(Phase::Began, 100, 50);
    EXPECT_EQ(rows->take(), Entries{"shouldHighlight 1"});
    EXPECT_TRUE((cell(1).send<"isHighlighted", bool>()));
    touch(Phase::Ended, 100, 50);

    EXPECT_EQ(rows->take(), (Entries{"willSelect 1", "didSelect 1"}));
    EXPECT_TRUE(cell(1).isSelected());
    EXPECT_FALSE((cell(1).send<"isHighlighted", bool>()));
    EXPECT_EQ(table.indexPathForSelectedRow().row(), 1);
}

// Holds: table-selection-by-touch
TEST_F(TableView, DoesNotSelectWhenTheFingerMovesAway) {
    show();

    touch(Phase::Began, 100, 50);
    touch(Phase::Moved, 100, 120);
    touch(Phase::Ended, 100, 120);

    EXPECT_EQ(rows->take(), Entries{"shouldHighlight 1"});
    EXPECT_FALSE(table.indexPathForSelectedRow());
}

// Holds: table-selects-again
TEST_F(TableView, SelectsASelectedRowAgain) {
    show();
    tap(100, 50);
    rows->take();

    tap(100, 50);

    EXPECT_EQ(rows->take(), (Entries{"shouldHighlight 1", "willSelect 1", "didSelect 1"}));
}

// Holds: table-defaults
TEST_F(TableView, HasOneSelectedRowAtMost) {
    show();
    tap(100, 50);
    tap(100, 10);

    EXPECT_TRUE(cell(0).isSelected());
    EXPECT_FALSE(cell(1).isSelected());
}

// Trap: selection-in-code-is-silent
// Holds: table-selection-in-code
TEST_F(TableView, CallsNoDelegateForASelectionInCode) {
    show();

    table.send<"selectRowAtIndexPath:animated:scrollPosition:">(NSIndexPath::forRow(1, 0), false, objc::Int(0));
    EXPECT_TRUE(cell(1).isSelected());
    table.deselectRow(NSIndexPath::forRow(1, 0), true);

    EXPECT_FALSE(cell(1).isSelected());
    EXPECT_TRUE(rows->take().empty());
}

// Holds: reload-clears-the-selection
TEST_F(TableView, ForgetsTheFingersRowWhenItReloads) {
    show();
    touch(Phase::Began, 100, 50);
    rows->take();

    run([&] { table.reloadData(); });
    EXPECT_FALSE((cell(1).send<"isHighlighted", bool>()));
    touch(Phase::Ended, 100, 50);

    EXPECT_TRUE(rows->take().empty());
    EXPECT_FALSE(table.indexPathForSelectedRow());
}

// Holds: reload-clears-the-selection
// Trap: selection-in-code-is-silent
TEST_F(TableView, ForgetsTheSelectionWhenItReloads) {
    show();
    tap(100, 50);
    rows->count = 2;

    table.reloadData();
    EXPECT_EQ(table.numberOfRows(0), 2);
    advance(0);

    EXPECT_FALSE(table.indexPathForSelectedRow());
    EXPECT_FALSE(cell(1).isSelected());
    EXPECT_EQ(rows->made, 3);
}

TEST_F(TableView, ShowsNewTextAfterAReload) {
    show();
    rows->count = 1;

    run([&] { table.reloadData(); });

    EXPECT_TRUE(isVisible("row 0"));
    EXPECT_FALSE(isVisible("row 2"));
}

// Holds: accessory-view-is-placed
// Trap: accessory-view-is-moved
TEST_F(TableView, PlacesAnAccessoryViewItself) {
    show();
    const auto accessory = UIView::withFrame({103, 0, 150, 28});

    cell(0).setAccessoryView(accessory);
    advance(0);

    EXPECT_EQ(accessory.frame(), CGRect(125, 8, 150, 28));
    EXPECT_STREQ(class_getName(object_getClass(accessory.superview().raw())), "UITableViewCellScrollView");
}

TEST_F(TableView, TouchesOnAnAccessoryViewSelectTheRow) {
    show();
    cell(0).setAccessoryView(UIView::withFrame({103, 0, 150, 28}));
    advance(0);

    tap(200, 22);

    EXPECT_EQ(rows->take().back(), "didSelect 0");
}

// Holds: control-as-accessory
TEST_F(TableView, AControlAsAccessoryKeepsItsTouchesToItself) {
    show();
    const auto control = objc::make<UIControl, "initWithFrame:">(CGRect(0, 0, 50, 30));
    const auto presses = objc::Ref<ActionCounter>::make();
    control.addTarget(presses, objc::selector<"count:">(), UIControlEventTouchUpInside);
    cell(0).setAccessoryView(control);
    advance(0);

    tap(250, 22);

    EXPECT_EQ(presses->number, 1);
    EXPECT_TRUE(rows->take().empty()); // neither the row nor its accessory button was tapped
}

// Holds: accessory-of-one-cell
TEST_F(TableView, AnAccessoryViewMovesToTheCellThatTookItLast) {
    show();
    const auto accessory = UIView::withFrame({0, 0, 20, 20});

    cell(0).setAccessoryView(accessory);
    cell(1).setAccessoryView(accessory);
    advance(0);

    EXPECT_TRUE(accessory.isDescendantOfView(cell(1)));
    EXPECT_FALSE(accessory.isDescendantOfView(cell(0)));
}

// Holds: accessory-view-wins
TEST_F(TableView, AnAccessoryViewWinsOverTheType) {
    show();
    cell(0).setAccessoryType(UITableViewCellAccessoryType::Checkmark);
    EXPECT_EQ(countClass("UITableViewCellAccessoryMark"), 1);

    cell(0).setAccessoryView(UIView::withFrame({0, 0, 20, 20}));

    EXPECT_EQ(countClass("UITableViewCellAccessoryMark"), 0);
}

// Trap: accessory-view-is-moved
// Holds: cell-superviews
TEST_F(TableView, HasTheSuperviewsOfItsSystem) {
    show();

    const UIView content = cell(0).contentView();
    EXPECT_STREQ(class_getName(object_getClass(content.superview().raw())), "UITableViewCellScrollView");
    EXPECT_TRUE(content.superview().superview() == cell(0));
    EXPECT_STREQ(class_getName(object_getClass(cell(0).superview().raw())), "UITableViewWrapperView");
    EXPECT_TRUE(cell(0).superview().superview() == table);
}

class NewerTableView : public TableView {
protected:
    void SetUp() override {
        useSystem("8");
        TableView::SetUp();
    }
};

// Trap: accessory-view-is-moved
// Holds: cell-superviews
TEST_F(NewerTableView, HasNoScrollViewInItsCells) {
    show();
    const auto mark = UIView::withFrame({0, 0, 20, 20});
    cell(0).setAccessoryView(mark);
    advance(0);

    EXPECT_TRUE(cell(0).contentView().superview() == cell(0));
    EXPECT_TRUE(mark.superview() == cell(0));
    EXPECT_EQ(mark.frame(), CGRect(255, 12, 20, 20));
    EXPECT_STREQ(class_getName(object_getClass(cell(0).superview().raw())), "UITableViewWrapperView");
}

// Holds: cell-look
TEST_F(TableView, StartsItsTexts15PointsFromTheLeft) {
    show();

    const auto label = cell(0).textLabel();
    EXPECT_EQ(label.frame(), CGRect(15, 0, 260, 43.5));
    EXPECT_EQ(label.font().pointSize(), 18);
    EXPECT_TRUE(cell(0).backgroundColor().isEqual(UIColor::white()));
}

// Holds: scrolling-off-stops-the-finger
TEST_F(TableView, WithScrollingOffIsStillMovedByCode) {
    rows->count = 100;
    table.setScrollEnabled(false);
    show();

    touch(Phase::Began, 100, 150);
    touch(Phase::Moved, 100, 50);
    touch(Phase::Ended, 100, 50);
    EXPECT_EQ(table.contentOffset().y, 0);
    EXPECT_FALSE(table.indexPathForSelectedRow());

    table.setContentOffset({0, 440});
    advance(0);
    EXPECT_TRUE(cell(10));
}

TEST_F(TableView, DraggingTakesTheFingerFromTheRow) {
    rows->count = 100;
    show();

    touch(Phase::Began, 100, 150);
    touch(Phase::Moved, 100, 135);
    touch(Phase::Moved, 100, 106);
    touch(Phase::Ended, 100, 106);

    EXPECT_EQ(table.contentOffset().y, 44);
    EXPECT_EQ(rows->take(), Entries{"shouldHighlight 3"});
}

// Holds: lines-of-empty-rows
TEST_F(TableView, DrawsTheLinesOfEmptyRowsUnlessItHasAFooter) {
    rows->count = 1;
    show();
    const auto lineAt = [&](double y) { return phone::pictureOfScreen()->pixel(200, static_cast<int>(y * 2) - 1); };

    EXPECT_EQ(lineAt(3 * 44), lineAt(44)); // as below the row that there is
    EXPECT_NE(lineAt(3 * 44), lineAt(3 * 44 - 10));
    table.send<"setTableFooterView:">(UIView::withFrame({}));
    advance(0);

    EXPECT_EQ(lineAt(3 * 44), lineAt(3 * 44 - 10));
}

TEST_F(TableView, DescribesItsCellsInTheTree) {
    show();
    tap(100, 50);

    const auto element = findClass("UITableViewCell", 1);
    EXPECT_EQ(attribute(element, "row"), "0,1");
    EXPECT_EQ(attribute(element, "reuse"), "Cell");
    EXPECT_EQ(attribute(element, "selected"), "true");
    EXPECT_EQ(attribute(element, "accessory"), "none");
}

TEST_F(TableView, RetainsNeitherDataSourceNorDelegate) {
    rows = nullptr;

    EXPECT_EQ(Rows::liveCount(), 0);
}

// Holds: table-header-of-a-title
TEST_F(TableView, HasAHeaderOnlyForASectionWithATitleAndAHeight) {
    show();
    EXPECT_EQ(countClass("UITableViewHeaderFooterView"), 0);
    EXPECT_EQ(cell(0).frame().origin.y, 0);

    const auto titled = objc::Ref<TitledRows>::make();
    run([&] {
        table.setDataSource(titled);
        table.setDelegate(titled);
        table.reloadData();
    });
    EXPECT_EQ(countClass("UITableViewHeaderFooterView"), 1);
    EXPECT_GT(cell(0).frame().origin.y, 0);

    titled->headerHeight = 0;
    run([&] { table.reloadData(); });
    EXPECT_EQ(countClass("UITableViewHeaderFooterView"), 0);
    EXPECT_EQ(cell(0).frame().origin.y, 0);
}

// Holds: table-defaults
TEST_F(TableView, LetsOneRowBeSelectedUnlessToldOtherwise) {
    EXPECT_TRUE((table.send<"allowsSelection", bool>()));
    EXPECT_EQ(countClass("_UITableViewCellSeparatorView"), 0);
    show();
    EXPECT_EQ(countClass("_UITableViewCellSeparatorView"), 3); // a line under each row

    table.send<"setAllowsSelection:">(false);
    tap(100, 50);

    EXPECT_FALSE(table.indexPathForSelectedRow());
    EXPECT_TRUE(rows->take().empty());
}

} // namespace
