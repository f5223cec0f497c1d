/// What a person with a screen reader meets on the screen, as mobile testers' programs name it.
#pragma once

#include "phone/elements/Element.h"

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>

namespace phone::webdriver {

/// One moment of the screen. A document of its elements: the application, its windows back to front, and what is in
/// them; hidden views are left out. Not copyable; its elements point into it.
class AccessibilityTree {
public:
    /// `screen` is what `Screen::tree(true)` gives. Throws Refusal when it is no such tree.
    AccessibilityTree(const std::string& screen, const std::string& applicationName);
    AccessibilityTree(const AccessibilityTree&) = delete;
    AccessibilityTree& operator=(const AccessibilityTree&) = delete;

    Element application() const { return Element(_document.document_element()); }
    /// The element of this identity; null when it is not on the screen any more.
    Element byIdentity(std::uint64_t identity) const;
    std::size_t size() const { return _byIdentity.size(); }

private:
    pugi::xml_document _document;
    std::unordered_map<std::uint64_t, pugi::xml_node> _byIdentity;
};

} // namespace phone::webdriver
