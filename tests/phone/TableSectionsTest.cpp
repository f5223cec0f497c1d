#include "phone/foundation/Text.h"
#include "platform/uikit/UITableView.h"
#include "tests/phone/PhoneTest.h"

namespace {

/// A section of one row and one of six, "row SECTION.ROW".
class Sections : public objc::Defines<Sections, NSObject> {
public:
    static constexpr auto objc_name = "TableSectionsTestSections";
    static void define(objc::ClassTable<Sections>& c) {
        c.def<"numberOfSectionsInTableView:", &Sections::numberOfSections>()
            .def<"tableView:numberOfRowsInSection:", &Sections::numberOfRows>()
            .def<"tableView:cellForRowAtIndexPath:", &Sections::cellForRow>()
            .def<"tableView:titleForHeaderInSection:", &Sections::title>()
            .def<"tableView:didSelectRowAtIndexPath:", &Sections::didSelect>();
    }

    std::vector<std::string> titles = {"End Date", "Repeat Interval"};
    std::string selected;

private:
    objc::Int numberOfSections(const UITableView&) { return 2; }
    objc::Int numberOfRows(const UITableView&, objc::Int section) { return section == 0 ? 1 : 6; }
    UITableViewCell cellForRow(const UITableView&, const NSIndexPath& path) {
        const auto cell = UITableViewCell::with(0, nullptr);
        cell.textLabel().setText(phone::string("row " + name(path)));
        return cell;
    }
    NSString title(const UITableView&, objc::Int section) {
        return phone::string(titles.at(static_cast<std::size_t>(section)));
    }
    void didSelect(const UITableView&, const NSIndexPath& path) { selected = name(path); }
    static std::string name(const NSIndexPath& path) {
        return std::to_string(path.section()) + "." + std::to_string(path.row());
    }
};

class TableSections : public PhoneTest {
protected:
    void SetUp() override {
        useClassesOnly();
        screen = window();
        sections = objc::Ref<Sections>::make();
        table = UITableView::withFrame({0, 100, 290, 226}, UITableViewStyle::Plain);
        table.setDataSource(sections);
        table.setDelegate(sections);
        screen.addSubview(table);
        advance(0);
    }
    /// How far below the table's top edge something with this text stands on the screen.
    double top(const std::string& text) {
        auto element = find(text);
        while (element && std::string(element.name()) != "UITableViewHeaderFooterView" && !element.attribute("row")) {
            element = element.parent();
        }
        const std::string place = attribute(element, "screen");
        return place.empty() ? -1 : std::stod(place.substr(place.find(' '))) - 100;
    }
    void scroll(double offset) {
        run([&] { table.setContentOffset({0, offset}); });
        advance(0);
    }

    UIWindow screen;
    objc::Ref<Sections> sections;
    UITableView table;
};

} // namespace

TEST_F(TableSections, EachHasItsHeaderAboveItsRows) {
    EXPECT_EQ(top("End Date"), 0);
    EXPECT_EQ(top("row 0.0"), 28);
    EXPECT_EQ(top("Repeat Interval"), 72);
    EXPECT_EQ(top("row 1.0"), 100);
    EXPECT_EQ(top("row 1.1"), 144);
    EXPECT_EQ(table.contentSize().height, 28 + 44 + 28 + 6 * 44);
}

TEST_F(TableSections, AHeaderStaysInSightUntilTheNextOnePushesItOut) {
    scroll(20);
    EXPECT_EQ(top("End Date"), 0);
    EXPECT_EQ(top("row 0.0"), 8);

    scroll(60);
    EXPECT_EQ(top("End Date"), -16);
    EXPECT_EQ(top("Repeat Interval"), 12);

    scroll(138);
    EXPECT_EQ(top("Repeat Interval"), 0);
    EXPECT_EQ(top("row 1.5"), 182);
}

TEST_F(TableSections, ATouchOnAHeaderSelectsNothingThoughARowLiesBelowIt) {
    tap(100, 110);
    scroll(138);
    tap(100, 110);
    EXPECT_EQ(sections->selected, "");

    tap(100, 135);
    EXPECT_EQ(sections->selected, "1.1");
}

TEST_F(TableSections, RowsAreSelectedByTheirSectionAndPlace) {
    tap(100, 100 + 50);
    EXPECT_EQ(sections->selected, "0.0");

    tap(100, 100 + 150);
    EXPECT_EQ(sections->selected, "1.1");
}

TEST_F(TableSections, AReloadReadsTheTitlesAgain) {
    sections->titles = {"Enddatum", "Intervall"};
    run([&] { table.reloadData(); });
    advance(0);

    EXPECT_TRUE(isVisible("Intervall"));
    EXPECT_FALSE(isVisible("Repeat Interval"));
    EXPECT_EQ(top("Enddatum"), 0);
    EXPECT_EQ(top("Intervall"), 72);
    EXPECT_EQ(countClass("UITableViewHeaderFooterView"), 2);
}

TEST_F(TableSections, RowsAreFoundInTheirSections) {
    EXPECT_EQ(phone::text(table.cellForRow(NSIndexPath::forRow(1, 1)).textLabel().text()), "row 1.1");
    EXPECT_FALSE(table.cellForRow(NSIndexPath::forRow(1, 0)));
    EXPECT_FALSE(table.cellForRow(NSIndexPath::forRow(-1, 1)));
    EXPECT_FALSE(table.cellForRow(NSIndexPath::forRow(5, 1))); // not in sight
}
