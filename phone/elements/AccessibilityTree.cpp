#include "phone/elements/AccessibilityTree.h"

#include "phone/elements/ElementWriter.h"
#include "phone/elements/Refusal.h"
#include "phone/elements/ViewNode.h"

#include <algorithm>
#include <vector>

namespace phone::webdriver {

namespace {

/// What stands around a view.
struct Surroundings {
    bool isBehindAlert = false;
    bool isInCell = false;
    bool isInWhole = false; // of which a screen reader speaks as one thing
};

bool isWhole(const std::string& type) {
    return type == "Button" || type == "Switch" || type == "Key" || type == "StaticText" || type == "TextField" ||
           type == "TextView" || type == "PickerWheel";
}

bool isControl(const std::string& type) { return isWhole(type) && type != "StaticText"; }

bool isAccessible(const ViewNode& view, const Description& description, const Surroundings& around) {
    if (around.isBehindAlert || around.isInWhole) {
        return false;
    }
    if (isControl(description.type)) {
        return true;
    }
    if (around.isInCell) {
        return false;
    }
    if (description.type == "StaticText") {
        return description.label.has_value();
    }
    return description.type == "Cell" || view.has("accessibilityLabel");
}

bool holdsAlert(pugi::xml_node window) {
    return static_cast<bool>(window.find_node([](pugi::xml_node node) { return ViewNode(node).isShownAlert(); }));
}

class Builder {
public:
    explicit Builder(std::unordered_map<std::uint64_t, pugi::xml_node>& byIdentity) : _byIdentity(byIdentity) {}

    void windows(pugi::xml_node screen, pugi::xml_node application) {
        std::vector<pugi::xml_node> all(screen.begin(), screen.end());
        const auto alert = std::find_if(all.rbegin(), all.rend(), holdsAlert);
        const auto behind = static_cast<std::size_t>(all.rend() - alert);
        for (std::size_t i = 0; i < all.size(); ++i) {
            Surroundings around;
            around.isBehindAlert = i + 1 < behind;
            add(ViewNode(all[i]), application, around);
        }
    }

private:
    void add(const ViewNode& view, pugi::xml_node parent, const Surroundings& around) {
        if (view.isHidden()) {
            return;
        }
        Description description = describe(view);
        description.isAccessible = isAccessible(view, description, around);
        const long index = std::distance(parent.begin(), parent.end());
        const pugi::xml_node element = writeElement(parent, view, description, index);
        _byIdentity.emplace(view.identity(), element);

        Surroundings inside = around;
        inside.isInCell = around.isInCell || description.type == "Cell";
        inside.isInWhole = around.isInWhole || isWhole(description.type);
        for (const pugi::xml_node child : view.node().children()) {
            add(ViewNode(child), element, inside);
        }
    }

    std::unordered_map<std::uint64_t, pugi::xml_node>& _byIdentity;
};

} // namespace

AccessibilityTree::AccessibilityTree(const std::string& screen, const std::string& applicationName) {
    pugi::xml_document dump;
    const auto result = dump.load_buffer(screen.data(), screen.size());
    const pugi::xml_node root = dump.child("screen");
    if (!result || !root) {
        throw Refusal(Error::UnknownError, "the phone application gave no tree of its screen");
    }
    const pugi::xml_node application = writeApplication(_document, root, applicationName);
    _byIdentity.emplace(0, application);
    Builder(_byIdentity).windows(root, application);
}

Element AccessibilityTree::byIdentity(std::uint64_t identity) const {
    const auto found = _byIdentity.find(identity);
    return found == _byIdentity.end() ? Element() : Element(found->second);
}

} // namespace phone::webdriver
