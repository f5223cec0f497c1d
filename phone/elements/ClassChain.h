/// A way through the tree by types: **/XCUIElementTypeCell[`label BEGINSWITH "A"`][-1]/XCUIElementTypeButton.
#pragma once

#include "phone/elements/Predicate.h"

#include <string>
#include <string_view>
#include <vector>

namespace phone::webdriver {

/// Steps are separated by `/`; before a step `**/` means at any depth instead of directly inside. A step is a type or
/// `*`, then conditions in brackets (between backticks for itself, between dollars for something inside it), then a
/// number in brackets, which chooses one of all that the step found: from 1, or from -1 for the last.
class ClassChain {
public:
    /// Throws Refusal (invalid selector) with the place and what is wrong there.
    static ClassChain parse(std::string_view text);

    /// In the order of the document.
    std::vector<Element> find(const Element& from) const;

private:
    friend class ClassChainParser;

    struct Condition {
        Predicate predicate;
        bool isOfDescendant = false;
    };
    struct Step {
        bool isDeep = false;
        std::string type; // whole; "" for any
        std::vector<Condition> conditions;
        long index = 0; // 0: all
    };

    static bool matches(const Step& step, const Element& element);
    static void collect(const Step& step, const Element& from, std::vector<Element>& into);
    static std::vector<Element> found(const Step& step, const std::vector<Element>& from);

    std::vector<Step> _steps;
};

} // namespace phone::webdriver
