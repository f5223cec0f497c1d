/// Reads selectors and points of a flow.
#pragma once

#include "phone/flow/CommandReader.h"

namespace phone {

/// A text of the flow, filled in.
std::string readText(const Yaml& node, const std::string& name, const CommandScope& scope);

/// `"TEXT"` or `{text, id, index, point}`; `point` only where the command touches something.
Selector readSelector(const Yaml& node, const std::string& name, const CommandScope& scope, bool withPoint);

PointSpec readPoint(const Yaml& node, const std::string& name, const CommandScope& scope);

/// `{visible: SELECTOR}` or `{notVisible: SELECTOR}`.
Condition readCondition(const Yaml& node, const std::string& name, const CommandScope& scope);

} // namespace phone
