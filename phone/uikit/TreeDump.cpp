#include "phone/uikit/TreeDump.h"

#include "phone/uikit/ElementAttributes.h"
#include "phone/uikit/FindingAttributes.h"
#include "phone/uikit/HeldScreen.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/Reachability.h"
#include "phone/uikit/TouchDelivery.h"
#include "phone/uikit/View.h"
#include "phone/uikit/Window.h"

#include <pugixml.hpp>

#include <algorithm>
#include <sstream>

namespace phone {

namespace {

/// What a view's surroundings make of it.
struct Surroundings {
    Placement place;   // of the superview's points on the upright screen
    CGRect clip;       // what of the upright screen is left by the views around
    bool shown = true; // whether none of them is hidden or transparent
    Responsiveness responsiveness;
};

CGRect intersection(CGRect a, CGRect b) {
    const CGFloat x = std::max(a.origin.x, b.origin.x);
    const CGFloat y = std::max(a.origin.y, b.origin.y);
    return {x, y, std::max(0.0, std::min(a.maxX(), b.maxX()) - x), std::max(0.0, std::min(a.maxY(), b.maxY()) - y)};
}

void write(pugi::xml_node parent, const UIView& view, const Surroundings& around, bool forFinding) {
    const View* peer = View::of(view);
    if (peer == nullptr) {
        return;
    }
    pugi::xml_node element = parent.append_child(class_getName(object_getClass(view.raw())));
    const CGRect frame = view.frame();
    const CGRect place = around.place.outward(frame);
    const CGRect seen = intersection(place, around.clip);
    const bool shown = around.shown && !isInvisible(view);

    writeAttribute(element, "frame", frame);
    writeAttribute(element, "screen", HeldScreen::shared().held(place));
    writeElementAttributes(element, view);
    Surroundings inside{around.place.after(peer->placement()), view.clipsToBounds() ? seen : around.clip, shown, {}};
    if (forFinding) {
        const bool visible = shown && seen.size.width > 0 && seen.size.height > 0;
        writeAttribute(element, "visible", visible);
        if (const auto point = visible ? touchPoint(view, seen) : std::nullopt) {
            writeAttribute(element, "touch", HeldScreen::shared().held(*point));
        }
        if (const int quarters = (inside.place.quarters + HeldScreen::shared().quarterTurns()) % 4; quarters != 0) {
            writeAttribute(element, "turned", static_cast<double>(quarters));
        }
        inside.responsiveness = writeFindingAttributes(element, view, around.responsiveness);
    }

    for (const UIView& child : peer->children()) {
        write(element, child, inside, forFinding);
    }
}

} // namespace

std::string dumpTree(bool forFinding, std::optional<CGPoint> touched) {
    pugi::xml_document document;
    pugi::xml_node screen = document.append_child("screen");
    const CGSize size = HeldScreen::shared().size();
    writeAttribute(screen, "width", size.width);
    writeAttribute(screen, "height", size.height);
    writeAttribute(screen, "orientation", HeldScreen::shared().orientation());
    if (touched) {
        if (const View* hit = View::of(TouchDelivery::viewAt(*touched))) {
            writeAttribute(screen, "hit", std::to_string(hit->identity()));
        }
    }
    for (const UIWindow& window : Window::all()) {
        write(screen, window, {{}, Interface::screen(), true, {}}, forFinding);
    }
    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
}

} // namespace phone
