#include "Quorvan/common/ComposeScreen.h"

#include "Quorvan/common/Motion.h"
#include "Quorvan/common/Panel.h"

namespace quorvan {

namespace {

constexpr const char* panelMove = "theBox";

/// What the screen allows for the keyboard, in points, whatever keyboard there is.
constexpr CGFloat keyboardAllowance = 216;

} // namespace

void finishComposePanel(const UIView& panel, const UIViewController& screen) {
    addSettingsTable(panel, screen, {0, 139.5, panelWidth, 174.5}); // docs/kept.md: the panel cuts
    addSeparator(panel, {0, 139, panelWidth, 0.5});
    roundCorners(panel);
    addSeparator(panel, {0, barHeight, panelWidth, 0.5});
}

void makeRoomForKeyboard(const UIViewController& screen, const UIView& panel) {
    glide(panelMove, panel, centerAboveKeyboard(screen.view(), keyboardAllowance));
}

void centerPanel(const UIViewController& screen, const UIView& panel) {
    glide(panelMove, panel, screen.view().center());
}

} // namespace quorvan
