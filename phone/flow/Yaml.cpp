#include "phone/flow/Yaml.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace phone {

namespace {

template <class Number>
std::optional<Number> parsed(const std::string& text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::string joined(const std::vector<std::string_view>& words) {
    std::string all;
    for (std::string_view word : words) {
        all += (all.empty() ? "" : ", ") + std::string(word);
    }
    return all;
}

/// With a mark at the end: without it the parser takes an open quote at the end of a file for a closed one.
std::string terminated(std::string content) {
    if (!content.ends_with('\n')) {
        content += '\n';
    }
    return content + "...\n";
}

} // namespace

std::vector<Yaml> Yaml::documents(const std::string& file) {
    if (!std::filesystem::is_regular_file(file)) {
        throw InputError({file, 0}, "no such file");
    }
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    if (!stream) {
        throw InputError({file, 0}, "cannot be read");
    }
    return documentsIn(content.str(), file);
}

std::vector<Yaml> Yaml::documentsIn(const std::string& text, const std::string& file) {
    try {
        std::vector<Yaml> all;
        for (YAML::Node& node : YAML::LoadAll(terminated(text))) {
            all.emplace_back(std::move(node), file);
        }
        return all;
    } catch (const YAML::Exception& error) {
        throw InputError({file, error.mark.line + 1}, "is not YAML: " + error.msg);
    }
}

std::string Yaml::text(const std::string& name) const {
    if (!_node.IsScalar()) {
        fail(name + " has to be a text");
    }
    return _node.Scalar();
}

bool Yaml::boolean(const std::string& name) const {
    if (!isPlain() || (_node.Scalar() != "true" && _node.Scalar() != "false")) {
        fail(name + " has to be true or false");
    }
    return _node.Scalar() == "true";
}

long Yaml::wholeNumber(const std::string& name, long least, long most) const {
    const auto value = _node.IsScalar() ? parsed<long>(_node.Scalar()) : std::nullopt;
    if (!value || *value < least || *value > most) {
        fail(name + " has to be a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return *value;
}

double Yaml::number(const std::string& name, double least) const {
    const auto value = _node.IsScalar() ? parsed<double>(_node.Scalar()) : std::nullopt;
    if (!value || !std::isfinite(*value) || *value < least) {
        std::ostringstream bound;
        bound << least;
        fail(name + " has to be a number, at least " + bound.str());
    }
    return *value;
}

std::vector<Yaml> Yaml::list(const std::string& name) const {
    if (!_node.IsSequence()) {
        fail(name + " has to be a list");
    }
    std::vector<Yaml> all;
    for (const YAML::Node& item : _node) {
        all.emplace_back(item, _file);
    }
    return all;
}

std::vector<std::pair<Yaml, Yaml>> Yaml::pairs(const std::string& name) const {
    if (!_node.IsMap()) {
        fail(name + " has to be keys with values");
    }
    std::vector<std::pair<Yaml, Yaml>> all;
    std::set<std::string> seen;
    for (const auto& pair : _node) {
        const Yaml key(pair.first, _file);
        if (!seen.insert(key.text("a key of " + name)).second) {
            key.fail("the key `" + key.text("") + "` stands twice in " + name);
        }
        all.emplace_back(key, Yaml(pair.second, _file));
    }
    return all;
}

YamlMap Yaml::map(const std::string& name, const std::vector<std::string_view>& known) const {
    auto all = pairs(name);
    for (const auto& [key, value] : all) {
        const std::string word = key.text("");
        if (std::find(known.begin(), known.end(), word) == known.end()) {
            key.fail("unknown key `" + word + "` in " + name + "; known: " + joined(known));
        }
    }
    return {*this, name, std::move(all)};
}

std::optional<Yaml> YamlMap::find(std::string_view key) const {
    for (const auto& [name, value] : _pairs) {
        if (name.text("") == key) {
            return value;
        }
    }
    return std::nullopt;
}

Yaml YamlMap::require(std::string_view key) const {
    auto value = find(key);
    if (!value) {
        _node.fail(_name + " needs the key `" + std::string(key) + "`");
    }
    return *value;
}

} // namespace phone
