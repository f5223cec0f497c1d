/// Reading YAML strictly: every surprise is an InputError that names its line.
#pragma once

#include "phone/flow/InputError.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include <yaml-cpp/yaml.h>

namespace phone {

class YamlMap;

/// One node of a file. The `name` that questions take says in an error what should have stood there.
class Yaml {
public:
    Yaml(YAML::Node node, std::string file) : _node(std::move(node)), _file(std::move(file)) {}

    /// All documents of a file; throws when it cannot be read or is no YAML.
    static std::vector<Yaml> documents(const std::string& file);
    /// The same of a text; `name` stands for the file in what is wrong with it.
    static std::vector<Yaml> documentsIn(const std::string& text, const std::string& name);

    Place place() const { return {_file, _node.Mark().line + 1}; }
    [[noreturn]] void fail(const std::string& what) const { throw InputError(place(), what); }

    bool isNull() const { return _node.IsNull(); }
    bool isText() const { return _node.IsScalar(); }
    bool isMap() const { return _node.IsMap(); }
    bool isList() const { return _node.IsSequence(); }
    /// Whether a scalar stands without quotes, so that `true` or `12` has its plain meaning.
    bool isPlain() const { return _node.IsScalar() && _node.Tag() != "!"; }

    /// Any scalar, as it is written.
    std::string text(const std::string& name) const;
    bool boolean(const std::string& name) const;
    long wholeNumber(const std::string& name, long least, long most) const;
    /// Finite and at least `least`.
    double number(const std::string& name, double least) const;
    std::vector<Yaml> list(const std::string& name) const;
    /// Refuses keys that are not among `known`.
    YamlMap map(const std::string& name, const std::vector<std::string_view>& known) const;
    /// Any keys, in the file's order; refuses a key that stands twice.
    std::vector<std::pair<Yaml, Yaml>> pairs(const std::string& name) const;

private:
    YAML::Node _node;
    std::string _file;
};

/// The keys and values of one map.
class YamlMap {
public:
    YamlMap(Yaml node, std::string name, std::vector<std::pair<Yaml, Yaml>> pairs)
        : _node(std::move(node)), _name(std::move(name)), _pairs(std::move(pairs)) {}

    /// nullopt when the key is absent.
    std::optional<Yaml> find(std::string_view key) const;
    /// Throws when the key is absent.
    Yaml require(std::string_view key) const;
    bool has(std::string_view key) const { return find(key).has_value(); }

private:
    Yaml _node;
    std::string _name;
    std::vector<std::pair<Yaml, Yaml>> _pairs;
};

} // namespace phone
