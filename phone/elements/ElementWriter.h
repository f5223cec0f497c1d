/// Elements as they stand in the tree's document.
#pragma once

#include "phone/elements/ViewNode.h"

#include <span>
#include <string_view>

namespace phone::webdriver {

/// The attributes of an element that its source shows, in order. Behind them stand some for our own use.
std::span<const std::string_view> shownAttributes();

pugi::xml_node writeApplication(pugi::xml_node document, pugi::xml_node screen, const std::string& name);
pugi::xml_node writeElement(pugi::xml_node parent, const ViewNode& view, const Description& description, long index);

} // namespace phone::webdriver
