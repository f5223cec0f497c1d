/// What an element of the dumped tree says about its view.
#pragma once

#include "platform/uikit/UIView.h"

#include <pugixml.hpp>

#include <string>

namespace phone {

// Numbers are printed in their shortest form, booleans as true and false.
void writeAttribute(pugi::xml_node& element, const char* name, CGRect rect);
void writeAttribute(pugi::xml_node& element, const char* name, CGPoint point);
void writeAttribute(pugi::xml_node& element, const char* name, double number);
void writeAttribute(pugi::xml_node& element, const char* name, bool value);
void writeAttribute(pugi::xml_node& element, const char* name, const std::string& text);
/// Without it `const char*` would be taken for a boolean.
void writeAttribute(pugi::xml_node& element, const char* name, const char* text);

/// All but the places: how the view looks, and what its class adds (text, picture, state, row, ...).
void writeElementAttributes(pugi::xml_node& element, const UIView& view);

} // namespace phone
