#include "phone/elements/XPathQuery.h"

#include "phone/elements/Refusal.h"
#include "phone/elements/TextFolding.h"
#include "phone/elements/XPathCost.h"

#include <algorithm>
#include <new>
#include <unordered_map>

namespace phone::webdriver {

namespace {

constexpr std::size_t longestExpression = 10'000; // bytes
constexpr double mostCost = 6e7;                  // nodes looked at: about a second

[[noreturn]] void refuse(const std::string& what) {
    throw Refusal(Error::InvalidSelector, "the XPath expression " + what);
}

std::size_t countOf(pugi::xml_node node) {
    std::size_t count = 1;
    for (const pugi::xml_node child : node.children()) {
        count += countOf(child);
    }
    return count;
}

pugi::xpath_query compiled(const std::string& expression) {
    try {
        return pugi::xpath_query(expression.c_str());
    } catch (const pugi::xpath_exception& error) {
        const auto byte = static_cast<std::size_t>(std::max<std::ptrdiff_t>(error.result().offset, 0));
        refuse("cannot be read at character " + std::to_string(characterAt(expression, byte) + 1) + ": " +
               error.result().description());
    }
}

std::vector<pugi::xml_node> nodesFound(const pugi::xpath_query& query, pugi::xml_node from) {
    pugi::xpath_node_set found = query.evaluate_node_set(from);
    found.sort();
    std::vector<pugi::xml_node> nodes;
    for (const pugi::xpath_node& one : found) {
        if (one.attribute()) {
            refuse("gives attributes and not elements; write a condition: //*[@name]");
        }
        if (one.node().type() == pugi::node_element) {
            nodes.push_back(one.node());
        }
    }
    return nodes;
}

/// Two trees of the same form, side by side.
void pair(pugi::xml_node copy, pugi::xml_node original, std::unordered_map<std::size_t, Element>& into) {
    for (; copy && original; copy = copy.next_sibling(), original = original.next_sibling()) {
        into.emplace(copy.hash_value(), Element(original));
        if (copy.first_child()) {
            pair(copy.first_child(), original.first_child(), into);
        }
    }
}

/// In a document in which there is nothing else.
std::vector<Element> foundInside(const pugi::xpath_query& query, const Element& from) {
    pugi::xml_document document;
    const pugi::xml_node copy = document.append_copy(from.node());
    std::unordered_map<std::size_t, Element> originals{{copy.hash_value(), from}};
    if (copy.first_child()) {
        pair(copy.first_child(), from.node().first_child(), originals);
    }
    std::vector<Element> all;
    for (const pugi::xml_node node : nodesFound(query, copy)) {
        all.push_back(originals.at(node.hash_value()));
    }
    return all;
}

} // namespace

std::vector<Element> findByXPath(const Element& from, const std::string& expression) {
    if (expression.size() > longestExpression) {
        refuse("is longer than " + std::to_string(longestExpression) + " bytes");
    }
    if (expression.find('\0') != std::string::npos) {
        refuse("has a zero in it");
    }
    const pugi::xpath_query query = compiled(expression);
    if (query.return_type() != pugi::xpath_type_node_set) {
        refuse("gives a value and no elements");
    }
    if (xpathCost(expression, countOf(from.node())) > mostCost) {
        refuse("is too much work: it looks through the whole screen for each of many elements; put fewer // inside "
               "conditions");
    }
    try {
        if (from.parent()) {
            return foundInside(query, from);
        }
        std::vector<Element> all;
        for (const pugi::xml_node node : nodesFound(query, from.node())) {
            all.emplace_back(node);
        }
        return all;
    } catch (const std::bad_alloc&) {
        refuse("takes more memory than there is");
    }
}

} // namespace phone::webdriver
