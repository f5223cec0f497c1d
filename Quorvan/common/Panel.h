/// The look that every screen of the library shares: a small white panel with a bar of its own, and hairlines.
#pragma once

#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UIView.h"

namespace quorvan {

/// Whether the device says that it is a tablet. A device that cannot say is none.
bool isTablet();
/// The thickness of a separator: half a point, one point on a tablet.
CGFloat hairline();
/// Placeholders, values and separators.
UIColor grey();

/// Where a panel is made, before it is centred.
inline constexpr CGPoint panelOrigin{15, 20.6};
/// Where some panels of the event's screens are made: a quarter of the space beside them down the screen.
CGPoint quarterOrigin(CGFloat panelHeight);
inline constexpr CGFloat barHeight = 44;
/// What a panel without tablet geometry measures across.
inline constexpr CGFloat panelWidth = 290;

/// The panel of the note's screens: its size on this device.
CGSize notePanelSize();

/// A white panel without content.
UIView makePanel(CGSize size, CGPoint origin = panelOrigin);
/// An empty bar for the top of a panel.
UINavigationBar makeBar(CGFloat width);
/// Adds the bar of a compose screen: the title between Cancel and Done, which send `cancel:` and `done:` to
/// the screen. Gives the bar's item.
UINavigationItem addComposeBar(const UIView& panel, const objc::Object& screen, const NSString& title);
/// Rounds the panel's corners and clips its content to them.
void roundCorners(const UIView& panel);
/// Adds a separator to the panel.
void addSeparator(const UIView& panel, CGRect frame);

} // namespace quorvan
