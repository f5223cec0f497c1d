/// A flow's file: a header, three dashes, and a list of commands.
#pragma once

#include "phone/flow/Flow.h"
#include "phone/flow/Substitution.h"
#include "phone/flow/Yaml.h"

#include <optional>

namespace phone {

/// The two parts of a flow's file, not yet looked into.
struct FlowFile {
    std::optional<Yaml> header; // absent when the file is a list alone
    Yaml commands;

    /// Throws InputError when the file has another shape.
    static FlowFile read(const std::string& file) { return of(Yaml::documents(file), file); }
    static FlowFile of(const std::vector<Yaml>& documents, const std::string& file);
};

/// What a header says.
struct FlowHeader {
    std::string name; // "" when not given
    PhoneOptions phone;
    Environment environment;

    static FlowHeader read(const FlowFile& file);
};

/// `{NAME: value, ...}`; the values may use the names of `outer`.
Environment readEnvironment(const Yaml& node, const Environment& outer);

} // namespace phone
