#include "phone/uikit/Compositor.h"

#include "phone/device/Settings.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/HeldScreen.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/Layer.h"
#include "phone/uikit/StatusBar.h"
#include "phone/uikit/StatusBarStyle.h"
#include "phone/uikit/View.h"
#include "phone/uikit/ViewController.h"
#include "phone/uikit/Window.h"

#include <algorithm>
#include <numbers>

namespace phone {

namespace {

constexpr UIWindowLevel statusBarLevel = 1000;

/// Saves the painter's state for a scope.
class Saved {
public:
    explicit Saved(Painter& painter) : _painter(painter) { painter.save(); }
    ~Saved() { _painter.restore(); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

private:
    Painter& _painter;
};

void draw(Painter& painter, const UIView& view);

/// What the view draws of itself and its children, with the origin of its bounds at the painter's.
void drawInside(Painter& painter, const UIView& view, const View& peer, const Presentation& now) {
    const Saved saved(painter);
    painter.translate(-now.bounds.origin.x, -now.bounds.origin.y);
    {
        const Saved content(painter);
        painter.clip(now.bounds); // what a view draws never leaves its bounds
        const CurrentPainter current(painter);
        view.send<"_drawContent:">(now.bounds);
    }
    const auto children = peer.children();
    for (const UIView& child : children) {
        draw(painter, child);
    }
}

void drawLayer(Painter& painter, const UIView& view, const View& peer, const Presentation& now) {
    Layer* layer = Layer::of(peer.layer());
    const CGRect area{{}, now.bounds.size};
    const double radius = layer->cornerRadius();
    {
        const Saved saved(painter);
        if (layer->masksToBounds()) {
            painter.clip(area, radius);
        }
        painter.blurBelow(area, layer->blurBelow());
        if (now.background) {
            painter.fill(area, colorOf(now.background), radius);
        }
        drawInside(painter, view, peer, now);
    }
    const double width = layer->borderWidth();
    if (width > 0 && layer->borderColor() != nullptr) {
        const CGRect line{width / 2, width / 2, area.size.width - width, area.size.height - width};
        painter.stroke(line, layer->borderColor()->color, width, std::max(0.0, radius - width / 2));
    }
}

void draw(Painter& painter, const UIView& view) {
    const View* peer = View::of(view);
    if (peer == nullptr || view.isHidden()) {
        return;
    }
    const Presentation now = peer->presentation();
    if (now.alpha <= 0) {
        return;
    }
    const Saved saved(painter);
    painter.translate(now.center.x, now.center.y);
    if (now.quarters != 0) {
        painter.rotate(now.quarters * std::numbers::pi / 2);
    }
    painter.translate(-now.bounds.size.width / 2, -now.bounds.size.height / 2);
    const bool translucent = now.alpha < 1;
    if (translucent) {
        painter.beginGroup();
    }
    drawLayer(painter, view, *peer, now);
    if (translucent) {
        painter.endGroup(now.alpha);
    }
}

/// The controller that fills the screen: what the frontmost application window's root presents, but for
/// what merely lies over it.
UIViewController controllerInFront() {
    UIViewController filling = Window::front().rootViewController();
    for (UIViewController above = filling; above; above = above.presentedViewController()) {
        const auto* peer = ViewController::of(above);
        filling = peer != nullptr && peer->presentsFullScreen() ? above : filling;
    }
    return filling;
}

/// As the controller in front asks, whatever lies beneath and whether it can be read there.
Color statusBarColor() {
    const auto style = controllerInFront().send<"preferredStatusBarStyle", StatusBarStyle>();
    return style == StatusBarStyle::Light ? Color{1, 1, 1, 1} : Color{0, 0, 0, 1};
}

void drawInterfaceStatusBar(Painter& painter) {
    const Interface& interface = Interface::shared();
    const DeviceProfile& device = settings().device;
    const CGSize size = interface.size();
    const Saved saved(painter);
    painter.translate(device.width / 2, device.height / 2);
    painter.rotate(interface.quarters() * std::numbers::pi / 2);
    painter.translate(-size.width / 2, -size.height / 2);
    drawStatusBar(painter, size.width, statusBarColor());
}

void drawScreen(Painter& painter, double width, double height) {
    painter.fill({0, 0, width, height}, Color{0, 0, 0, 1});
    const auto windows = Window::all();
    auto window = windows.begin();
    for (; window != windows.end() && window->windowLevel() < statusBarLevel; ++window) {
        draw(painter, *window);
    }
    drawInterfaceStatusBar(painter);
    for (; window != windows.end(); ++window) {
        draw(painter, *window);
    }
}

} // namespace

std::unique_ptr<Canvas> pictureOfScreen() {
    const DeviceProfile& device = settings().device;
    const HeldScreen& held = HeldScreen::shared();
    const CGSize size = held.size();
    auto canvas = Canvas::make(size.width, size.height, device.scale);
    Painter& painter = canvas->painter();
    const Saved saved(painter);
    painter.translate(size.width / 2, size.height / 2);
    painter.rotate(held.quarterTurns() * std::numbers::pi / 2);
    painter.translate(-device.width / 2, -device.height / 2);
    drawScreen(painter, device.width, device.height);
    return canvas;
}

bool writeScreenshot(const std::string& path) { return pictureOfScreen()->writePng(path); }

bool writeScreenshot(const std::string& path, CGRect part) { return pictureOfScreen()->writePng(path, part); }

} // namespace phone
