/// The frame of every chooser: a panel with a bar whose left item is the Back control.
#pragma once

#include "Quorvan/common/Panel.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// What the panel of most choosers measures.
inline constexpr CGSize chooserSize{panelWidth, 270};

/// Builds a chooser's panel, in the order in which its views lie above each other: what the chooser adds
/// first, the bar, its main content, the separator.
class ChooserFrame {
public:
    /// A panel at this frame; its bar will read the word for the key, beside the Back control, which sends `back:`
    /// to the chooser. `firstKey` is for the item that a bar may come with; the same one when nil.
    ChooserFrame(const UIViewController& chooser, CGRect frame, const NSString& titleKey,
                 const NSString& firstKey = nullptr);

    /// Adds the chooser's one switch, its word, and a line below them.
    void addSwitch(const UISwitch& onOff, const NSString& word, CGFloat lineTop);
    /// Puts the bar on the panel, above what the chooser has added so far.
    void addBar();
    /// Adds the chooser's table or picker.
    void add(const UIView& content) { _panel.addSubview(content); }
    /// All of the panel but the bar.
    CGRect belowBar() const;
    /// Rounds the corners, adds the separator under the bar and gives the panel.
    UIView finish(CGFloat separator = 0.5);

private:
    UIView _panel;
    UINavigationBar _bar;
    NSString _title;
    UIView _back;
};

/// The one switch of a chooser, off; not on its panel yet.
UISwitch makeSwitch();
/// A date picker that tells the chooser, by `pickerChanged:`, when a person turns it; not on its panel yet.
UIDatePicker makePicker(const UIViewController& chooser, CGRect frame);

} // namespace quorvan
