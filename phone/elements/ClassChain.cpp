#include "phone/elements/ClassChain.h"

#include "phone/elements/ElementType.h"
#include "phone/elements/Refusal.h"
#include "phone/elements/TextFolding.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

namespace phone::webdriver {

namespace {

constexpr std::size_t mostSteps = 50;

bool isWordPart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

} // namespace

/// Goes through the text once.
class ClassChainParser {
public:
    explicit ClassChainParser(std::string_view text) : _text(text) {}

    ClassChain whole() {
        ClassChain chain;
        if (_text.empty()) {
            refuse("it is empty");
        }
        do {
            if (chain._steps.size() == mostSteps) {
                refuse("it has more than " + std::to_string(mostSteps) + " steps");
            }
            chain._steps.push_back(step());
        } while (take("/"));
        if (_at < _text.size()) {
            refuse("here stands a `/`, a condition, or the end");
        }
        return chain;
    }

private:
    bool take(std::string_view sign) {
        const bool found = _text.substr(_at).starts_with(sign);
        _at += found ? sign.size() : 0;
        return found;
    }

    ClassChain::Step step() {
        ClassChain::Step made;
        if (take("**")) {
            if (!take("/")) {
                refuse("behind ** stands a /");
            }
            made.isDeep = true;
        }
        made.type = type();
        while (take("[")) {
            if (made.index != 0) {
                refuseBefore("nothing stands behind a step's number; conditions stand before it");
            }
            bracket(made);
        }
        return made;
    }

    /// "" for any.
    std::string type() {
        if (_text.substr(_at).starts_with("**")) {
            refuse("** stands once in a step");
        }
        if (take("*")) {
            return "";
        }
        const std::size_t begin = _at;
        while (_at < _text.size() && isWordPart(_text[_at])) {
            ++_at;
        }
        const std::string_view word = _text.substr(begin, _at - begin);
        if (word.empty()) {
            refuse("a type such as XCUIElementTypeButton, or *, is missing");
        }
        std::string whole = wholeTypeName(word);
        if (whole.empty()) {
            _at = begin;
            refuse("there is no type " + std::string(word));
        }
        return whole == std::string(typePrefix) + "Any" ? "" : whole;
    }

    void bracket(ClassChain::Step& made) {
        if (take("`")) {
            made.conditions.push_back({condition('`'), false});
        } else if (take("$")) {
            made.conditions.push_back({condition('$'), true});
        } else {
            made.index = index();
        }
        if (!take("]")) {
            refuse("a closing ] is missing");
        }
    }

    /// Up to the sign that ends it; two of them stand for one.
    Predicate condition(char sign) {
        const std::size_t begin = _at;
        std::string predicate;
        while (_at < _text.size()) {
            const char c = _text[_at++];
            if (c == sign) {
                if (_at < _text.size() && _text[_at] == sign) {
                    ++_at;
                } else {
                    return parsed(predicate, begin);
                }
            }
            predicate += c;
        }
        _at = begin;
        refuse("the condition that begins here does not end with " + std::string(1, sign) + "]");
    }

    Predicate parsed(const std::string& predicate, std::size_t begin) {
        try {
            return Predicate::parse(predicate);
        } catch (const Refusal& refusal) {
            _at = begin;
            refuse(refusal.what());
        }
    }

    long index() {
        long value = 0;
        const char* end = _text.data() + _text.size();
        const auto [stop, error] = std::from_chars(_text.data() + _at, end, value);
        if (stop == _text.data() + _at) {
            refuse("in brackets stands a number, or a condition between backticks or dollars");
        }
        if (error != std::errc()) {
            refuse("this number is too large");
        }
        if (value == 0) {
            refuse("numbers begin at 1, or at -1 from the end");
        }
        _at = static_cast<std::size_t>(stop - _text.data());
        return value;
    }

    [[noreturn]] void refuseBefore(const std::string& what) {
        --_at;
        refuse(what);
    }
    [[noreturn]] void refuse(const std::string& what) const {
        throw Refusal(Error::InvalidSelector, "the class chain cannot be read at character " +
                                                  std::to_string(characterAt(_text, _at) + 1) + ": " + what);
    }

    std::string_view _text;
    std::size_t _at = 0;
};

ClassChain ClassChain::parse(std::string_view text) { return ClassChainParser(text).whole(); }

bool ClassChain::matches(const Step& step, const Element& element) {
    if (!step.type.empty() && step.type != element.node().name()) {
        return false;
    }
    return std::all_of(step.conditions.begin(), step.conditions.end(), [&](const Condition& condition) {
        if (!condition.isOfDescendant) {
            return condition.predicate.matches(element);
        }
        return static_cast<bool>(element.node().find_node(
            [&](pugi::xml_node inner) { return condition.predicate.matches(Element(inner)); }));
    });
}

void ClassChain::collect(const Step& step, const Element& from, std::vector<Element>& into) {
    for (const pugi::xml_node child : from.node().children()) {
        const Element element(child);
        if (matches(step, element)) {
            into.push_back(element);
        }
        if (step.isDeep) {
            collect(step, element, into);
        }
    }
}

std::vector<Element> ClassChain::found(const Step& step, const std::vector<Element>& from) {
    std::vector<Element> all;
    std::unordered_set<std::size_t> roots;
    for (const Element& element : from) {
        // What lies inside an earlier one was looked through with it.
        bool isInside = false;
        for (Element around = element.parent(); step.isDeep && around && !isInside; around = around.parent()) {
            isInside = roots.contains(around.node().hash_value());
        }
        if (!isInside) {
            roots.insert(element.node().hash_value());
            collect(step, element, all);
        }
    }
    if (step.index == 0) {
        return all;
    }
    const long count = static_cast<long>(all.size());
    const long place = step.index > 0 ? step.index - 1 : count + step.index;
    return place >= 0 && place < count ? std::vector{all[static_cast<std::size_t>(place)]} : std::vector<Element>{};
}

std::vector<Element> ClassChain::find(const Element& from) const {
    std::vector<Element> all{from};
    for (const Step& step : _steps) {
        all = found(step, all);
    }
    return all;
}

} // namespace phone::webdriver
