/// The frame of every chooser: a panel with a bar whose left item is the Back control.
#pragma once

#include "Quorvan/common/Panel.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITableView.h"

namespace quorvan {

/// Builds a chooser's panel, in the order in which its views lie above each other: what the chooser adds
/// first, the bar, its main content, the separator.
class ChooserFrame {
public:
    /// A panel of this size; its bar will have the title and the Back control, which sends `back:` to the chooser.
    ChooserFrame(const UIViewController& chooser, CGSize size, const NSString& title, CGPoint origin = panelOrigin);

    const UIView& panel() const { return _panel; }
    /// Adds the word and the one switch of the chooser, kept as `allDayAllNight`, and a line below them.
    void addSwitch(const NSString& word, bool on, CGFloat lineTop);
    /// Puts the bar on the panel, above what the chooser has added so far.
    void addBar();
    /// Adds the chooser's table, with the chooser as its delegate and data source: all below the bar, or the frame.
    UITableView addTable(const UIViewController& chooser);
    UITableView addTable(const UIViewController& chooser, CGRect frame);
    /// Adds a date picker that tells the chooser, by `pickerChanged:`, when a person turns it.
    UIDatePicker addPicker(const UIViewController& chooser, CGRect frame);
    /// Rounds the corners, adds the separator under the bar and gives the panel.
    UIView finish(CGFloat separator = 0.5);

private:
    NSString _title;
    UIView _panel;
    UINavigationBar _bar;
    UIView _back;
};

/// What the panel of most choosers measures.
inline constexpr CGSize chooserSize{panelWidth, 270};

/// What a chooser's view starts with: the backdrop, as large as given, the title, which nobody sees since
/// the navigation controller's own bar is hidden. Gives the backdrop.
UIImageView startChooser(const UIViewController& chooser, CGSize screen, const NSString& title);

/// The same with a backdrop of the main screen's size, which goes on covering the view when that is turned.
UIImageView startChooser(const UIViewController& chooser, const NSString& title);
/// Puts the panel in the middle of the chooser's view, where it stays when that is turned.
void showPanel(const UIViewController& chooser, const UIView& panel);
/// Ends what a table tells its screen, which may be gone before the table.
void forgetDelegates(const UITableView& table);
/// The same for a table in a shared variable, which may be another screen's by now.
void forgetDelegates(const UITableView& table, const objc::Object& screen);

/// A cell of this identifier, reused where there is one.
UITableViewCell cellWithIdentifier(const UITableView& table, const NSString& identifier);
/// A cell that shows one text, reused where there is one.
UITableViewCell plainCell(const UITableView& table, const NSString& text);
/// Moves the checkmark from the row marked before, in the same section and if it is visible, to the cell of the
/// tapped row. Gives that cell.
UITableViewCell moveCheckmark(const UITableView& table, objc::Int markedBefore, const NSIndexPath& tapped);

/// When a chooser that goes back reloads the rows of the compose screen.
enum class Reload { BeforeThePop, AfterThePop };
/// Goes back to the compose screen.
void popToCompose(const UIViewController& chooser, Reload rows);
/// Goes back to the screen that the compose screen has pushed.
void popToSecond(const UIViewController& chooser);

} // namespace quorvan
