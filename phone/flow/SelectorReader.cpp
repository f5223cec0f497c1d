#include "phone/flow/SelectorReader.h"

namespace phone {

namespace {

constexpr long largestIndex = 100'000;

TextPattern readPattern(const Yaml& node, const std::string& name, const CommandScope& scope) {
    const std::string expression = readText(node, name, scope);
    try {
        return TextPattern(expression);
    } catch (const PatternError&) {
        node.fail("\"" + expression +
                  "\" is no regular expression; write a backslash before ( [ { * + ? . | \\ $ ^ "
                  "that stand for themselves");
    }
}

} // namespace

std::string readText(const Yaml& node, const std::string& name, const CommandScope& scope) {
    return substituted(node.text(name), scope.environment, node.place());
}

PointSpec readPoint(const Yaml& node, const std::string& name, const CommandScope& scope) {
    const std::string text = readText(node, name, scope);
    const auto point = PointSpec::parse(text);
    if (!point) {
        node.fail(name + " \"" + text + "\" is no point; write points (\"160,50\") or per cent (\"50%,10%\")");
    }
    return *point;
}

Selector readSelector(const Yaml& node, const std::string& name, const CommandScope& scope, bool withPoint) {
    Selector selector;
    if (node.isText()) {
        selector.text = readPattern(node, name, scope);
        return selector;
    }
    if (!node.isMap()) {
        node.fail(name + " needs a text or keys such as `text` and `id`");
    }
    const YamlMap keys =
        withPoint ? node.map(name, {"text", "id", "index", "point"}) : node.map(name, {"text", "id", "index"});
    if (const auto text = keys.find("text")) {
        selector.text = readPattern(*text, "text", scope);
    }
    if (const auto id = keys.find("id")) {
        selector.id = readPattern(*id, "id", scope);
    }
    if (const auto index = keys.find("index")) {
        selector.index = index->wholeNumber("index", 0, largestIndex);
    }
    if (const auto point = keys.find("point")) {
        selector.point = readPoint(*point, "point", scope);
    }
    if (!selector.text && !selector.id && (selector.index || !selector.point)) {
        node.fail(name + " needs `text` or `id`" + (withPoint ? ", or `point` alone" : ""));
    }
    return selector;
}

Condition readCondition(const Yaml& node, const std::string& name, const CommandScope& scope) {
    const YamlMap keys = node.map(name, {"visible", "notVisible"});
    const auto visible = keys.find("visible");
    const auto notVisible = keys.find("notVisible");
    if (visible.has_value() == notVisible.has_value()) {
        node.fail(name + " needs one of `visible` and `notVisible`");
    }
    return visible ? Condition{readSelector(*visible, "visible", scope, false), true}
                   : Condition{readSelector(*notVisible, "notVisible", scope, false), false};
}

} // namespace phone
