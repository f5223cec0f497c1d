#include "phone/elements/Find.h"

#include "phone/elements/Attributes.h"
#include "phone/elements/ClassChain.h"
#include "phone/elements/CssSelector.h"
#include "phone/elements/ElementType.h"
#include "phone/elements/Predicate.h"
#include "phone/elements/Refusal.h"
#include "phone/elements/XPathQuery.h"

#include <array>
#include <string_view>
#include <utility>

namespace phone::webdriver {

namespace {

template <class Matches>
void collect(pugi::xml_node from, const Matches& matches, std::vector<Element>& into) {
    for (const pugi::xml_node child : from.children()) {
        if (matches(Element(child))) {
            into.emplace_back(child);
        }
        collect(child, matches, into);
    }
}

template <class Matches>
std::vector<Element> all(const Element& from, const Matches& matches) {
    std::vector<Element> found;
    if (!from.parent() && matches(from)) {
        found.push_back(from);
    }
    collect(from.node(), matches, found);
    return found;
}

std::vector<Element> byName(const Element& from, const std::string& name) {
    return all(from, [&](const Element& element) {
        const pugi::xml_attribute own = element.node().attribute("name");
        return own && name == own.value();
    });
}

std::vector<Element> byType(const Element& from, const std::string& given) {
    const std::string type = wholeTypeName(given);
    if (type.empty()) {
        throw Refusal(Error::InvalidSelector,
                      "there is no type \"" + given + "\"; types are such as XCUIElementTypeButton");
    }
    const bool isAny = type == std::string(typePrefix) + "Any";
    return all(from, [&](const Element& element) { return isAny || type == element.node().name(); });
}

std::vector<Element> byPredicate(const Element& from, const std::string& text) {
    const Predicate predicate = Predicate::parse(text);
    return all(from, [&](const Element& element) { return predicate.matches(element); });
}

std::vector<Element> byClassChain(const Element& from, const std::string& text) {
    return ClassChain::parse(text).find(from);
}

std::vector<Element> byLinkText(const Element& from, const std::string& text, bool isPartial) {
    const std::size_t sign = text.find('=');
    const std::string name = sign == std::string::npos ? "name" : text.substr(0, sign);
    const std::string value = sign == std::string::npos ? text : text.substr(sign + 1);
    if (findAttribute(name) == nullptr) {
        throw Refusal(Error::InvalidSelector, "a link text is ATTRIBUTE=VALUE, and there is no attribute \"" + name +
                                                  "\"; there are " + attributeNames());
    }
    return all(from, [&](const Element& element) {
        const std::optional<std::string> own = element.attribute(name);
        return own && (isPartial ? own->find(value) != std::string::npos : *own == value);
    });
}

std::vector<Element> byWholeLinkText(const Element& from, const std::string& text) {
    return byLinkText(from, text, false);
}

std::vector<Element> byPartialLinkText(const Element& from, const std::string& text) {
    return byLinkText(from, text, true);
}

std::vector<Element> byCss(const Element& from, const std::string& text) {
    const CssSelector selector = CssSelector::parse(text);
    return selector.kind == CssSelector::Kind::Type ? byType(from, selector.value) : byName(from, selector.value);
}

using Strategy = std::vector<Element> (*)(const Element&, const std::string&);

constexpr std::array<std::pair<std::string_view, Strategy>, 12> strategies = {{
    {"accessibility id", byName},
    {"id", byName},
    {"name", byName},
    {"class name", byType},
    {"xpath", findByXPath},
    {"predicate string", byPredicate},
    {"-ios predicate string", byPredicate},
    {"class chain", byClassChain},
    {"-ios class chain", byClassChain},
    {"link text", byWholeLinkText},
    {"partial link text", byPartialLinkText},
    {"css selector", byCss},
}};

} // namespace

std::vector<Element> find(const Element& from, const std::string& strategy, const std::string& value) {
    std::string known;
    for (const auto& [name, search] : strategies) {
        if (name == strategy) {
            return search(from, value);
        }
        known += (known.empty() ? "" : ", ") + std::string(name);
    }
    throw Refusal(Error::InvalidArgument, "there is no strategy \"" + strategy + "\"; there are " + known);
}

} // namespace phone::webdriver
